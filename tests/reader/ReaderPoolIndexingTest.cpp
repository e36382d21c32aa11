#include "platform/linux/WriteAll.h"
#include "search/TextIndexer.h"
#include "tests/reader/ReaderPoolFixture.h"
#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeMetadata.h"
#include "tests/support/FakeUserFolders.h"

#include <atomic>
#include <csignal>
#include <map>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <fcntl.h>

namespace nookwise {
namespace {

/// Kills processes at two moments of their lives: before they greet, and with a file in their
/// hands. They tell of both through a pipe, and wait for an answer before they greet.
class Killer {
  public:
    Killer(const FileUrl& pipe, int kills)
        : pipe_(openPath(pipe.path(), O_RDWR)), killsLeft_(kills), thread_([this] { work(); }) {}
    ~Killer() { writeAll(pipe_.get(), "0\n"); }

    int killsLeft() const { return killsLeft_; }

  private:
    void work() {
        while (const auto id = next()) {
            const auto [process, isNew] = known_.try_emplace(id);
            if (isNew) process->second = openProcess(id);
            if (killsLeft_ > 0 && std::bernoulli_distribution(isNew ? 0.5 : 0.3)(random_)) {
                sendSignal(process->second, SIGKILL);
                known_.erase(process);
                --killsLeft_;
            } else if (isNew) {
                sendSignal(process->second, SIGUSR1);
            }
        }
    }
    pid_t next() const {
        std::string line;
        for (char byte = 0; ::read(pipe_.get(), &byte, 1) == 1 && byte != '\n';) line += byte;
        return std::stoi(line);
    }

    FileDescriptor pipe_;
    std::atomic<int> killsLeft_;
    std::mt19937 random_{20'261'121};
    std::map<pid_t, FileDescriptor> known_;
    std::jthread thread_;
};

/// Whole runs over real files.
class ReaderPoolIndexing : public ReaderPoolFixture {
  protected:
    static constexpr std::size_t count = 600;

    std::vector<FileItem> items(const std::string& command) const {
        std::vector<FileItem> items;
        for (std::size_t number = 0; number < count; ++number) {
            const auto url = folder_.write(std::to_string(number) + ".png", command);
            items.push_back({.url = url, .size = 100'000, .modified = Date{Seconds{1}}});
        }
        return items;
    }
    void makeIndexer(std::string_view program = "obedient") {
        auto limits = patientLimits();
        limits.processesOfARole = 2;
        makeReader(limits, program);
        indexer_ = std::make_unique<TextIndexer>(files_, metadata_, folders_, reader());
    }
    /// How many files the run went through.
    std::size_t run(const std::vector<FileItem>& items) {
        std::size_t through = 0;
        indexer_->run(items,
                      [&](IndexEntries&& fresh, std::size_t done, std::size_t /*total*/) {
                          for (const auto& [url, entry] : fresh) EXPECT_EQ(entry.text.view(), "x");
                          through = done;
                      },
                      {});
        return through;
    }
    std::size_t countOfRead(const std::vector<FileItem>& items) {
        return indexer_->cached(items).size();
    }

    FakeFileManager files_;
    FakeMetadata metadata_;
    FakeUserFolders folders_;
    std::unique_ptr<TextIndexer> indexer_;
};

TEST_F(ReaderPoolIndexing, TwoHundredKillsEndNoRunAndEmptyNoFile) {
    constexpr int kills = 200;
    const auto pipe = folder_.makePipe("waiting-at-the-door.pipe");
    const auto all = items("tell-and-say-x " + std::string(pipe.path()));
    makeIndexer("waiting-at-the-door");
    Killer killer(pipe, kills);
    EXPECT_EQ(run(all), count);
    EXPECT_EQ(killer.killsLeft(), 0);
    // A file is unread when it lost two processes.
    EXPECT_GE(countOfRead(all), count - kills / 2);
    run(all);
    EXPECT_EQ(countOfRead(all), count);
}

TEST_F(ReaderPoolIndexing, FilesThatAreTrashedDuringTheRunAreReadWhenTheyArePutBack) {
    const auto all = items("say x");
    const auto trashed = [&](std::size_t number) {
        return folder_.path("trashed " + std::to_string(number));
    };
    makeIndexer();
    for (std::size_t number = 0; number < count; number += 2)
        std::filesystem::rename(all[number].url.path(), trashed(number));
    EXPECT_EQ(run(all), count);
    EXPECT_EQ(countOfRead(all), count / 2);
    for (std::size_t number = 0; number < count; number += 2)
        std::filesystem::rename(trashed(number), all[number].url.path());
    EXPECT_EQ(run(all), count / 2);
    EXPECT_EQ(countOfRead(all), count);
}

}  // namespace
}  // namespace nookwise
