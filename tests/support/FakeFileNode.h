// What a file system in memory is made of.
#pragma once

#include "tests/support/FakeFileManager.h"

namespace nookwise {

struct FakeFileManager::Node {
    FileAttributes attributes;
    FileReader::State state;
    std::string contents;
    /// In the order of the names' bytes.
    std::map<std::string, NodePointer, std::less<>> entries;
    /// Where a link leads; empty for everything else.
    std::string target;
    bool readable = true;

    bool isFolder() const { return attributes.type == FileType::folder; }
    bool holdsEntries() const { return isFolder() || attributes.type == FileType::package; }
    bool isLink() const { return !target.empty(); }
};

}  // namespace nookwise
