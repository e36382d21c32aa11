// A store over a platform in memory.
#pragma once

#include "app/AppStore.h"
#include "tests/support/FakePlatform.h"

#include <atomic>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

constexpr Seconds day{86'400};
constexpr std::int64_t megabyte = 1'000'000;

class StoreFixture : public testing::Test {
  protected:
    using Phase = AppStore::Phase;
    using ScanKind = AppStore::ScanKind;

    StoreFixture() {
        world.files.setVolumeFigures(VolumeFigures{.availableBytes = 100, .totalBytes = 1'000});
    }

    /// A store that has done its launch steps.
    std::shared_ptr<AppStore> launch() {
        auto store = AppStore::create(world.platform());
        world.tasks.runEverything();
        return store;
    }

    /// One whole scan, taken in.
    void scan(AppStore& store, ScanKind kind = ScanKind::visible) {
        store.scan(kind);
        world.tasks.runEverything();
    }

    Date ago(Seconds age) const { return now - age; }

    // One file for each pile.
    void addForgotten(std::int64_t size = 10) {
        world.files.addFile("/home/user/Downloads/forgotten",
                            {.allocated = size, .added = ago(100 * day)});
    }
    void addInstaller(std::int64_t size = 20) {
        world.files.addPackage("/Applications/Blue Kite.app");
        world.files.addFile("/home/user/Desktop/Blue Kite.dmg",
                            {.allocated = size, .added = ago(20 * day)});
    }
    void addScreenshot(std::int64_t size = 30) {
        world.files.addFile("/home/user/Desktop/Screenshot.png",
                            {.allocated = size, .added = ago(40 * day)});
    }
    void addLarge(std::int64_t size = 500 * megabyte) {
        world.files.addFile("/home/user/Documents/large", {.allocated = size});
    }
    void addDuplicates() {
        for (const auto* path : {"/home/user/Documents/a.pdf", "/home/user/Documents/b.pdf"}) {
            world.files.addFile(path, {.contents = std::string(70'000, 'x')});
        }
    }

    FakePlatform world;
    const Date now = world.clock.now();
};

inline FileItem sized(std::string_view path, std::int64_t size) {
    return {.url = FileUrl(path), .size = size};
}

inline std::vector<std::string> paths(const std::vector<SweepItem>& items) {
    std::vector<std::string> result;
    for (const auto& item : items) result.emplace_back(item.file.url.path());
    return result;
}

using Paths = std::vector<std::string>;
using Ticks = std::unordered_set<FileUrl>;

}  // namespace nookwise
