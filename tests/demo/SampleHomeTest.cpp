#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "scan/Scanner.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/ManualClock.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/DatedMetadata.h"
#include "tools/demo/SampleFolders.h"
#include "tools/demo/SampleHome.h"

#include <QFile>
#include <QImage>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise::demo {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

/// 2026-03-14 15:09:26 UTC.
constexpr Date now{Seconds{1'773'500'966}};

/// A sample home on the disk, and what the real scanner finds in it.
class ScannedSample {
  public:
    explicit ScannedSample(const std::filesystem::path& parent) : folder_(parent) {
        auto made = makeSampleHome(folder_.url(), now);
        if (!made) throw std::runtime_error(std::string(made.error().url.path()));
        agreed_ = std::move(made.value());
        LinuxFileManager linuxFiles;
        const LinuxMetadata linuxMetadata({.home = folder_.url(),
                                           .configHome = folder_.url(".config"),
                                           .dataHome = folder_.url(".local/share")});
        const DatedFileManager files(linuxFiles, agreed_);
        const DatedMetadata metadata(linuxMetadata, agreed_);
        const SampleFolders folders(folder_.url());
        const FakeWorkspace workspace;
        const ManualClock clock(now);
        result_ =
            Scanner(files, metadata, folders, workspace, clock).runBlocking([](const auto&) {}, {});
    }

    const ScanResult& result() const { return result_; }
    const AgreedFiles& agreed() const { return agreed_; }

    std::string relative(const FileUrl& url) const {
        return std::string(url.path().substr(folder_.url().path().size() + 1));
    }

    std::vector<std::string> files() const {
        std::vector<std::string> paths;
        for (const auto& file : result_.files) paths.push_back(relative(file.url));
        return paths;
    }

    std::vector<std::string> pile(PileKind kind) const {
        std::vector<std::string> paths;
        for (const auto& item : result_.piles.at(kind)) paths.push_back(relative(item.file.url));
        return paths;
    }

    /// The copies that are offered for removal.
    std::vector<std::string> extras() const {
        std::vector<std::string> paths;
        for (const auto& group : result_.duplicates) {
            for (const auto& file : group.extras()) paths.push_back(relative(file.url));
        }
        return paths;
    }

    bool isTicked(PileKind kind, const std::string& path) const {
        const auto& items = result_.piles.at(kind);
        return std::any_of(items.begin(), items.end(), [&](const SweepItem& item) {
            return item.preselected && relative(item.file.url) == path;
        });
    }

  private:
    TemporaryFolder folder_;
    AgreedFiles agreed_;
    ScanResult result_;
};

class SampleHome : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        shared_ = std::make_unique<ScannedSample>(std::filesystem::temp_directory_path());
    }
    static void TearDownTestSuite() { shared_.reset(); }

    static const ScannedSample& sample() { return *shared_; }

  private:
    static inline std::unique_ptr<ScannedSample> shared_;
};

TEST_F(SampleHome, hasForgottenDownloads) {
    EXPECT_THAT(sample().pile(PileKind::forgotten),
                IsSupersetOf({"Downloads/Kiln build timelapse.mov",
                              "Downloads/Winter workshop recordings.zip",
                              "Downloads/Reading/Glaze reference library.pdf"}));
    EXPECT_THAT(sample().pile(PileKind::forgotten),
                Not(Contains("Downloads/Fernhill at dusk.jpg")));
}

TEST_F(SampleHome, hasInstallersOfItsApplicationsOnly) {
    const auto installers = sample().pile(PileKind::installers);
    EXPECT_THAT(installers,
                IsSupersetOf({"Downloads/Blue Kite Setup 1.2.dmg", "Downloads/Marble Notes 4.1.pkg",
                              "Desktop/tidewater-maps-2.8.xip"}));
    EXPECT_THAT(installers, Not(Contains("Downloads/Copper Lantern 3.0.dmg")));
    EXPECT_THAT(sample().files(), Contains("Downloads/Copper Lantern 3.0.dmg"));
    EXPECT_TRUE(sample().isTicked(PileKind::installers, "Downloads/Blue Kite Setup 1.2.dmg"));
    EXPECT_FALSE(sample().isTicked(PileKind::installers, "Downloads/Blue Kite Setup 1.3.dmg"));
}

TEST_F(SampleHome, hasOldScreenshotsByNameAndByTheirOwnWord) {
    const auto screenshots = sample().pile(PileKind::screenshots);
    EXPECT_THAT(screenshots, Contains(HasSubstr("Desktop/Screenshot 20")));
    EXPECT_THAT(screenshots, Contains("Desktop/Kiln curve, cone 6.png"));
    EXPECT_THAT(screenshots, Contains("Pictures/Screenshots/Tides for the weekend.png"));
    EXPECT_THAT(screenshots, Not(Contains(HasSubstr("Screenshot 2026-03"))));
}

TEST_F(SampleHome, hasLargeFiles) {
    EXPECT_THAT(
        sample().pile(PileKind::large),
        IsSupersetOf({"Documents/Films/Open day interviews.mov",
                      "Documents/Archive/Studio backup.tar.gz", "Downloads/Coastline elevation.iso",
                      "Desktop/Choir rehearsal, both mics.wav"}));
}

TEST_F(SampleHome, hasCopiesInSeveralFolders) {
    EXPECT_THAT(sample().extras(),
                IsSupersetOf({"Downloads/Site plan (2).pdf", "Downloads/Site plan.pdf",
                              "Desktop/Open day poster copy.png", "Downloads/Old orchard (2).jpg",
                              "Desktop/Chimney copy.jpg"}));
}

TEST_F(SampleHome, keepsTheScannerOutOfProjectsAndPackages) {
    const auto files = sample().files();
    EXPECT_THAT(files, Each(Not(HasSubstr("node_modules"))));
    EXPECT_THAT(files, Each(Not(HasSubstr("kiln-controller"))));
    EXPECT_THAT(files, Contains("Documents/Shop site/index.html"));
    EXPECT_THAT(files, Contains("Documents/Workshop report.pages"));
    EXPECT_THAT(files, Each(Not(HasSubstr("report.pages/"))));
}

TEST_F(SampleHome, picturesAndDocumentsAreRealOnes) {
    for (const auto& file : sample().result().files) {
        const auto path = QFile::decodeName(std::string(file.url.path()).c_str());
        const auto extension = file.url.pathExtension();
        if (extension == "png" || extension == "jpg") {
            EXPECT_FALSE(QImage(path).isNull()) << file.url.path();
        }
        if (extension != "pdf") continue;
        QFile document(path);
        ASSERT_TRUE(document.open(QIODevice::ReadOnly)) << file.url.path();
        EXPECT_TRUE(document.readAll().startsWith("%PDF-")) << file.url.path();
    }
}

TEST_F(SampleHome, everyFileHasAnAgreedDate) {
    for (const auto& file : sample().result().files) {
        ASSERT_TRUE(sample().agreed().contains(file.url)) << file.url.path();
        EXPECT_EQ(file.added, sample().agreed().at(file.url).added) << file.url.path();
    }
}

TEST_F(SampleHome, looksTheSameWhereTheDiskCannotHoldIt) {
    const std::filesystem::path memory("/dev/shm");
    if (!std::filesystem::is_directory(memory)) GTEST_SKIP() << "there is no file system in memory";
    const ScannedSample inMemory(memory);
    EXPECT_THAT(
        inMemory.agreed(),
        Contains(::testing::Field("agreement", &AgreedFiles::value_type::second,
                                  ::testing::Field("size", &AgreedAttributes::allocatedSize,
                                                   std::optional<std::int64_t>(1'310'000'000)))));
    EXPECT_EQ(inMemory.files(), sample().files());
    for (const auto kind :
         {PileKind::forgotten, PileKind::installers, PileKind::screenshots, PileKind::large}) {
        EXPECT_EQ(inMemory.pile(kind), sample().pile(kind));
    }
    EXPECT_EQ(inMemory.extras(), sample().extras());
}

TEST(MakingASampleHome, failsWhereSomethingIsInTheWay) {
    const TemporaryFolder folder;
    folder.write("Desktop", "a file where a folder should be");
    const auto made = makeSampleHome(folder.url(), now);
    ASSERT_FALSE(made);
    EXPECT_THAT(std::string(made.error().url.path()), EndsWith("Desktop"));
}

TEST(MakingASampleHome, overwritesNothing) {
    const TemporaryFolder folder;
    folder.write("Desktop/wifi studio.png", "somebody's");
    EXPECT_FALSE(makeSampleHome(folder.url(), now));
    QFile file(QString::fromStdString(folder.path("Desktop/wifi studio.png")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "somebody's");
}

}  // namespace
}  // namespace nookwise::demo
