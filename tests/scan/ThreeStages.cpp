#include "tests/scan/ThreeStages.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <functional>
#include <limits>
#include <optional>
#include <set>

#include <openssl/sha.h>

namespace nookwise {
namespace {

const std::set<std::string> extensions{
    "png", "jpg",  "jpeg", "heic",  "gif", "webp", "tiff", "psd", "ai",   "fig",     "sketch",
    "mov", "mp4",  "m4v",  "avi",   "mkv", "mp3",  "wav",  "m4a", "aif",  "aiff",    "flac",
    "pdf", "doc",  "docx", "pages", "key", "ppt",  "pptx", "xls", "xlsx", "numbers", "csv",
    "rtf", "epub", "zip",  "rar",   "7z",  "dmg",  "pkg",  "iso"};

std::string lower(std::string_view text) {
    std::string result;
    for (const char c : text)
        result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

/// A number in parentheses, told from its closing one backwards.
bool holdsANumberInParentheses(std::string_view name) {
    for (std::size_t close = 0; close < name.size(); ++close) {
        if (name[close] != ')') continue;
        auto start = close;
        while (start > 0 && std::isdigit(static_cast<unsigned char>(name[start - 1])) != 0) --start;
        if (start < close && start > 0 && name[start - 1] == '(') return true;
    }
    return false;
}

int score(const FileItem& file) {
    const std::string path(file.url.path());
    const auto name = lower(file.url.lastPathComponent());
    const bool copy = name.find(" copy") != std::string::npos || holdsANumberInParentheses(name);
    return (path.find("/Downloads/") != std::string::npos ? 4 : 0) +
           (path.find("/Desktop/") != std::string::npos ? 2 : 0) + (copy ? 3 : 0);
}

double date(const FileItem& file) {
    const auto known = file.added ? file.added : file.modified;
    return known ? known->time_since_epoch().count() : std::numeric_limits<double>::infinity();
}

using Files = std::vector<FileItem>;

/// Parts each list by a key, in the order of first members, leaving out files without a key and
/// lists of one.
template <typename Key>
std::vector<Files> parted(const std::vector<Files>& lists,
                          const std::function<std::optional<Key>(const FileItem&)>& key) {
    std::vector<Files> result;
    for (const auto& list : lists) {
        std::vector<std::pair<Key, Files>> parts;
        for (const auto& file : list) {
            const auto own = key(file);
            if (!own) continue;
            const auto part = std::find_if(parts.begin(), parts.end(),
                                           [&](const auto& known) { return known.first == *own; });
            if (part == parts.end()) {
                parts.push_back({*own, {file}});
            } else {
                part->second.push_back(file);
            }
        }
        for (auto& [partKey, files] : parts) {
            if (files.size() >= 2) result.push_back(files);
        }
    }
    return result;
}

std::int64_t waste(const DuplicateGroup& group) {
    return group.files.front().size * static_cast<std::int64_t>(group.files.size() - 1);
}

}  // namespace

std::string referenceSha256(std::string_view bytes) {
    unsigned char digest[SHA256_DIGEST_LENGTH];
    SHA256(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), digest);
    std::string text;
    for (const unsigned char byte : digest) {
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", byte);
        text += pair;
    }
    return text;
}

std::vector<DuplicateGroup> threeStages(const std::vector<FileItem>& files,
                                        const std::map<FileUrl, std::string>& contents) {
    Files kept;
    for (const auto& file : files) {
        if (file.size >= 65'536 && file.size <= 4'000'065'536 &&
            extensions.contains(lower(file.url.pathExtension()))) {
            kept.push_back(file);
        }
    }
    const auto digest = [&](const FileItem& file, std::size_t limit) -> std::optional<std::string> {
        const auto found = contents.find(file.url);
        if (found == contents.end()) return std::nullopt;
        return referenceSha256(std::string_view(found->second).substr(0, limit));
    };
    const auto wholeDigest = [&](const FileItem& file) { return digest(file, std::string::npos); };
    auto lists =
        parted<std::int64_t>({kept}, [](const FileItem& file) { return std::optional(file.size); });
    lists = parted<std::string>(lists, [&](const FileItem& file) { return digest(file, 65'536); });
    lists = parted<std::string>(lists, wholeDigest);
    // Lists of equal waste stand in the order of their first files.
    std::sort(lists.begin(), lists.end(), [&](const Files& a, const Files& b) {
        return std::find(files.begin(), files.end(), a.front()) <
               std::find(files.begin(), files.end(), b.front());
    });
    std::vector<DuplicateGroup> groups;
    for (auto& list : lists) {
        std::stable_sort(list.begin(), list.end(), [](const FileItem& a, const FileItem& b) {
            return score(a) != score(b) ? score(a) < score(b) : date(a) < date(b);
        });
        groups.push_back({*wholeDigest(list.front()), list, list.front().url});
    }
    std::stable_sort(
        groups.begin(), groups.end(),
        [](const DuplicateGroup& a, const DuplicateGroup& b) { return waste(a) > waste(b); });
    return groups;
}

}  // namespace nookwise
