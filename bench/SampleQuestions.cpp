#include "bench/SampleQuestions.h"

#include "search/IndexEntry.h"

#include <array>
#include <cmath>
#include <string_view>

namespace nookwise::bench {
namespace {

constexpr std::size_t vocabularySize = 60'000;
constexpr std::size_t drawCount = 1U << 20U;
constexpr double year = 31'536'000;

constexpr std::array functionWords{
    "the",     "of",   "and",    "to",      "in",       "a",      "is",       "for",      "on",
    "that",    "with", "as",     "be",      "at",       "by",     "this",     "from",     "or",
    "are",     "it",   "an",     "not",     "you",      "your",   "we",       "have",     "will",
    "total",   "date", "page",   "invoice", "amount",   "please", "number",   "order",    "time",
    "account", "all",  "report", "meeting", "password", "notes",  "customer", "contract", "tax"};
constexpr std::array umlautWords{"der",      "die",    "und",   "für",  "über",
                                 "nicht",    "eine",   "mit",   "auf",  "können",
                                 "Rechnung", "Straße", "größe", "wäre", "möchte"};
constexpr std::array cyrillicWords{"и",   "в",   "не",   "на",    "что",    "по",
                                   "как", "это", "счёт", "сумма", "договор"};
constexpr std::array latinSyllables{
    "an", "ber", "con",  "der", "el", "for", "gra",  "hen", "in",  "ja", "ker", "lo",  "men",
    "na", "or",  "per",  "qui", "ra", "sen", "tion", "un",  "ver", "wi", "xi",  "ya",  "zo",
    "st", "ing", "ment", "al",  "re", "ta",  "li",   "co",  "de",  "ex", "pro", "ous", "ly",
    "ed", "er",  "is",   "at",  "on", "en",  "te",   "ti",  "si",  "mo", "pa"};
constexpr std::array umlautSyllables{"ver",  "ge",  "be",  "lich", "keit", "für", "über",
                                     "schä", "ung", "en",  "er",   "tö",   "mü",  "ste",
                                     "hen",  "ze",  "ich", "aus",  "ein",  "gra"};
constexpr std::array cyrillicSyllables{"по", "на",  "пре", "сто", "ра", "ни", "ва",
                                       "ль", "ков", "ние", "ост", "ми", "до", "за",
                                       "ре", "ти",  "чи",  "ло",  "жи", "ду"};

template <typename Pieces>
std::string glued(const Pieces& pieces, std::mt19937& random) {
    std::string word;
    for (auto left = 2 + random() % 3; left > 0; --left) word += pieces[random() % pieces.size()];
    return word;
}

template <typename Words, typename Syllables>
std::vector<std::string> grown(const Words& words, const Syllables& syllables,
                               std::mt19937& random) {
    std::vector<std::string> all(words.begin(), words.end());
    while (all.size() < vocabularySize) all.push_back(glued(syllables, random));
    return all;
}

std::string capitalized(std::string word) {
    if (word[0] >= 'a' && word[0] <= 'z') word[0] = static_cast<char>(word[0] - 'a' + 'A');
    return word;
}

}  // namespace

SampleLanguage::SampleLanguage() {
    for (const auto alphabet : {Alphabet::latin, Alphabet::umlauts, Alphabet::cyrillic})
        vocabularies_.push_back(vocabulary(alphabet));
    std::uniform_real_distribution<double> exponent(0, 1);
    for (std::size_t i = 0; i < drawCount; ++i) {
        const auto rank = std::pow(double(vocabularySize), exponent(random_)) - 1;
        draws_.push_back(static_cast<std::uint32_t>(rank));
    }
}

std::vector<std::string> SampleLanguage::vocabulary(Alphabet alphabet) {
    switch (alphabet) {
        case Alphabet::umlauts:
            return grown(umlautWords, umlautSyllables, random_);
        case Alphabet::cyrillic:
            return grown(cyrillicWords, cyrillicSyllables, random_);
        default:
            return grown(functionWords, latinSyllables, random_);
    }
}

const std::string& SampleLanguage::word(Alphabet alphabet) {
    return vocabularies_[static_cast<std::size_t>(alphabet)][draws_[random_() % drawCount]];
}

std::string SampleLanguage::text() {
    const auto kind = random_() % 10;
    const auto length = kind == 0 ? 0U : kind == 1 ? random_() % 10'400 : random_() % 1'500;
    const auto share = random_() % 100;
    const auto alphabet = share < 82   ? Alphabet::latin
                          : share < 92 ? Alphabet::umlauts
                                       : Alphabet::cyrillic;
    std::string text;
    while (text.size() < length) {
        const auto roll = random_() % 40;
        if (roll == 0)
            text += std::to_string(random_() % 10'000);
        else
            text += roll < 6 ? capitalized(word(alphabet)) : word(alphabet);
        text += roll == 7 ? ", " : roll == 8 ? ".\n" : " ";
    }
    return text;
}

std::string SampleLanguage::fileName(std::size_t number) {
    constexpr std::array extensions{"pdf", "png", "JPG", "docx", "zip", "txt", "mov", "xlsx"};
    const auto kind = random_() % 4;
    if (kind == 0) return "Screenshot 2026-03-11 at 10.22." + std::to_string(number) + ".png";
    if (kind == 1) return "IMG_" + std::to_string(number) + ".jpg";
    return capitalized(word(Alphabet::latin)) + " " + word(Alphabet::latin) + " " +
           word(Alphabet::latin) + " " + std::to_string(number) + "." +
           extensions[random_() % extensions.size()];
}

std::string SampleLanguage::rareWord() {
    const auto& words = vocabularies_[0];
    return words[words.size() / 2 + random_() % (words.size() / 2)];
}

std::string SampleLanguage::frequentWord() {
    return functionWords[random_() % functionWords.size()];
}

SampleHome::SampleHome(SampleLanguage& language, std::size_t count, const FileUrl& home) {
    constexpr std::array roots{"Desktop", "Documents", "Downloads"};
    auto& random = language.random();
    files.reserve(count);
    for (auto* map : {&texts, &lowerTexts, &sources}) map->reserve(count + count / 8);
    for (std::size_t i = 0; i < count; ++i) {
        auto folder = home.append(roots[random() % roots.size()]);
        if (random() % 2 == 0) folder = folder.append("Folder " + std::to_string(random() % 3'000));
        const auto age = [&] { return sampleNow - Seconds{3 * year * double(random()) / 4.3e9}; };
        const FileUrl url = folder.append(language.fileName(i));
        const auto size = static_cast<std::int64_t>(random() % 300'000'000);
        files.push_back({.url = url, .size = size, .modified = age(), .added = age()});
        const auto entry = indexEntry(0, language.text(), std::nullopt);
        textBytes += double(entry.text.view().size());
        texts.emplace(url, entry.text);
        lowerTexts.emplace(url, entry.lowerText);
        if (random() % 6 == 0)
            sources.emplace(url, SharedBytes(random() % 2 == 0 ? "Gmail" : "Slack"));
    }
}

std::vector<std::string> sampleQuestions(SampleLanguage& language) {
    constexpr std::array filters{"pdfs from gmail last month",
                                 "big videos",
                                 "screenshots",
                                 "images this week",
                                 "pdf",
                                 "from slack",
                                 "over 100 mb",
                                 "today",
                                 "documents in march"};
    std::vector<std::string> questions{"of",  "in",   "zx",        "qj",     "wifi password",
                                       "für", "счёт", "xylqztwfk", "etaoin", "straße"};
    for (std::size_t i = 0; questions.size() < 200; ++i) {
        const std::string filter = filters[i % filters.size()];
        switch (i % 5) {
            case 0:
                questions.push_back(language.rareWord());
                break;
            case 1:
                questions.push_back(language.frequentWord());
                break;
            case 2:
                questions.push_back(language.frequentWord() + " " + language.rareWord());
                break;
            case 3:
                questions.push_back(filter + " " + language.frequentWord());
                break;
            default:
                questions.push_back(language.rareWord() + " " + filter);
        }
    }
    return questions;
}

}  // namespace nookwise::bench
