#include "model/DuplicateGroup.h"

#include "model/ByteSum.h"
#include "model/HashCombine.h"

#include <algorithm>
#include <iterator>

namespace nookwise {

const FileItem* DuplicateGroup::keptFile() const {
    const auto kept = std::find_if(files.begin(), files.end(),
                                   [&](const FileItem& file) { return file.url == keep; });
    return kept == files.end() ? nullptr : &*kept;
}

std::vector<FileItem> DuplicateGroup::extras() const {
    std::vector<FileItem> others;
    std::copy_if(files.begin(), files.end(), std::back_inserter(others),
                 [&](const FileItem& file) { return file.url != keep; });
    return others;
}

std::int64_t wastedBytes(const DuplicateGroup& group) {
    if (group.files.empty()) return 0;
    return byteProduct(group.files.front().size, static_cast<std::int64_t>(group.files.size()) - 1);
}

}  // namespace nookwise

std::size_t std::hash<nookwise::DuplicateGroup>::operator()(
    const nookwise::DuplicateGroup& group) const noexcept {
    std::size_t combined = nookwise::hashOf(group.id, group.keep);
    for (const auto& file : group.files) combined = nookwise::hashOf(combined, file);
    return combined;
}
