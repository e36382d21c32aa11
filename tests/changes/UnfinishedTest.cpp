#include "platform/linux/OpenAt.h"
#include "platform/linux/Unfinished.h"
#include "platform/linux/UnfinishedRecord.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

const std::string digits = "0123456789abcdef0123456789abcdef";
const std::string part = ".nookwise-" + digits + ".part";

class UnfinishedCopies : public testing::Test {
  protected:
    UnfinishedCopies() : folder(openPath(home.path().native(), O_RDONLY | O_DIRECTORY)) {}

    void record(const std::string& name, const UnfinishedRecord& contents) const {
        own.write("unfinished/" + name, encoded(contents));
    }
    std::string records() const { return names(own.path("unfinished")); }
    std::uint64_t inode(const std::string& relative) const {
        struct stat status {};
        EXPECT_EQ(::lstat(home.path(relative).c_str(), &status), 0);
        return status.st_ino;
    }

    const TemporaryFolder home;
    const TemporaryFolder own;
    const Unfinished unfinished{own.url("unfinished")};
    const FileDescriptor folder;
};

TEST_F(UnfinishedCopies, areRecordedForTheirOwnerAlone) {
    const auto temporary = unfinished.temporaryForCopy(home.url("final"), folder.get());
    ASSERT_TRUE(temporary);
    EXPECT_EQ(names(home.path()), "");
    EXPECT_EQ(fs::status(own.path("unfinished")).permissions(), fs::perms::owner_all);
    const auto name = records();
    EXPECT_EQ(temporary->name(), ".nookwise-" + name + ".part");
    EXPECT_EQ(fs::status(own.path("unfinished/" + name)).permissions(), fs::perms(0600));
}

TEST_F(UnfinishedCopies, goWithTheirRecordWhenTheyAreGivenUp) {
    {
        const auto temporary = unfinished.temporaryForCopy(home.url("final"), folder.get());
        ASSERT_TRUE(temporary);
        home.write(std::string(temporary->name()) + "/inner/file", "x");
        errno = ENOSPC;
    }
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(names(home.path()), "");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedCopies, stayWithoutARecordWhenTheyAreKept) {
    auto temporary = unfinished.temporaryForCopy(home.url("final"), folder.get());
    ASSERT_TRUE(temporary);
    const std::string name = temporary->name();
    home.write(name, "x");
    temporary->keep();
    temporary.reset();
    EXPECT_EQ(names(home.path()), name);
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedCopies, areRemovedOnceWhenTheyAreHandedOn) {
    auto first = unfinished.temporaryForCopy(home.url("final"), folder.get());
    ASSERT_TRUE(first);
    home.write(first->name(), "x");
    {
        const auto second = std::move(*first);
        first.reset();
        EXPECT_EQ(names(home.path()), second.name());
    }
    EXPECT_EQ(names(home.path()), "");
}

TEST_F(UnfinishedCopies, ofAKilledRunAreRemoved) {
    home.write(part + "/inner/file", "x");
    home.write("mine", "x");
    record(digits, {.url = home.url(part)});
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "mine");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedCopies, ofThisRunAreUnderWayAndStay) {
    const auto temporary = unfinished.temporaryForCopy(home.url("final"), folder.get());
    ASSERT_TRUE(temporary);
    home.write(temporary->name(), "x");
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), temporary->name());
    Unfinished(own.url("unfinished")).removeRecorded();
    EXPECT_EQ(names(home.path()), "") << "the next run cannot know of it";
}

TEST_F(UnfinishedCopies, thatWereNeverBegunOnlyLoseTheirRecord) {
    record(digits, {.url = home.url(part)});
    own.write("unfinished/11111111111111111111111111111111", "");
    unfinished.removeRecorded();
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedCopies, onAVolumeThatIsNotThereStayRecorded) {
    record(digits, {.url = home.url("unmounted/" + part)});
    unfinished.removeRecorded();
    EXPECT_EQ(records(), digits);
    home.write("unmounted/" + part, "x");
    unfinished.removeRecorded();
    EXPECT_EQ(records(), "");
    EXPECT_EQ(names(home.path("unmounted")), "");
}

TEST_F(UnfinishedCopies, areRemovedOnlyWhileTheyAreTheRecordedFile) {
    home.write(part, "moved away and durable elsewhere");
    record(digits, {.url = home.url(part), .inode = inode(part) + 1});
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), part);
    record(digits, {.url = home.url(part), .inode = inode(part)});
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "");
    EXPECT_EQ(records(), "");
}

class UnfinishedRemovals : public UnfinishedCopies {
  protected:
    /// As a killed process leaves it: renamed, and not yet looked at again.
    void hideAndDie(const std::string& name) const {
        const Unfinished killed(own.url("unfinished"));
        auto temporary = killed.temporaryForSource(home.url(name), folder.get(), inode(name));
        ASSERT_TRUE(temporary);
        fs::rename(home.path(name), home.path(temporary->name()));
    }
};

TEST_F(UnfinishedRemovals, areUndoneWhileNobodyMadeSureThatTheFilesMayGo) {
    home.write("source/inner/file", "not in the copy");
    hideAndDie("source");
    EXPECT_NE(names(home.path()), "source");
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "source");
    EXPECT_EQ(contents(home.path("source/inner/file")), "not in the copy");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedRemovals, waitUntilTheNameIsFreeAgain) {
    home.write("source", "hidden");
    hideAndDie("source");
    home.write("source", "another");
    const auto before = names(home.path());
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), before);
    EXPECT_EQ(contents(home.path("source")), "another");
    EXPECT_NE(records(), "");
    fs::rename(home.path("source"), home.path("elsewhere"));
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "elsewhere source");
    EXPECT_EQ(contents(home.path("source")), "hidden");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedRemovals, areCompletedOnceTheFilesMayGo) {
    home.write("source/file", "in the copy");
    {
        const Unfinished killed(own.url("unfinished"));
        auto temporary =
            killed.temporaryForSource(home.url("source"), folder.get(), inode("source"));
        ASSERT_TRUE(temporary);
        fs::rename(home.path("source"), home.path(temporary->name()));
        EXPECT_TRUE(temporary->setUse(LeftoverUse::remove));
    }
    EXPECT_NE(names(home.path()), "") << "only what was looked at is removed at once";
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedRemovals, keepOneNameOfAFileThatHasBoth) {
    home.write("source", "x");
    hideAndDie("source");
    fs::create_hard_link(home.path(names(home.path())), home.path("source"));
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "source");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedRemovals, leaveAnotherFileUnderTheTemporaryName) {
    home.write(part, "another");
    record(digits, {.url = home.url(part),
                    .inode = inode(part) + 1,
                    .use = LeftoverUse::putBack,
                    .properName = "source"});
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), part);
    EXPECT_EQ(records(), digits);
}

TEST_F(UnfinishedCopies, stayRecordedOnceOthersMayHaveWrittenIntoThem) {
    {
        auto temporary = unfinished.temporaryForCopy(home.url("final"), folder.get());
        ASSERT_TRUE(temporary);
        home.write(std::string(temporary->name()) + "/theirs", "x");
        EXPECT_TRUE(temporary->setUse(LeftoverUse::putBack));
    }
    EXPECT_NE(records(), "");
    Unfinished(own.url("unfinished")).removeRecorded();
    EXPECT_EQ(names(home.path()), "final");
    EXPECT_EQ(contents(home.path("final/theirs")), "x");
    EXPECT_EQ(records(), "");
}

TEST_F(UnfinishedCopies, areNeverFollowedWhereALinkLeads) {
    home.write("mine/file", "x");
    fs::create_directory_symlink(home.path("mine"), home.path(part));
    record(digits, {.url = home.url(part)});
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), "mine");
    EXPECT_EQ(names(home.path("mine")), "file");
}

TEST_F(UnfinishedCopies, areToldByTheirNameAlone) {
    home.write("mine", "x");
    home.write(part, "x");
    home.write(".nookwise-other.part", "x");
    const auto before = names(home.path());
    const std::string other = "11111111111111111111111111111111";
    record(digits, {.url = home.url("mine")});
    record(other, {.url = home.url(part)});
    record("other", {.url = home.url(".nookwise-other.part")});
    own.write("unfinished/22222222222222222222222222222222", home.url(part).path());
    fs::create_symlink(digits, own.path("unfinished/33333333333333333333333333333333"));
    own.makeFolder("unfinished/44444444444444444444444444444444");
    own.makePipe("unfinished/55555555555555555555555555555555");
    const auto recordsBefore = records();
    unfinished.removeRecorded();
    EXPECT_EQ(names(home.path()), before);
    EXPECT_EQ(records(), recordsBefore);
}

TEST_F(UnfinishedCopies, needNoFolderWhileThereAreNone) {
    unfinished.removeRecorded();
    EXPECT_EQ(names(own.path()), "");
}

TEST_F(UnfinishedCopies, cannotBeginWithoutARecord) {
    own.write("unfinished", "a file in the way");
    EXPECT_FALSE(unfinished.temporaryForCopy(home.url("final"), folder.get()));
    EXPECT_EQ(errno, ENOTDIR);
}

TEST(UnfinishedRecords, areReadBackAsWritten) {
    const FileUrl url("/\xff\n%/" + part);
    const UnfinishedRecord any{.url = url};
    const UnfinishedRecord one{.url = url, .inode = 18'446'744'073'709'551'615U};
    EXPECT_EQ(decoded(digits, encoded(any)), any);
    EXPECT_EQ(decoded(digits, encoded(one)), one);
    auto two = one;
    two.use = LeftoverUse::putBack;
    two.properName = "\xff\n";
    EXPECT_EQ(decoded(digits, encoded(two)), two);
}

TEST(UnfinishedRecords, getAnotherUseByTheirFirstByteAlone) {
    UnfinishedRecord record{
        .url = FileUrl("/a/" + part), .inode = 7, .use = LeftoverUse::putBack, .properName = "b"};
    auto text = encoded(record);
    text.front() = useMark(LeftoverUse::remove);
    record.use = LeftoverUse::remove;
    EXPECT_EQ(decoded(digits, text), record);
}

TEST(UnfinishedRecords, putNothingBackOutsideTheFolder) {
    for (const auto* const name : {"", ".", "..", "../a", "/a"}) {
        const UnfinishedRecord record{.url = FileUrl("/a/" + part),
                                      .inode = 7,
                                      .use = LeftoverUse::putBack,
                                      .properName = name};
        EXPECT_FALSE(decoded(digits, encoded(record))) << name;
    }
}

TEST(UnfinishedRecords, areNothingWhenCutShortOrOfAnotherName) {
    const auto whole = encoded({.url = FileUrl("/a/" + part), .inode = 7});
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decoded(digits, whole.substr(0, length))) << length;
    EXPECT_FALSE(decoded("11111111111111111111111111111111", whole));
    EXPECT_FALSE(decoded(digits, whole + "x"));
    EXPECT_FALSE(decoded(digits, encoded({.url = FileUrl("a/" + part)})));
}

}  // namespace
}  // namespace nookwise
