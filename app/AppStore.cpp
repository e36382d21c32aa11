#include "app/AppStore.h"

#include "platform/FileManager.h"
#include "platform/Metadata.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"

#include <chrono>
#include <utility>

namespace nookwise {
namespace {

constexpr std::chrono::seconds diskRefreshInterval{120};

std::vector<AppInfo> installedApps(const Platform& platform) {
    std::vector<AppInfo> apps;
    const auto add = [&](const FileUrl& url) {
        apps.push_back({url, platform.metadata.lastUsed(url)});
    };
    for (const auto& folder : platform.folders.applications()) {
        const auto entries = platform.files.list(folder);
        if (!entries) continue;
        for (const auto& entry : entries.value()) {
            if (entry.url.pathExtension() == "app") add(entry.url);
        }
    }
    for (const auto& application : platform.workspace.applications()) add(application.url);
    return apps;
}

}  // namespace

std::shared_ptr<AppStore> AppStore::create(const Platform& platform) {
    std::shared_ptr<AppStore> store(new AppStore(platform));
    store->refreshDisk();
    store->loadApps();
    store->scheduleDiskRefresh();
    return store;
}

AppStore::AppStore(const Platform& platform) : platform_(platform) {}

AppStore::~AppStore() {
    scanStop_.request_stop();
}

void AppStore::loadApps() {
    platform_.tasks.detach(TaskPriority::utility, [weak = weak_from_this(), platform = platform_] {
        platform.tasks.post([weak, found = installedApps(platform)]() mutable {
            if (const auto store = weak.lock()) store->apps.set(std::move(found));
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
