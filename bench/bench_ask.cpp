// What a question costs while it is being typed: 100,000 files with 112 MB of text, and up to ten
// times as many. Fails when an answer is not the plain one.
#include "bench/Measure.h"
#include "bench/SampleQuestions.h"
#include "platform/Text.h"
#include "search/Ask.h"
#include "search/MatchingRows.h"
#include "search/QueryParser.h"
#include "tests/search/PlainAnswers.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>

#include <malloc.h>
#include <unistd.h>

using namespace nookwise;
using bench::sampleNow;

namespace {

constexpr std::size_t fileCount = 100'000;
/// As many as the screen shows, and one to tell whether there are more.
constexpr std::size_t limit = 501;
constexpr auto everything = std::numeric_limits<std::size_t>::max();
constexpr double megabyte = 1e6;

template <typename Work>
double millisecondsFor(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

[[noreturn]] void fail(const std::string& question) {
    std::fprintf(stderr, "not the plain answer to \"%s\"\n", question.c_str());
    std::exit(1);
}

SearchCorpus::Values valuesOf(const bench::SampleHome& home) {
    return {home.files, home.texts, home.lowerTexts, home.sources};
}

// The plain answers.

/// So many files that most are read in the order of memory, by two threads.
constexpr std::size_t comparedCount = 12'000;
/// Plain answers take half a second each.
constexpr std::size_t comparedEvery = 20;

void compareAll(const std::vector<std::string>& questions) {
    bench::SampleLanguage language;
    const bench::SampleHome home(language, comparedCount, FileUrl("/home/user"));
    Corpus plain;
    plain.files = home.files;
    plain.texts = home.texts;
    plain.lowerTexts = home.lowerTexts;
    plain.sources = home.sources;
    const SearchCorpus corpus(valuesOf(home));
    for (std::size_t i = 0; i < questions.size(); i += comparedEvery) {
        const auto query = QueryParser::parse(questions[i], sampleNow);
        if (ask(query, corpus, limit) != plainAsk(query, plain, limit)) fail(questions[i]);
    }
}

bool holdsPlainly(const bench::SampleHome& home, const FileItem& file, const std::string& word) {
    return lowercased(file.url.lastPathComponent()).find(word) != std::string::npos ||
           home.lowerTexts.at(file.url).view().find(word) != std::string_view::npos;
}

void compareWords(const bench::SampleHome& home, const SearchCorpus& corpus,
                  const std::string& question) {
    const auto query = QueryParser::parse(question, sampleNow);
    if (!query.filters.empty() || query.words.empty()) return;
    std::vector<const FileItem*> plain;
    for (const auto& file : home.files) {
        const auto holds = [&](const std::string& word) { return holdsPlainly(home, file, word); };
        if (std::ranges::all_of(query.words, holds)) plain.push_back(&file);
    }
    std::ranges::stable_sort(plain,
                             [](const auto* a, const auto* b) { return *a->added > *b->added; });
    const auto rows = MatchingRows(query, corpus).first(everything);
    const auto isSame = [&](std::size_t row, const FileItem* file) {
        return corpus.file(corpus.rows()[row]).url == file->url;
    };
    if (!std::ranges::equal(rows, plain, isSame)) fail(question);
}

// Figures.

struct Class {
    const char* name;
    double goal;
    std::vector<std::pair<double, std::string>> times{};
};

void print(Class& one) {
    if (one.times.empty()) return;
    std::ranges::sort(one.times);
    const auto at = [&](double share) {
        return one.times[static_cast<std::size_t>(share * double(one.times.size() - 1))].first;
    };
    std::printf("  %-34s %5zu   median %6.2f   95th %6.2f   slowest %6.2f (%s)", one.name,
                one.times.size(), at(0.5), at(0.95), one.times.back().first,
                one.times.back().second.c_str());
    if (one.goal > 0) std::printf("   goal %.0f, ratio %.2f", one.goal, at(0.95) / one.goal);
    std::printf("\n");
}

double keystroke(const SearchCorpus& corpus, const std::string& question) {
    return millisecondsFor([&] { ask(QueryParser::parse(question, sampleNow), corpus, limit); });
}

/// The beginnings of the question that end between letters.
std::vector<std::string> typed(const std::string& question) {
    std::vector<std::string> all;
    for (std::size_t size = 1; size <= question.size(); ++size) {
        const bool isInside =
            size < question.size() && (static_cast<unsigned char>(question[size]) & 0xC0U) == 0x80U;
        if (!isInside) all.push_back(question.substr(0, size));
    }
    return all;
}

void printKeystrokes(const SearchCorpus& corpus, const std::vector<std::string>& questions) {
    Class shortWords{"one word of one or two letters", 16};
    Class rare{"one word that under 100 files hold", 8};
    Class frequent{"one other word", 16};
    Class several{"several words", 16};
    Class filtered{"with filters", 16};
    Class all{"every keystroke", 16};
    for (const auto& question : questions) {
        for (const auto& piece : typed(question)) {
            const auto query = QueryParser::parse(piece, sampleNow);
            const auto time = keystroke(corpus, piece);
            all.times.emplace_back(time, piece);
            auto* which = &filtered;
            if (query.filters.empty() && query.words.size() > 1) which = &several;
            if (query.filters.empty() && query.words.size() == 1) {
                const auto found = MatchingRows(query, corpus).first(limit).size();
                which = characterCount(query.words[0]) <= 2 ? &shortWords
                        : found < 100                       ? &rare
                                                            : &frequent;
            }
            which->times.emplace_back(time, piece);
        }
    }
    std::printf("\nA keystroke's answer, %zu questions, milliseconds\n", questions.size());
    for (auto* one : {&shortWords, &rare, &frequent, &several, &filtered, &all}) print(*one);
}

/// The same bytes in one file, a text a line.
void write(const bench::SampleHome& home, const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    for (const auto& file : home.files) {
        std::string text(home.lowerTexts.at(file.url).view());
        std::ranges::replace(text, '\n', ' ');
        out << text << '\n';
    }
}

void printBesideRipgrep(const bench::SampleHome& home, const SearchCorpus& corpus) {
    if (!bench::isInstalled("rg")) return;
    const auto path =
        (std::filesystem::temp_directory_path() / ("nookwise-ask." + std::to_string(::getpid())))
            .native();
    // What it takes to start is no part of the search.
    const auto wordsAlone = path + ".words";
    bench::SampleLanguage language;
    const std::vector<std::string> words{
        "xylqztwfk", language.rareWord(), "zx", "password", "invoice", "the", "of", "e"};
    write(home, path);
    for (const auto& each : {path, wordsAlone}) {
        // Without a match it would end as if it had failed.
        std::ofstream out(each, std::ios::binary | std::ios::app);
        for (const auto& word : words) out << word << ' ';
        out << '\n';
    }
    std::printf("\nBeside ripgrep over the same bytes (medians, milliseconds)\n");
    for (const auto& word : words) {
        const auto query = ParsedQuery{{}, {word}};
        std::size_t count = 0;
        const auto ripgrep = [&word](const std::string& where) {
            return [&word, where] { bench::runQuietly({"rg", "-F", "-c", "--", word, where}); };
        };
        const auto seconds = bench::medians(
            {{"", [&] { ask(query, corpus, limit); }},
             {"", [&] { count = MatchingRows(query, corpus).first(everything).size(); }},
             {"", ripgrep(path)},
             {"", ripgrep(wordsAlone)}},
            7);
        const auto search = seconds[2] - seconds[3];
        std::printf(
            "  %-12s %6zu files   answer %6.2f   all files %6.2f   rg -F -c %6.2f, its start "
            "%5.2f   ratios %.1f, %.1f; without its start %.1f, %.1f\n",
            word.c_str(), count, seconds[0] * 1e3, seconds[1] * 1e3, seconds[2] * 1e3,
            seconds[3] * 1e3, seconds[2] / seconds[0], seconds[2] / seconds[1], search / seconds[0],
            search / seconds[1]);
    }
    std::filesystem::remove(path);
    std::filesystem::remove(wordsAlone);
}

// Keeping in step.

template <typename Prepare, typename Work>
void printTimes(const char* what, int rounds, Prepare prepare, Work work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        prepare();
        times.push_back(millisecondsFor(work));
    }
    std::ranges::sort(times);
    std::printf("  %-58s %6.2f   slowest %6.2f\n", what, times[times.size() / 2], times.back());
}

/// Texts that come in as they are read: from none to one for each file.
void printIncoming(bench::SampleHome& home) {
    constexpr std::size_t batchSize = 24;
    const auto lowerTexts = std::exchange(home.lowerTexts, {});
    const auto sources = std::exchange(home.sources, {});
    home.lowerTexts.reserve(home.files.size());
    home.sources.reserve(home.files.size());
    SearchCorpus corpus(valuesOf(home));
    std::size_t next = 0;
    std::vector<FileUrl> batch;
    const auto take = [](TextsByUrl& known, const TextsByUrl& all, const FileUrl& url) {
        if (const auto found = all.find(url); found != all.end()) known.insert(*found);
    };
    printTimes(
        "24 texts and sources come in", static_cast<int>(home.files.size() / batchSize),
        [&] {
            batch.clear();
            for (std::size_t i = 0; i < batchSize; ++i) {
                batch.push_back(home.files[next++].url);
                take(home.lowerTexts, lowerTexts, batch.back());
                take(home.sources, sources, batch.back());
            }
        },
        [&] {
            corpus.lowerTextsChanged(batch);
            corpus.sourcesChanged(batch);
        });
    printTimes(
        "all in order after it", 1, [] {}, [&] { corpus.sortInMemory(); });
    printTimes(
        "the same once more", 9, [] {}, [&] { corpus.sortInMemory(); });
    home.lowerTexts = lowerTexts;
    home.sources = sources;
}

void printFollowing(bench::SampleHome& home, SearchCorpus& corpus) {
    std::printf("\nThe corpus follows (medians and slowest, milliseconds)\n");
    const auto files = home.files;
    const auto changed = [&] { corpus.filesChanged(); };
    const auto restore = [&] {
        home.files = files;
        corpus.filesChanged();
    };
    const auto printOne = [&](const char* what, auto prepare, auto work) {
        printTimes(what, 9, prepare, work);
    };
    printOne(
        "the first list of files", [] {}, [&] { SearchCorpus first(valuesOf(home)); });
    {
        const TextsByUrl none;
        printOne(
            "the same, before any text is known", [] {},
            [&] {
                SearchCorpus first({home.files, none, none, none});
            });
    }
    printOne("a list that is the same", restore, changed);
    printOne(
        "1,000 files removed",
        [&] {
            restore();
            for (std::size_t i = 99; i < home.files.size(); i += 99)
                home.files.erase(home.files.begin() + static_cast<std::ptrdiff_t>(i));
        },
        changed);
    printOne(
        "1,000 files elsewhere",
        [&] {
            restore();
            for (std::size_t i = 0; i < home.files.size(); i += 100)
                home.files[i].url = FileUrl("/home/user/Desktop/" + std::to_string(i));
        },
        changed);
    printOne(
        "1,000 files with another date",
        [&] {
            restore();
            for (std::size_t i = 0; i < home.files.size(); i += 100)
                home.files[i].lastUsed = sampleNow;
        },
        changed);
    printOne(
        "all files with another date",
        [&] {
            restore();
            for (auto& file : home.files) *file.added += Seconds{86'400};
        },
        changed);
    restore();
    int round = 0;
    std::vector<FileUrl> batch;
    for (std::size_t i = 0; i < 24; ++i) batch.push_back(files[i * 4'001].url);
    printOne(
        "24 other texts and sources",
        [&] {
            ++round;
            for (const auto& url : batch) {
                std::string text(home.lowerTexts.at(url).view());
                home.lowerTexts[url] = SharedBytes::inSequence(text += std::to_string(round));
                home.sources[url] = SharedBytes(round % 2 == 0 ? "Gmail" : "Slack");
            }
        },
        [&] {
            corpus.lowerTextsChanged(batch);
            corpus.sourcesChanged(batch);
        });
    printIncoming(home);
}

double megabytesInUse() {
    const auto use = ::mallinfo2();
    return double(use.uordblks + use.hblkhd) / megabyte;
}

void printCurve() {
    std::printf(
        "\nFiles, MB of text; milliseconds for a word that no file holds, for one of two "
        "letters, and for all files that hold that\n");
    for (const std::size_t count : {10'000U, 100'000U, 300'000U, 1'000'000U}) {
        bench::SampleLanguage language;
        const bench::SampleHome home(language, count, FileUrl("/home/user"));
        const SearchCorpus corpus(valuesOf(home));
        // It must outlive what is asked with it.
        const ParsedQuery twoLetters{{}, {"er"}};
        const auto seconds =
            bench::medians({{"", [&] { keystroke(corpus, "xylqztwfk"); }},
                            {"", [&] { keystroke(corpus, "er"); }},
                            {"", [&] { MatchingRows(twoLetters, corpus).first(everything); }}},
                           9);
        std::printf("  %8zu  %7.1f   %7.2f  %7.2f  %7.2f   (%.3f ms a MB)\n", count,
                    home.textBytes / megabyte, seconds[0] * 1e3, seconds[1] * 1e3, seconds[2] * 1e3,
                    seconds[0] * 1e3 / (home.textBytes / megabyte));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool isShort = argc > 1 && std::string_view(argv[1]) == "--no-curve";
    bench::SampleLanguage language;
    const auto questions = sampleQuestions(language);
    compareAll(questions);
    const auto before = megabytesInUse();
    bench::SampleHome home(language, fileCount, FileUrl("/home/user"));
    const auto withHome = megabytesInUse();
    SearchCorpus corpus(valuesOf(home));
    const auto withCorpus = megabytesInUse();
    const auto text = home.textBytes / megabyte;
    std::printf("%zu files, %.1f MB of text\n", fileCount, text);
    const auto files = double(home.files.capacity() * sizeof(FileItem)) / megabyte;
    std::printf(
        "Memory: texts, lower case and three maps %.1f MB, with the places of the files; "
        "list of files %.1f MB; corpus %.1f MB (%.1f counted)\n"
        "  together without the list of files %.3f times the text, goal 2.2; with it %.3f\n",
        withHome - before - files, files, withCorpus - withHome, double(corpus.memory()) / megabyte,
        (withCorpus - before - files) / text, (withCorpus - before) / text);
    for (std::size_t i = 0; i < questions.size(); i += comparedEvery)
        compareWords(home, corpus, questions[i]);
    printKeystrokes(corpus, questions);
    printBesideRipgrep(home, corpus);
    printFollowing(home, corpus);
    if (!isShort) printCurve();
    return 0;
}
