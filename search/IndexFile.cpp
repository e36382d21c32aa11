#include "search/IndexFile.h"

#include <cstdint>

namespace nookwise {

IndexFile::IndexFile(FileManager& files, const FileUrl& folder)
    : files_(files), file_(folder.append("text-index.json")) {
    // Where it fails, saving fails too.
    (void)files_.createFolder(folder, FolderAccess::ownerOnly);
}

IndexEntries IndexFile::load() const {
    const auto real = files_.resolved(file_);
    if (!real) return {};
    const auto opened = files_.open(real.value());
    if (!opened) return {};
    const auto state = opened.value()->state();
    if (!state) return {};
    const auto size = static_cast<std::uint64_t>(state.value().size);
    return indexFromJson(*opened.value(), size).value_or(IndexEntries());
}

bool IndexFile::save(const std::function<bool(IndexJsonWriter&)>& addAll) {
    const auto contents = [&](const ContentsSink& sink) {
        IndexJsonWriter writer(sink);
        return addAll(writer) && writer.finish();
    };
    return static_cast<bool>(files_.replaceContents(file_, contents));
}

}  // namespace nookwise
