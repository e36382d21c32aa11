#include "app/AppStore.h"

#include "platform/FileManager.h"
#include "platform/Metadata.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"
#include "scan/InstalledApps.h"

#include <chrono>
#include <utility>

namespace nookwise {
namespace {

constexpr std::chrono::seconds diskRefreshInterval{120};

std::vector<AppInfo> installedApps(const Platform& platform, const std::stop_token& stop) {
    std::vector<AppInfo> apps;
    for (const auto& application :
         installedApplications(platform.files, platform.folders, platform.workspace, stop)) {
        // A desktop entry is read with every menu: that says nothing of its application.
        const bool isBundle = application.url.pathExtension() == "app";
        apps.push_back({application.url,
                        isBundle ? platform.metadata.lastUsed(application.url) : std::nullopt});
    }
    return apps;
}

}  // namespace

std::shared_ptr<AppStore> AppStore::create(const Platform& platform) {
    std::shared_ptr<AppStore> store(new AppStore(platform));
    store->activity.set(store->activityStore_.load());
    store->refreshDisk();
    store->loadApps();
    store->removeLeftovers();
    store->scheduleDiskRefresh();
    return store;
}

AppStore::AppStore(const Platform& platform)
    : platform_(platform),
      activityStore_(platform.files, platform.folders.applicationSupport()),
      indexer_(std::make_shared<TextIndexer>(platform.files, platform.metadata, platform.folders,
                                             platform.reader)) {}

AppStore::~AppStore() {
    scanStop_.request_stop();
    appsStop_.request_stop();
    transferStop_.request_stop();
    leftoversStop_.request_stop();
    indexStop_.request_stop();
    quitStop_.request_stop();
}

void AppStore::removeLeftovers() {
    platform_.tasks.detach(TaskPriority::utility,
                           [&files = platform_.files, stop = leftoversStop_.get_token()] {
                               files.removeLeftovers(stop);
                           });
}

void AppStore::loadApps() {
    appsStop_.request_stop();
    appsStop_ = std::stop_source();
    platform_.tasks.detach(TaskPriority::utility, [weak = weak_from_this(), platform = platform_,
                                                   stop = appsStop_.get_token()] {
        platform.tasks.post([weak, stop, found = installedApps(platform, stop)]() mutable {
            const auto store = weak.lock();
            // Only the newest list lands: an older one may be done later.
            if (store && !stop.stop_requested()) store->apps.set(std::move(found));
        });
    });
}

void AppStore::scheduleDiskRefresh() {
    nextDiskRefresh_ = platform_.tasks.after(diskRefreshInterval, [weak = weak_from_this()] {
        if (const auto store = weak.lock()) {
            store->refreshDisk();
            store->scheduleDiskRefresh();
        }
    });
}

void AppStore::refreshDisk() {
    const auto figures = platform_.files.volumeFigures(FileUrl("/"));
    if (!figures) return;
    freeBytes.set(figures.value().availableBytes.value_or(0));
    totalBytes.set(figures.value().totalBytes.value_or(0));
}

}  // namespace nookwise
