#include "search/QueryWords.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace nookwise::QueryParser {
namespace {

using Word = std::string_view;

constexpr std::array<Word, 2> pdfs{"pdf", "pdfs"};
constexpr std::array<Word, 3> screenshots{"screenshot", "screenshots", "screen"};
constexpr std::array<Word, 12> images{"image", "images", "photo", "photos", "picture", "pictures",
                                      "pic",   "pics",   "png",   "jpg",    "jpeg",    "heic"};
constexpr std::array<Word, 10> videos{"video",  "videos", "clip", "clips",     "movie",
                                      "movies", "mov",    "mp4",  "recording", "recordings"};
constexpr std::array<Word, 7> audio{"audio", "music", "song", "songs", "mp3", "voice", "podcast"};
constexpr std::array<Word, 5> docs{"doc", "docs", "document", "documents", "word"};
constexpr std::array<Word, 9> sheets{"spreadsheet", "spreadsheets", "sheet", "sheets", "excel",
                                     "xls",         "xlsx",         "csv",   "numbers"};
constexpr std::array<Word, 7> slides{"slides",        "deck",    "decks", "presentation",
                                     "presentations", "keynote", "ppt"};
constexpr std::array<Word, 5> archives{"zip", "zips", "archive", "archives", "rar"};
constexpr std::array<Word, 4> installers{"installer", "installers", "dmg", "pkg"};

constexpr std::array<Source, 17> allSources{{
    {"gmail", "Gmail"},
    {"mail", "Gmail"},
    {"slack", "Slack"},
    {"drive", "Google Drive"},
    {"google", "Google Drive"},
    {"chatgpt", "ChatGPT"},
    {"openai", "ChatGPT"},
    {"figma", "Figma"},
    {"whatsapp", "WhatsApp"},
    {"telegram", "Telegram"},
    {"github", "GitHub"},
    {"dropbox", "Dropbox"},
    {"notion", "Notion"},
    {"icloud", "iCloud"},
    {"outlook", "Outlook"},
    {"wetransfer", "WeTransfer"},
    {"discord", "Discord"},
}};

constexpr std::array<Word, 39> allStopwords{
    "in",    "from",   "the",   "a",    "an",  "of",       "my",         "with",   "file",  "files",
    "that",  "about",  "for",   "and",  "on",  "at",       "to",         "me",     "show",  "find",
    "where", "is",     "any",   "some", "all", "contains", "containing", "called", "named", "text",
    "says",  "saying", "which", "i",    "got", "sent",     "was",        "were",   "this"};

QueryFilter::Rule exts(std::set<std::string> extensions) {
    return QueryFilter::Exts{std::move(extensions)};
}

std::vector<Kind> allKinds() {
    return {
        {pdfs, "PDF", exts({"pdf"})},
        {screenshots, "Screenshots", QueryFilter::Screenshots{}},
        {images, "Images", exts({"png", "jpg", "jpeg", "heic", "gif", "webp", "tiff"})},
        {videos, "Videos", exts({"mov", "mp4", "m4v", "avi", "mkv", "webm"})},
        {audio, "Audio", exts({"mp3", "wav", "m4a", "aif", "aiff", "flac"})},
        {docs, "Docs", exts({"pdf", "doc", "docx", "pages", "rtf", "txt", "md"})},
        {sheets, "Sheets", exts({"xls", "xlsx", "csv", "numbers"})},
        {slides, "Slides", exts({"key", "ppt", "pptx"})},
        {archives, "Archives", exts({"zip", "rar", "7z", "tar", "gz", "xip"})},
        {installers, "Installers", exts({"dmg", "pkg", "mpkg", "xip"})},
    };
}

std::unordered_map<std::string_view, const Kind*> kindsByWord() {
    std::unordered_map<std::string_view, const Kind*> byWord;
    for (const auto& kind : kinds()) {
        for (const auto word : kind.words) byWord.emplace(word, &kind);
    }
    return byWord;
}

}  // namespace

std::span<const Kind> kinds() {
    static const auto all = allKinds();
    return all;
}

std::span<const Source> sources() {
    return allSources;
}

std::span<const std::string_view> stopwords() {
    return allStopwords;
}

const Kind* kindOf(std::string_view word) {
    static const auto byWord = kindsByWord();
    const auto found = byWord.find(word);
    return found == byWord.end() ? nullptr : found->second;
}

std::optional<std::string_view> sourceNamed(std::string_view word) {
    const auto* const found = std::ranges::find(allSources, word, &Source::word);
    return found == allSources.end() ? std::nullopt : std::optional(found->name);
}

bool isStopword(std::string_view word) {
    static const std::unordered_set<std::string_view> all(allStopwords.begin(), allStopwords.end());
    return all.contains(word);
}

}  // namespace nookwise::QueryParser
