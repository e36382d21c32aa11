#include "tests/faults/Grounds.h"

#include "tests/faults/TestVolumes.h"

#include <sys/stat.h>
#include <sys/xattr.h>

namespace nookwise {
namespace {

constexpr const char* memory = "/dev/shm";

bool isOnAnotherFileSystem(const std::filesystem::path& a, const std::filesystem::path& b) {
    struct stat first {};
    struct stat second {};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
           first.st_dev != second.st_dev;
}

bool keepsAttributes(const std::filesystem::path& folder) {
    return ::setxattr(folder.c_str(), "user.note", "kept", 4, 0) == 0;
}

/// Keeps what the grounds lie on.
struct Kept {
    Kept() {
        choose();
        for (const auto& ground : {grounds.near, grounds.far})
            grounds.keepAttributes &= ground.empty() || keepsAttributes(ground);
    }

    void choose() {
        grounds.whyNoVolumes = mountPrivately();
        if (!grounds.whyNoVolumes) {
            // Thousands of runs would spend most of their time waiting for a disk.
            nearVolume = TestVolume::inMemory("size=64m");
            farVolume = TestVolume::inMemory("size=64m");
            grounds.near = nearVolume->path();
            grounds.far = farVolume->path();
            return;
        }
        nearFolder = std::make_unique<TemporaryFolder>();
        grounds.near = nearFolder->path();
        if (!isOnAnotherFileSystem(nearFolder->path(), memory)) return;
        farFolder = std::make_unique<TemporaryFolder>(memory);
        grounds.far = farFolder->path();
    }

    std::unique_ptr<TestVolume> nearVolume;
    std::unique_ptr<TestVolume> farVolume;
    std::unique_ptr<TemporaryFolder> nearFolder;
    std::unique_ptr<TemporaryFolder> farFolder;
    Grounds grounds;
};

}  // namespace

const Grounds& grounds() {
    static const Kept kept;
    return kept.grounds;
}

void clear(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove_all(entry);
}

}  // namespace nookwise
