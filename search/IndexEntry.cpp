#include "search/IndexEntry.h"

#include "platform/Text.h"

#include <utility>

namespace nookwise {

IndexEntry indexEntry(double mtime, std::string_view text, std::optional<SharedBytes> source) {
    IndexEntry entry{.mtime = mtime, .text = SharedBytes(text), .source = std::move(source)};
    std::string lower;
    makeLowerText(entry, lower);
    return entry;
}

void makeLowerText(IndexEntry& entry, std::string& lower) {
    lowercase(entry.text.view(), lower);
    entry.lowerText = lower == entry.text.view() ? entry.text : SharedBytes::inSequence(lower);
}

double modificationTime(const FileItem& file) {
    return file.modified ? file.modified->time_since_epoch().count() : 0;
}

}  // namespace nookwise
