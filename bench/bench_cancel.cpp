// How long a scan goes on after it was cancelled: in the walk, in a folder of very many entries and
// inside large files.
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "scan/DuplicateFinder.h"
#include "scan/Walk.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using namespace nookwise;
using std::chrono::steady_clock;

namespace {

double milliseconds(steady_clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Cancels `work` at many moments of its run and prints the longest time it took to return.
void printWorstStop(const char* name, const std::function<void(std::stop_token)>& work) {
    const auto start = steady_clock::now();
    work({});
    const auto whole = steady_clock::now() - start;
    double worst = 0;
    for (int i = 1; i <= 20; ++i) {
        std::stop_source source;
        std::jthread worker([&] { work(source.get_token()); });
        std::this_thread::sleep_for(whole * i / 21);
        const auto cancelled = steady_clock::now();
        source.request_stop();
        worker.join();
        worst = std::max(worst, milliseconds(steady_clock::now() - cancelled));
    }
    std::printf("  %-40s %8.0f ms in all, cancelled in at most %5.1f ms\n", name,
                milliseconds(whole), worst);
}

void walk(const std::string& home, const std::stop_token& stop) {
    std::vector<FileItem> items;
    (void)LinuxFileManager().enumerate(
        FileUrl(home), {}, [&](FoundFile&& file) { items.push_back(fileItem(std::move(file))); },
        stop);
}

void makeTwoCopies(const std::string& home, std::int64_t size) {
    const std::string block(1 << 20, 'c');
    for (const auto* name : {"/a.iso", "/b.iso"}) {
        const int fd = ::open((home + name).c_str(), O_CREAT | O_WRONLY, 0644);
        for (std::int64_t written = 0; written < size; written += 1 << 20) {
            if (::write(fd, block.data(), block.size()) < 0) std::exit(1);
        }
        ::close(fd);
    }
}

}  // namespace

int main() {
    std::puts("\nCancelling a scan (20 moments each)");
    {
        const bench::WorkFolder work;
        bench::makeDeepHome(work.path(), 100'000, 20'000);
        printWorstStop("walk of 100,000 files",
                       [&](auto stop) { walk(work.path().string(), stop); });
    }
    {
        const bench::WorkFolder work;
        const auto folder = work.path().string();
        for (int i = 0; i < 1'000'000; ++i)
            ::close(::open((folder + "/" + std::to_string(i)).c_str(), O_CREAT | O_WRONLY, 0644));
        printWorstStop("walk of one folder of 1,000,000 files",
                       [&](auto stop) { walk(folder, stop); });
    }
    {
        const bench::WorkFolder work;
        const auto folder = work.path().string();
        makeTwoCopies(folder, 2'000'000'000);
        const LinuxFileManager files;
        std::vector<FileItem> items;
        (void)files.enumerate(FileUrl(folder), {},
                              [&](FoundFile&& file) { items.push_back(fileItem(std::move(file))); },
                              {});
        printWorstStop("comparing two files of 2 GB",
                       [&](auto stop) { (void)findDuplicates(files, items, stop); });
    }
    return 0;
}
