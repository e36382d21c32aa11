// Walking a home of 300,000 files: time beside find and du, memory of the whole scan, number of
// reports.
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "scan/Scanner.h"
#include "scan/Walk.h"
#include "tests/support/FakeUserFolders.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/ManualClock.h"

#include <cstdio>
#include <string>
#include <vector>

using namespace nookwise;

namespace {

constexpr int fileCount = 300'000;
constexpr int folderCount = 58'000;

std::size_t walkEverything(const std::string& home) {
    std::vector<FileItem> items;
    const EnumerationRules rules{.skipsFolder = {}, .skipsFolderHolding = isProject};
    const auto found = [&](FoundFile&& file) { items.push_back(fileItem(std::move(file))); };
    (void)LinuxFileManager().enumerate(FileUrl(home), rules, found, {});
    return items.size();
}

struct ScanCounts {
    std::size_t files = 0;
    int walkReports = 0;
};

ScanCounts scanHome(const std::string& home) {
    const LinuxFileManager files;
    const LinuxMetadata metadata({.home = FileUrl(home),
                                  .configHome = FileUrl(home + "/.config"),
                                  .dataHome = FileUrl(home + "/.local/share")});
    const FakeWorkspace workspace;
    const ManualClock clock{Date{Seconds{4e9}}};
    FakeUserFolders folders;
    folders.homeFolder = FileUrl(home);
    folders.desktopFolder = FileUrl(home + "/Desktop");
    folders.documentsFolder = FileUrl(home + "/Documents");
    folders.downloadsFolder = FileUrl(home + "/Downloads");
    ScanCounts counts;
    const auto progress = [&](const ScanProgress& report) {
        counts.walkReports += report.folder.empty() ? 0 : 1;
    };
    counts.files =
        Scanner(files, metadata, folders, workspace, clock).runBlocking(progress, {}).files.size();
    return counts;
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    const auto home = work.path().string();
    bench::makeDeepHome(home, fileCount, folderCount);
    if (walkEverything(home) != fileCount) {
        std::fputs("the walk did not find every file\n", stderr);
        return 1;
    }
    std::vector<bench::Contestant> contestants{
        {"find -printf size, mtime, birth time",
         [&] {
             bench::runQuietly({"find", home, "-printf", "%s %T@ %B@\n"});
         }},
        {"walk with all attributes and project tests", [&] { walkEverything(home); }},
        {"whole scan, piles and copies included", [&] { scanHome(home); }}};
    if (bench::isInstalled("du"))
        contestants.push_back({"du -s", [&] { bench::runQuietly({"du", "-s", home}); }});
    bench::printRatios("Walk of 300,000 files in 58,000 folders", contestants,
                       bench::medians(contestants), 0);

    ScanCounts counts;
    const double peak = bench::peakMegabytes([&] { scanHome(home); });
    counts = scanHome(home);
    std::printf(
        "  peak memory of the scan %.0f MB; %d reports during the walk, at most %d allowed\n", peak,
        counts.walkReports, fileCount / 400 + 3);
    return 0;
}
