#include "app/HoldingFolders.h"

#include <algorithm>

namespace nookwise {
namespace {

std::string_view commonBeginning(std::string_view a, std::string_view b) {
    const auto [end, other] = std::ranges::mismatch(a, b);
    return a.substr(0, static_cast<std::size_t>(end - a.begin()));
}

/// Empty for what lies directly in the root folder.
std::string_view folderOf(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash);
}

}  // namespace

void HoldingFolders::add(const FileUrl& folder) {
    const auto path = folder.path();
    beginning_ = folders_.empty() ? path : commonBeginning(beginning_, path);
    folders_.try_emplace(path, &folder);
    if (lengths_.size() <= path.size()) lengths_.resize(path.size() + 1);
    lengths_[path.size()] = true;
    lastFolder_ = {};
    lastAnswer_ = nullptr;
}

const FileUrl* HoldingFolders::holding(std::string_view path) {
    if (folders_.empty() || !path.starts_with(beginning_)) return nullptr;
    const auto folder = folderOf(path);
    if (folder != lastFolder_) {
        lastAnswer_ = innermost(folder);
        lastFolder_ = folder;
    }
    return lastAnswer_;
}

const FileUrl* HoldingFolders::find(std::string_view path) const {
    if (path.size() >= lengths_.size() || !lengths_[path.size()]) return nullptr;
    const auto found = folders_.find(path);
    return found == folders_.end() ? nullptr : found->second;
}

const FileUrl* HoldingFolders::innermost(std::string_view folder) const {
    for (; !folder.empty() && folder.size() >= beginning_.size(); folder = folderOf(folder)) {
        if (const auto* found = find(folder)) return found;
    }
    return nullptr;
}

}  // namespace nookwise
