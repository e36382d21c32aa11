#include "tools/demo/DatedFileManager.h"

namespace nookwise::demo {

Result<std::monostate> DatedFileManager::enumerate(const FileUrl& root,
                                                   const EnumerationRules& rules,
                                                   const std::function<void(FoundFile&&)>& found,
                                                   std::stop_token stop) const {
    const auto foundAgreed = [&](FoundFile&& file) {
        agree(file.url, file.attributes);
        found(std::move(file));
    };
    return files_.enumerate(root, rules, foundAgreed, std::move(stop));
}

Result<std::vector<FoundFile>> DatedFileManager::list(const FileUrl& folder,
                                                      std::stop_token stop) const {
    auto entries = files_.list(folder, std::move(stop));
    if (entries) {
        for (auto& entry : entries.value()) agree(entry.url, entry.attributes);
    }
    return entries;
}

Result<FileAttributes> DatedFileManager::attributes(const FileUrl& url,
                                                    std::stop_token stop) const {
    auto attributes = files_.attributes(url, std::move(stop));
    if (attributes) agree(url, attributes.value());
    return attributes;
}

void DatedFileManager::agree(const FileUrl& url, FileAttributes& attributes) const {
    const auto agreed = agreed_.find(url);
    if (agreed == agreed_.end()) return;
    attributes.added = agreed->second.added;
    if (agreed->second.allocatedSize) attributes.allocatedSize = agreed->second.allocatedSize;
}

}  // namespace nookwise::demo
