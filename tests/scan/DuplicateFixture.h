// Files in memory, and the search for copies among them.
#pragma once

#include "scan/DuplicateFinder.h"
#include "scan/Walk.h"
#include "tests/support/FakeFileManager.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

class DuplicateFixture : public testing::Test {
  protected:
    /// Adds a file and lists it as a candidate, as the walk would.
    void add(std::string_view path, FakeFile file) {
        files.addFile(path, std::move(file));
        list(path);
    }

    void addHolding(std::string_view path, std::string contents) {
        add(path, FakeFile{.contents = std::move(contents)});
    }

    void list(std::string_view path) {
        candidates.push_back(fileItem({FileUrl(path), files.attributes(FileUrl(path)).value()}));
    }

    std::vector<DuplicateGroup> find(const std::stop_token& stop = {}) {
        return findDuplicates(files, candidates, stop);
    }

    /// The paths of each group, in order.
    std::vector<std::vector<std::string>> groups() {
        std::vector<std::vector<std::string>> result;
        for (const auto& group : find()) {
            result.emplace_back();
            for (const auto& file : group.files) result.back().emplace_back(file.url.path());
        }
        return result;
    }

    FakeFileManager files;
    std::vector<FileItem> candidates;
};

using Groups = std::vector<std::vector<std::string>>;

/// Long enough to be looked at.
inline std::string contentsOf(char letter, std::size_t size = 70'000) {
    return std::string(size, letter);
}

}  // namespace nookwise
