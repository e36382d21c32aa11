#include "tests/faults/ItemFiles.h"

#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

void setTimes(const fs::path& path, long second) {
    constexpr time_t base = 1'500'000'000;
    const timespec time{.tv_sec = base + second, .tv_nsec = 123'456'789 + second};
    const timespec times[]{time, time};
    if (::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW) != 0)
        throw std::runtime_error("cannot set a test file's time");
}

/// Half a page of bytes far behind a hole.
void writeSparseFile(const fs::path& path) {
    writeFile(path, "");
    constexpr std::uintmax_t hole = 60'000;
    fs::resize_file(path, hole);
    std::ofstream(path, std::ios::binary | std::ios::app) << std::string(2'000, 's');
    fs::resize_file(path, 2 * hole);
}

void writeTree(const fs::path& root) {
    writeFile(root / "sub" / "inner\xFF\n100%.txt", "inner");
    writeFile(root / "one", std::string(9'000, '1'));
    fs::create_hard_link(root / "one", root / "sub" / "two");
    writeSparseFile(root / "sparse");
    fs::create_symlink("sub/missing", root / "link");
    if (::mkfifo((root / "pipe").c_str(), 0620) != 0) throw std::runtime_error("no pipe");
    ::chmod((root / "one").c_str(), 0604);
    ::chmod((root / "sub").c_str(), 0750);
    long second = 0;
    for (const auto* name : {"sub/inner\xFF\n100%.txt", "one", "sparse", "link", "pipe", "sub"})
        setTimes(root / name, ++second);
}

}  // namespace

ItemName nameOf(Item item) {
    if (item == Item::file) return {"50%20off\xFF\n", ".txt"};
    return {"Letters\xFF 100%", ""};
}

void writeItemAt(const fs::path& path, Item item) {
    if (item == Item::file) {
        writeFile(path, std::string(10'000, 'f'));
        ::chmod(path.c_str(), 0640);
    } else {
        writeTree(path);
        ::chmod(path.c_str(), 0710);
    }
    setTimes(path, 10);
}

void writeFile(const fs::path& path, std::string_view contents) {
    fs::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!stream.flush()) throw std::runtime_error("cannot write a test's file");
}

}  // namespace nookwise
