// An indexer over a home in memory.
#pragma once

#include "search/TextIndexer.h"
#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeMetadata.h"
#include "tests/support/FakeTextReader.h"
#include "tests/support/FakeUserFolders.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

class TextIndexerTest : public testing::Test {
  protected:
    /// What one call of the progress function told.
    struct Step {
        std::size_t fresh;
        std::size_t done;
        std::size_t total;

        friend bool operator==(const Step&, const Step&) = default;
    };

    static constexpr std::string_view indexPath =
        "/home/user/.local/share/Nookwise/text-index.json";

    static FileItem fileAt(std::string_view path, std::int64_t size = 100'000, double mtime = 1) {
        return {.url = FileUrl(path), .size = size, .modified = Date{Seconds{mtime}}};
    }
    static std::vector<FileItem> documents(int count) {
        std::vector<FileItem> items;
        for (int i = 0; i < count; ++i)
            items.push_back(fileAt("/home/user/Documents/" + std::to_string(i) + ".png"));
        return items;
    }
    static std::vector<FileItem> downloads(int count) {
        std::vector<FileItem> items;
        for (int i = 0; i < count; ++i)
            items.push_back(fileAt("/home/user/Downloads/" + std::to_string(i) + ".zip"));
        return items;
    }

    /// As after a new start of the application.
    void restart() { indexer = std::make_unique<TextIndexer>(files, metadata, folders, reader); }

    void run(const std::vector<FileItem>& items, TextIndexer::Stop stop = {}) {
        indexer->run(
            items,
            [&](IndexEntries&& fresh, std::size_t done, std::size_t total) {
                steps.push_back({fresh.size(), done, total});
                if (onProgress) onProgress();
                for (auto& [url, entry] : fresh) told.insert_or_assign(url, std::move(entry));
            },
            stop);
    }

    std::string textOf(std::string_view path) const {
        const auto entry = told.find(FileUrl(path));
        return entry == told.end() ? "(none)" : std::string(entry->second.text.view());
    }
    std::string sourceOf(std::string_view path) const {
        const auto entry = told.find(FileUrl(path));
        if (entry == told.end()) return "(no entry)";
        return entry->second.source ? std::string(entry->second.source->view()) : "(none)";
    }
    int savesOf(const std::vector<FileItem>& items, TextIndexer::Stop stop = {}) {
        int saves = 0;
        files.onOperation([&](const FakeOperation& operation) {
            if (operation.kind == FakeOperation::Kind::replaceContents) ++saves;
        });
        run(items, std::move(stop));
        files.onOperation(nullptr);
        return saves;
    }
    /// In no order.
    std::vector<std::string> readPaths() const {
        std::vector<std::string> paths;
        for (const auto& call : reader.calls()) paths.emplace_back(call.url.path());
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    FakeFileManager files;
    FakeMetadata metadata;
    FakeUserFolders folders;
    FakeTextReader reader;
    std::unique_ptr<TextIndexer> indexer =
        std::make_unique<TextIndexer>(files, metadata, folders, reader);
    std::vector<Step> steps;
    IndexEntries told;
    std::function<void()> onProgress;
};

}  // namespace nookwise
