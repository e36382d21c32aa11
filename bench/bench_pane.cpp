// Showing a folder of 100,000 entries: listing and sorting beside ls, and what of it the UI thread
// does.
#include "app/Pane.h"
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "tests/support/FakePlatform.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

using namespace nookwise;

namespace {

constexpr int entryCount = 100'000;
constexpr int year = 31'536'000;

/// One entry in ten is a folder, one in twenty is hidden; dates and names in no common order.
void fill(const std::filesystem::path& folder) {
    std::mt19937 random(7);
    for (int i = 0; i < entryCount; ++i) {
        const auto number = std::to_string(random() % 1'000'000) + " " + std::to_string(i);
        const auto path = folder / ((i % 20 == 19 ? ".Report " : "Report ") + number + ".pdf");
        if (i % 10 == 0) {
            std::filesystem::create_directory(path);
        } else {
            std::ofstream(path) << i;
        }
        const timespec time{.tv_sec = 1'700'000'000 - static_cast<long>(random() % year),
                            .tv_nsec = static_cast<long>(random() % 1'000'000'000)};
        const timespec times[]{time, time};
        ::utimensat(AT_FDCWD, path.c_str(), times, 0);
    }
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    fill(work.path());
    const FileUrl folder(work.path().native());
    LinuxFileManager files;
    FakePlatform fakes;
    const auto fakePlatform = fakes.platform();
    const Platform platform{files,
                            fakePlatform.metadata,
                            fakePlatform.folders,
                            fakePlatform.workspace,
                            fakePlatform.defaults,
                            fakePlatform.clock,
                            fakePlatform.tasks,
                            fakePlatform.reader};
    std::unique_ptr<Pane> pane;
    const auto openPane = [&] { pane = std::make_unique<Pane>(platform, folder); };
    const auto listInBackground = [&] {
        pane->reload();
        fakes.tasks.runBackgroundTask();
    };
    const auto landed = [&] { fakes.tasks.runUiTasks(); };
    const std::vector<bench::Contestant> contestants{
        {"ls -l --sort=time",
         [&] {
             bench::runQuietly({"ls", "-l", "--sort=time", work.path().string()});
         }},
        {"list and sort", [&] { (void)listFolder(files, folder, {}); }},
        {"list, sort and show in a pane",
         [&] {
             listInBackground();
             landed();
         },
         openPane},
        {"of that, the UI thread", landed,
         [&] {
             openPane();
             listInBackground();
         }},
        {"the UI thread, when it is listed again with all selected", landed, [&] {
             std::unordered_set<FileUrl> all;
             for (const auto& item : pane->items.get()) all.insert(item.url);
             pane->selection.set(std::move(all));
             listInBackground();
         }}};
    bench::printRatios("A folder of 100,000 entries", contestants, bench::medians(contestants, 15),
                       0);
    return 0;
}
