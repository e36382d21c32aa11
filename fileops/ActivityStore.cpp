#include "fileops/ActivityStore.h"

#include "fileops/ActivityJson.h"
#include "platform/WholeFile.h"

#include <algorithm>
#include <span>
#include <utility>

namespace nookwise {
namespace {

constexpr std::size_t mostEntries = 500;
/// 500 sweeps of 10,000 files take some 1.5 GB. Beyond this it is no log of ours, and not worth the
/// memory.
constexpr std::size_t longestFile = std::size_t{1} << 31;

}  // namespace

ActivityStore::ActivityStore(FileManager& files, const FileUrl& folder)
    : files_(files), file_(folder.append("activity.json")) {
    // Where it fails, saving fails too.
    (void)files_.createFolder(folder, FolderAccess::ownerOnly);
}

std::vector<ActivityEntry> ActivityStore::load() const {
    const auto text = wholeFile(files_, file_, longestFile);
    if (!text) return {};
    return activityFromJson(text.value()).value_or(std::vector<ActivityEntry>{});
}

void ActivityStore::save(const std::vector<ActivityEntry>& entries) {
    const auto newest = std::span(entries).first(std::min(entries.size(), mostEntries));
    (void)files_.replaceContents(file_, activityJson(newest));
}

}  // namespace nookwise
