// Plans for files with texts.
#pragma once

#include "fileops/RenamePlan.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

class PlanFixture : public testing::Test {
  protected:
    /// 14 October 2026, 09:30 in UTC.
    static constexpr Date october{Seconds{1'791'970'200}};
    static constexpr Seconds hour{3'600};

    void add(std::string_view path, std::optional<std::string_view> text = std::nullopt,
             std::optional<Date> added = std::nullopt,
             std::optional<Date> modified = std::nullopt) {
        const FileUrl url(path);
        files.push_back({.url = url, .size = 1, .modified = modified, .added = added});
        if (text) texts.insert_or_assign(url, SharedBytes(*text));
    }

    std::vector<RenameRow> plan() const { return makePlan(files, texts, options); }

    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& row : plan()) names.push_back(row.newName);
        return names;
    }
    std::string name() const { return names().front(); }
    std::optional<std::string> note() const { return plan().front().note; }

    std::vector<FileItem> files;
    TextsByUrl texts;
    RenameOptions options;
};

using Names = std::vector<std::string>;

}  // namespace nookwise
