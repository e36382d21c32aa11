// Sending 10,000 small files to the Trash, the log and the lists included, beside other tools.
#include "app/AppStore.h"
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "tests/support/FakePlatform.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

using namespace nookwise;
namespace fs = std::filesystem;

namespace {

constexpr int fileCount = 10'000;

class Home {
  public:
    explicit Home(const fs::path& path) : path_(path) {
        ::setenv("HOME", path.c_str(), 1);
        ::setenv("XDG_DATA_HOME", dataHome().c_str(), 1);
    }

    fs::path dataHome() const { return path_ / ".local/share"; }

    /// An empty Trash and all files in Downloads.
    void prepare() const {
        fs::remove_all(dataHome());
        fs::create_directories(dataHome());
        fs::remove_all(downloads());
        fs::create_directories(downloads());
        for (const auto& file : files()) std::ofstream(file) << "some bytes of " << file;
    }

    std::vector<std::string> files() const {
        std::vector<std::string> files;
        for (int i = 0; i < fileCount; ++i)
            files.push_back(downloads() / ("file " + std::to_string(i) + ".txt"));
        return files;
    }

  private:
    fs::path downloads() const { return path_ / "Downloads"; }

    fs::path path_;
};

/// A store on the real disk whose other seams stand still.
class Sweep {
  public:
    explicit Sweep(const Home& home) : files_(FileUrl(home.dataHome().native())) {
        world_.folders.applicationSupportFolder = FileUrl((home.dataHome() / "Nookwise").native());
        world_.defaults.setBoolean("skipConfirm.Bench", true);
        store_ = AppStore::create({files_, world_.metadata, world_.folders, world_.workspace,
                                   world_.defaults, world_.clock, world_.tasks, world_.reader});
        std::vector<FileItem> items;
        Piles piles;
        for (const auto& path : home.files()) {
            items.push_back({.url = FileUrl(path), .size = 4'096});
            piles[PileKind::forgotten].push_back({items.back(), "", true});
        }
        toTrash_ = items;
        // The rest of a large home, which the lists are rebuilt of.
        for (int i = 0; i < 90'000; ++i)
            items.push_back({.url = FileUrl("/home/user/Documents/" + std::to_string(i) + ".pdf")});
        store_->piles.set(std::move(piles));
        store_->files.set(std::move(items));
    }

    bool run() {
        store_->requestTrash(toTrash_, PileKind::forgotten, "Bench");
        return store_->files.get().size() == 90'000;
    }

  private:
    FakePlatform world_;
    LinuxFileManager files_;
    std::shared_ptr<AppStore> store_;
    std::vector<FileItem> toTrash_;
};

}  // namespace

int main() {
    const bench::WorkFolder work;
    const Home home(work.path());
    const auto prepare = [&] { home.prepare(); };
    std::unique_ptr<Sweep> sweep;
    bool isDone = true;
    std::vector<bench::Contestant> contestants{{"Nookwise, lists and log included",
                                                [&] { isDone = isDone && sweep->run(); },
                                                [&] {
                                                    prepare();
                                                    sweep = std::make_unique<Sweep>(home);
                                                }}};
    const auto add = [&](std::vector<std::string> command) {
        if (!bench::isInstalled(command.front())) return;
        const auto name = command.size() > 1 ? command[0] + " " + command[1] : command[0];
        for (auto& file : home.files()) command.push_back(std::move(file));
        contestants.push_back({name, [command] { bench::runQuietly(command); }, prepare});
    };
    add({"gio", "trash"});
    add({"trash-put"});
    const std::size_t base = contestants.size() > 1 ? 1 : 0;
    bench::printRatios("10,000 small files to the Trash, ratios to " + contestants[base].name,
                       contestants, bench::medians(contestants), base);
    if (!isDone) std::fputs("not every file went to the Trash\n", stderr);
    return isDone ? 0 : 1;
}
