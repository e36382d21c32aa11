#include "tests/scan/DuplicateFixture.h"
#include "tests/scan/ScanFixture.h"

#include <atomic>

namespace nookwise {
namespace {

/// How much may still be asked of the file system after a stop request: what was under way on each
/// of a few threads, and steps on at most 64 files. All of it together takes a few milliseconds on
/// a disk.
constexpr int mostOperationsAfterStop = 200;

class Stopping : public ScanFixture {
  protected:
    /// Runs a scan that is stopped at its n-th operation; returns how many operations followed.
    int operationsAfterStopAt(int number) {
        std::stop_source stop;
        std::atomic<int> first{0};
        const int start = world.files.operations();
        world.files.onOperation([&](const FakeOperation& operation) {
            if (operation.number - start == number) {
                first = operation.number;
                stop.request_stop();
            }
        });
        scan(stop.get_token());
        world.files.onOperation({});
        EXPECT_NE(first, 0) << "there is no operation " << number;
        return world.files.operations() - first;
    }
};

TEST_F(Stopping, atAnyOperationEndsTheScanSoon) {
    world.folders.screenshotFolder = FileUrl("/home/user/Pictures");
    for (int i = 0; i < 20; ++i) {
        const auto name = "/folder" + std::to_string(i % 7) + "/file" + std::to_string(i) + ".pdf";
        for (const auto root : {desktop, documents, downloads}) {
            world.files.addFile(std::string(root) + name, {.contents = contentsOf('x', 600'000)});
        }
    }
    const int before = world.files.operations();
    scan();
    const int all = world.files.operations() - before;
    ASSERT_GT(all, 2 * mostOperationsAfterStop);
    for (int number = 1; number <= all - mostOperationsAfterStop; number += 3) {
        EXPECT_LE(operationsAfterStopAt(number), mostOperationsAfterStop)
            << "stopped at operation " << number;
    }
}

TEST_F(Stopping, insideTheReadingOfLargeFilesEndsTheScanSoon) {
    for (const auto* path : {"/home/user/Documents/a.iso", "/home/user/Documents/b.iso"}) {
        world.files.addFile(path, {.size = 4'000'000'000});
    }
    EXPECT_LE(operationsAfterStopAt(100), 4);
}

TEST_F(Stopping, insideAFolderOfManyEntriesEndsTheScanSoon) {
    for (int i = 0; i < 20'000; ++i)
        world.files.addFile("/home/user/Documents/" + std::to_string(i));
    EXPECT_LE(operationsAfterStopAt(100), 4);
    EXPECT_TRUE(reports.empty() || reports.back().step != "Done");
}

TEST_F(Stopping, beforeTheScanReadsNothing) {
    world.files.addFile("/home/user/Documents/a");
    std::stop_source stop;
    stop.request_stop();
    const auto result = scan(stop.get_token());
    EXPECT_TRUE(result.files.empty());
    for (const auto& report : reports) EXPECT_NE(report.step, "Done");
}

TEST_F(Stopping, whileMetadataAreLookedUpEndsTheScanSoon) {
    for (int i = 0; i < 1'000; ++i) {
        world.files.addFile("/home/user/Downloads/" + std::to_string(i),
                            {.allocated = 600 * megabyte});
    }
    std::stop_source stop;
    world.metadata.onQuestion([&](const FileUrl& url) {
        if (url == FileUrl("/home/user/Downloads/500")) stop.request_stop();
    });
    scan(stop.get_token());
    EXPECT_LT(world.metadata.asked().size(), 1'000u);
    EXPECT_NE(reports.back().step, "Looking for copies");
    EXPECT_NE(reports.back().step, "Done");
}

TEST_F(Stopping, whileScreenshotsAreLookedUpEndsTheScanSoon) {
    for (int i = 0; i < 1'000; ++i) {
        world.files.addFile("/home/user/Desktop/" + std::to_string(i) + ".png",
                            {.added = ago(40 * day)});
    }
    std::stop_source stop;
    world.metadata.onQuestion([&](const FileUrl& url) {
        if (url == FileUrl("/home/user/Desktop/500.png")) stop.request_stop();
    });
    scan(stop.get_token());
    EXPECT_LT(world.metadata.asked().size(), 1'000u);
    EXPECT_EQ(reports.back().step, "Reading Downloads");
}

class StoppingTheSearchForCopies : public DuplicateFixture {};

TEST_F(StoppingTheSearchForCopies, givesNoGroups) {
    for (int i = 0; i < 10; ++i)
        addHolding("/" + std::to_string(i) + ".pdf", contentsOf('x', 1'000'000));
    std::stop_source stop;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.number == 40) stop.request_stop();
    });
    EXPECT_TRUE(find(stop.get_token()).empty());
}

TEST_F(StoppingTheSearchForCopies, amongHundredsOfFilesEndsSoon) {
    for (int i = 0; i < 500; ++i) add("/" + std::to_string(i) + ".pdf", {.size = 3'000'000'000});
    std::stop_source stop;
    std::atomic<int> stoppedAt{0};
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.number == 2'500) {
            stoppedAt = operation.number;
            stop.request_stop();
        }
    });
    EXPECT_TRUE(find(stop.get_token()).empty());
    ASSERT_EQ(stoppedAt, 2'500);
    EXPECT_LE(files.operations() - stoppedAt, mostOperationsAfterStop);
}

}  // namespace
}  // namespace nookwise
