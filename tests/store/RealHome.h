// A store over real folders, on a desktop that stands still.
#pragma once

#include "app/AppStore.h"
#include "platform/WholeFile.h"
#include "platform/linux/LinuxFileManager.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {

class RealHome : public testing::Test {
  protected:
    RealHome() {
        world.folders.homeFolder = home.url();
        world.folders.desktopFolder = home.makeFolder("Desktop");
        world.folders.documentsFolder = home.makeFolder("Documents");
        world.folders.downloadsFolder = home.makeFolder("Downloads");
        world.folders.applicationFolders = {home.url("Applications")};
        world.folders.applicationSupportFolder = home.url("data/Nookwise");
        // Files made from now on are old by then.
        world.clock.set(std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now()) +
                        Seconds{200 * 86'400});
    }

    /// As at a start of the application.
    std::shared_ptr<AppStore> start() {
        auto store = AppStore::create({files, world.metadata, world.folders, world.workspace,
                                       world.defaults, world.clock, world.tasks, world.reader});
        store->scan(AppStore::ScanKind::visible);
        world.tasks.runEverything();
        return store;
    }

    std::vector<FileItem> pile(const AppStore& store, PileKind kind) {
        std::vector<FileItem> items;
        for (const auto& item : store.piles.get().at(kind)) items.push_back(item.file);
        return items;
    }

    /// Reviews a pile and sends all of it to the Trash.
    void sweep(AppStore& store, PileKind kind) {
        store.requestTrash(pile(store, kind), kind, title(kind));
        ASSERT_TRUE(store.pendingTrash.get());
        store.confirm(*store.pendingTrash.get(), AppStore::NextTime::ask);
    }

    /// Empty when it cannot be read.
    std::string contents(std::string_view relative) const {
        const auto read = wholeFile(files, home.url(relative), 1'000'000);
        return read ? read.value() : std::string();
    }
    bool exists(std::string_view relative) const {
        return std::filesystem::exists(std::filesystem::symlink_status(home.path(relative)));
    }

    TemporaryFolder home;
    LinuxFileManager files{home.url("data")};
    FakePlatform world;
    const std::string log = "data/Nookwise/activity.json";
};

}  // namespace nookwise
