#include "tests/trash/TrashHome.h"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string ours =
    "[Trash Info]\nPath=/a\nDeletionDate=2024-02-09T07:05:03\n"
    "X-Nookwise-Run=another run\n";
const std::string theirs = "[Trash Info]\nPath=/a\nDeletionDate=2024-02-09T07:05:03\n";

/// A home whose Trash has its folders.
class TrashLeftovers : public testing::Test {
  protected:
    TrashLeftovers() {
        home.folder.makeFolder("data/Trash/files");
        home.folder.makeFolder("data/Trash/info");
    }
    void writeInfo(const std::string& name, std::string_view text) const {
        home.folder.write("data/Trash/info/" + name, text);
    }

    TrashHome home;
};

TEST_F(TrashLeftovers, areDescriptionsOfEarlierRunsWithoutAFile) {
    writeInfo("came.trashinfo", ours);
    home.folder.write("data/Trash/files/came", "");
    writeInfo("linked.trashinfo", ours);
    fs::create_symlink("nowhere", home.folder.path("data/Trash/files/linked"));
    writeInfo("never came.trashinfo", ours);
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("came.trashinfo", "linked.trashinfo"));
    EXPECT_THAT(home.names(), ElementsAre("came", "linked"));
}

TEST_F(TrashLeftovers, areNotWhatOtherProgramsOrThisRunWrote) {
    writeInfo("theirs.trashinfo", theirs);
    writeInfo("empty.trashinfo", "");
    writeInfo("other name", ours);
    ASSERT_TRUE(home.trash.trash(home.folder.write("file", "bytes")));
    fs::remove(home.folder.path("data/Trash/files/file"));
    home.trash.removeLeftovers({});
    EXPECT_THAT(home.infos(),
                ElementsAre("empty.trashinfo", "file.trashinfo", "other name", "theirs.trashinfo"));
    // To the next run, they are.
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("empty.trashinfo", "other name", "theirs.trashinfo"));
}

TEST_F(TrashLeftovers, areNotWhatIsWrittenSinceThisRunBegan) {
    const Trash nextRun(home.url);
    writeInfo("another program's run.trashinfo", ours);
    writeInfo("being written.trashinfo", "[Trash In");
    ::chmod(home.folder.path("data/Trash/info/being written.trashinfo").c_str(), 01600);
    const auto soon = fs::file_time_type::clock::now() + std::chrono::seconds(1);
    for (const auto& name : home.infos())
        fs::last_write_time(home.folder.path("data/Trash/info/" + name), soon);
    nextRun.removeLeftovers({});
    EXPECT_THAT(home.infos(),
                ElementsAre("another program's run.trashinfo", "being written.trashinfo"));
}

TEST_F(TrashLeftovers, areDescriptionsThatWereNotFinished) {
    const auto mark = [&](const std::string& name) {
        ::chmod(home.folder.path("data/Trash/info/" + name).c_str(), 01600);
    };
    writeInfo("empty.trashinfo", "");
    writeInfo("torn.trashinfo", "[Trash In");
    writeInfo("came.trashinfo", "[Trash In");
    home.folder.write("data/Trash/files/came", "");
    writeInfo("no description", "");
    home.folder.makeFolder("data/Trash/info/folder.trashinfo");
    for (const auto* name : {"empty.trashinfo", "torn.trashinfo", "came.trashinfo",
                             "no description", "folder.trashinfo"})
        mark(name);
    writeInfo("theirs.trashinfo", "");
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("came.trashinfo", "folder.trashinfo", "no description",
                                          "theirs.trashinfo"));
}

TEST_F(TrashLeftovers, areNeverFoundThroughLinksOrInWhatIsNoFile) {
    const auto outside = home.folder.write("outside", ours);
    fs::create_symlink(fs::path(outside.path()),
                       home.folder.path("data/Trash/info/link.trashinfo"));
    home.folder.makePipe("data/Trash/info/pipe.trashinfo");
    home.folder.makeFolder("data/Trash/info/folder.trashinfo");
    writeInfo("huge.trashinfo", ours);
    fs::resize_file(home.folder.path("data/Trash/info/huge.trashinfo"), std::uintmax_t{1} << 40U);
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("folder.trashinfo", "huge.trashinfo", "link.trashinfo",
                                          "pipe.trashinfo"));
    EXPECT_TRUE(isThere(outside));
}

TEST_F(TrashLeftovers, areUnfinishedListsOfSizesOfOurOwn) {
    for (const auto* name :
         {".directorysizes-nookwise-1F", "directorysizes", "directorysizes-1F", ".directorysizes"})
        home.folder.write(std::string("data/Trash/") + name, "1 2 a\n");
    home.folder.makeFolder("data/Trash/.directorysizes-nookwise-folder");
    home.folder.write("data/Trash/files/.directorysizes-nookwise-1F", "a user's file");
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(namesIn(home.folder.path("data/Trash")),
                ElementsAre(".directorysizes", ".directorysizes-nookwise-folder", "directorysizes",
                            "directorysizes-1F", "files", "info"));
    EXPECT_THAT(home.names(), ElementsAre(".directorysizes-nookwise-1F"));
}

TEST(TrashWithoutFolders, hasNoLeftoversAndIsNotMade) {
    const TrashHome home;
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(namesIn(home.folder.path()), IsEmpty());
    home.folder.write("data/Trash/info/never came.trashinfo", ours);
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(namesIn(home.folder.path("data/Trash")), ElementsAre("info"));
}

}  // namespace
}  // namespace nookwise
