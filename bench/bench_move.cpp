// Moving 1 GB to another file system beside `cp` and `sync`, and inside one.
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

using namespace nookwise;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t megabyte = 1'000'000;
constexpr int megabytes = 1'000;

void makeFile(const fs::path& path) {
    std::ofstream file(path, std::ios::binary);
    std::string block(megabyte, 'x');
    for (int i = 0; i < megabytes; ++i) {
        block[0] = static_cast<char>(i);
        file.write(block.data(), static_cast<std::streamsize>(block.size()));
    }
    file.close();
    // What is still to be written must not be written during the measurement.
    ::sync();
}

bool isOnAnotherFileSystem(const fs::path& a, const fs::path& b) {
    struct stat first {};
    struct stat second {};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
           first.st_dev != second.st_dev;
}

FileUrl url(const fs::path& path) {
    return FileUrl(path.native());
}

void measure(const fs::path& from, const fs::path& to, LinuxFileManager& files) {
    const auto source = from / "source";
    const auto prepare = [&] {
        fs::remove(to / "moved");
        fs::remove(from / "renamed");
        makeFile(source);
    };
    const auto move = [&](const fs::path& target) {
        if (files.move(url(source), url(target))) return;
        std::fputs("the file could not be moved\n", stderr);
        std::exit(1);
    };
    const std::vector<bench::Contestant> contestants{
        {"Nookwise", [&] { move(to / "moved"); }, prepare},
        {"cp and sync",
         [&] {
             bench::runQuietly({"cp", "-p", source, to / "moved"});
             bench::runQuietly({"sync", to / "moved"});
         },
         prepare},
        {"cp, sync and rm",
         [&] {
             bench::runQuietly({"cp", "-p", source, to / "moved"});
             bench::runQuietly({"sync", to / "moved"});
             bench::runQuietly({"rm", source});
         },
         prepare},
        {"Nookwise, inside one file system", [&] { move(from / "renamed"); }, prepare}};
    bench::printRatios(
        "1 GB from " + from.string() + " to " + to.string() + ", ratios to cp and sync",
        contestants, bench::medians(contestants), 1);
    fs::remove(to / "moved");
    fs::remove(from / "renamed");
    fs::remove(source);
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    const bench::WorkFolder other("/dev/shm");
    LinuxFileManager files(url(work.path() / "data"));
    if (!isOnAnotherFileSystem(work.path(), other.path())) {
        std::puts("LEFT OUT: /dev/shm is no other file system here");
        return 0;
    }
    measure(work.path(), other.path(), files);
    measure(other.path(), work.path(), files);
    return 0;
}
