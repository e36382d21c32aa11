#include "app/AppStore.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "platform/linux/LinuxTextReader.h"
#include "platform/linux/QtTasks.h"
#include "search/QueryParser.h"
#include "tests/support/FakeUserDefaults.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/ManualClock.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/DatedMetadata.h"
#include "tools/demo/SampleFolders.h"
#include "tools/demo/SampleHome.h"

#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise::demo {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// 2026-03-14 15:09:26 UTC.
constexpr Date now{Seconds{1'773'500'966}};

/// The real store over a sample home, with the real processes that read files.
class SampleQuestions : public testing::Test {
  protected:
    /// Scans, and lets the application run until all text is read, for a minute at most.
    void readEverything() {
        QEventLoop loop;
        const auto reading = store->indexing.observe([&] {
            if (!store->indexing.get()) loop.quit();
        });
        QTimer::singleShot(std::chrono::minutes(1), &loop, [&] { loop.exit(1); });
        store->scan(AppStore::ScanKind::visible);
        ASSERT_EQ(loop.exec(), 0) << "not all was read within a minute";
    }

    std::vector<std::string> names(std::string_view question) const {
        std::vector<std::string> found;
        for (const auto& result : store->ask(QueryParser::parse(question, now), 100))
            found.emplace_back(result.file.url.lastPathComponent());
        return found;
    }

    TemporaryFolder folder;
    AgreedFiles agreed = makeSampleHome(folder.url(), now).value();
    LinuxFileManager linuxFiles{folder.url(".local/share")};
    DatedFileManager files{linuxFiles, agreed};
    LinuxMetadata linuxMetadata{{.home = folder.url(),
                                 .configHome = folder.url(".config"),
                                 .dataHome = folder.url(".local/share")}};
    DatedMetadata metadata{linuxMetadata, agreed};
    SampleFolders folders{folder.url()};
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    ManualClock clock{now};
    LinuxTextReader reader{FileUrl(NOOKWISE_READER)};
    QtTasks tasks;
    std::shared_ptr<AppStore> store =
        AppStore::create({files, metadata, folders, workspace, defaults, clock, tasks, reader});
};

TEST_F(SampleQuestions, findAScreenshotByAWordInItWithinAMinuteOfTheFirstStart) {
    readEverything();
    EXPECT_THAT(names("cobalt"), Contains(StartsWith("Screenshot ")));
    EXPECT_THAT(names("tide tables"), Contains(StartsWith("Screenshot ")));
    const auto results = store->ask(QueryParser::parse("cobalt", now), 1);
    ASSERT_EQ(results.size(), 1u);
    EXPECT_THAT(results.front().snippet.value_or(""), HasSubstr("Cobalt oxide"));
}

TEST_F(SampleQuestions, findPapersAndPhotographedReceiptsByTheirText) {
    readEverything();
    EXPECT_THAT(names("tripods pegs"), Contains("Letter to the neighbours.pdf"));
    EXPECT_THAT(names("grogged raku"), Contains("Clay order.jpg"));
}

}  // namespace
}  // namespace nookwise::demo
