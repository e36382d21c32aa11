// Index files as texts.
#pragma once

#include "search/IndexJson.h"
#include "tests/search/GivenBytes.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

using IndexedFile = std::pair<FileUrl, IndexEntry>;

inline bool writeTo(const ContentsSink& sink, const std::vector<IndexedFile>& files) {
    IndexJsonWriter writer(sink);
    for (const auto& [url, entry] : files) writer.add(url, entry);
    return writer.finish();
}

inline std::string written(const std::vector<IndexedFile>& files) {
    std::string json;
    EXPECT_TRUE(writeTo([&](std::string_view bytes) { return json += bytes, true; }, files));
    return json;
}

inline std::optional<IndexEntries> readFrom(std::string json) {
    GivenBytes file(std::move(json));
    return indexFromJson(file, file.size());
}

/// What is read of a text that stands in a file as `json`, quotation marks included.
inline std::string textOf(const std::string& json) {
    const auto entries = readFrom(R"({"/a":{"mtime":1,"text":)" + json + "}}");
    if (!entries) return "(bad)";
    return std::string(entries->at(FileUrl("/a")).text.view());
}

inline std::string timeOf(const std::string& json) {
    const auto entries = readFrom(R"({"/a":{"text":"","mtime":)" + json + "}}");
    if (!entries) return "(bad)";
    return std::to_string(entries->at(FileUrl("/a")).mtime);
}

/// Whether the file is read with one entry, in which `members` stand besides what has to.
inline bool takesMembers(const std::string& members) {
    const auto entries = readFrom(R"({"/a":{"mtime":1,)" + members + R"(,"text":"t"}})");
    return entries == IndexEntries{{FileUrl("/a"), indexEntry(1, "t", std::nullopt)}};
}

}  // namespace nookwise
