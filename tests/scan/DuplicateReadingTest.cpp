#include "tests/scan/DuplicateFixture.h"
#include "tests/support/FailingFileManager.h"

#include <atomic>
#include <mutex>

namespace nookwise {
namespace {

using Kind = FakeOperation::Kind;

class ReadingForDuplicates : public DuplicateFixture {
  protected:
    /// Runs `change` once, before the n-th operation of a kind on a file.
    void before(Kind kind, std::string_view path, int number, std::function<void()> change) {
        files.onOperation(
            [this, kind, url = FileUrl(path), number, change](const FakeOperation& operation) {
                if (operation.kind == kind && operation.url == url && ++seen_ == number) change();
            });
    }

    /// How many bytes' worth of reads were asked for; 0 unless watched before the search.
    void countOperations() {
        files.onOperation([this](const FakeOperation& operation) {
            if (operation.kind == Kind::read) ++reads_;
            if (operation.kind == Kind::open) ++opens_;
        });
    }

    std::atomic<int> reads_{0};
    std::atomic<int> opens_{0};

  private:
    std::atomic<int> seen_{0};
};

TEST_F(ReadingForDuplicates, opensNothingButFilesThatShareASize) {
    addHolding("/a.pdf", contentsOf('x', 70'000));
    addHolding("/b.pdf", contentsOf('x', 70'001));
    addHolding("/c.txt", contentsOf('x', 70'000));
    countOperations();
    EXPECT_TRUE(find().empty());
    EXPECT_EQ(opens_, 0);
}

TEST_F(ReadingForDuplicates, readsLittleOfFilesThatDifferAtTheirBeginnings) {
    auto contents = contentsOf('x', 8'000'000);
    for (const auto* path : {"/a.mov", "/b.mov", "/c.mov"}) {
        contents[0] = path[1];
        addHolding(path, contents);
    }
    countOperations();
    EXPECT_TRUE(find().empty());
    EXPECT_LE(reads_, 6);
}

TEST_F(ReadingForDuplicates, leavesOutFilesThatCannotBeOpened) {
    for (const auto* path : {"/a.pdf", "/b.pdf", "/c.pdf"}) addHolding(path, contentsOf('x'));
    files.makeUnreadable("/b.pdf");
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/c.pdf"}}));
    files.makeUnreadable("/c.pdf");
    EXPECT_TRUE(find().empty());
}

TEST_F(ReadingForDuplicates, leavesOutFilesThatAreGoneOrHaveBecomeSomethingElse) {
    for (const auto* path : {"/a.pdf", "/b.pdf", "/c.pdf", "/d.pdf", "/e.pdf"})
        addHolding(path, contentsOf('x'));
    files.remove("/b.pdf");
    files.remove("/c.pdf");
    files.addFolder("/c.pdf");
    files.addOther("/d.pdf");
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/e.pdf"}}));
}

TEST_F(ReadingForDuplicates, leavesOutPackages) {
    for (const auto* path : {"/a.pages", "/b.pages"}) {
        files.addPackage(path, {.contents = contentsOf('x')});
        list(path);
    }
    EXPECT_TRUE(find().empty());
}

TEST_F(ReadingForDuplicates, doesNotFollowLinksThatTookTheirPlace) {
    addHolding("/a.pdf", contentsOf('x'));
    addHolding("/b.pdf", contentsOf('x'));
    files.addLink("/b.pdf", "/a.pdf");
    EXPECT_TRUE(find().empty());
}

// Each file is opened twice at most: once for a first look and once to be read.
class VanishingFile : public ReadingForDuplicates, public testing::WithParamInterface<int> {};

TEST_P(VanishingFile, isSilentlyLeftOut) {
    for (const auto* path : {"/a.pdf", "/b.pdf", "/c.pdf"}) addHolding(path, contentsOf('x'));
    before(Kind::open, "/b.pdf", GetParam(), [this] { files.remove("/b.pdf"); });
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/c.pdf"}}));
}

INSTANTIATE_TEST_SUITE_P(Openings, VanishingFile, testing::Values(1, 2));

struct Change {
    std::size_t newSize;
    int read;
};

class ChangingFile : public ReadingForDuplicates, public testing::WithParamInterface<Change> {};

TEST_P(ChangingFile, isInNoGroup) {
    for (const auto* path : {"/a.mov", "/b.mov", "/c.mov"})
        addHolding(path, contentsOf('x', 3'000'000));
    before(Kind::read, "/b.mov", GetParam().read, [this] {
        files.setContents("/b.mov", contentsOf('x', GetParam().newSize));
        files.setModified("/b.mov", Date{Seconds{1}});
    });
    EXPECT_EQ(groups(), (Groups{{"/a.mov", "/c.mov"}}));
}

// Grown, shrunk, emptied, and rewritten with the same length.
INSTANTIATE_TEST_SUITE_P(Changes, ChangingFile,
                         testing::Values(Change{3'000'001, 2}, Change{9'000'000, 2},
                                         Change{2'999'999, 2}, Change{100'000, 3}, Change{0, 2},
                                         Change{3'000'000, 2}, Change{3'000'001, 1}, Change{0, 1}));

class ChangingFileAmongHundreds : public ReadingForDuplicates,
                                  public testing::WithParamInterface<Change> {};

TEST_P(ChangingFileAmongHundreds, isInNoGroup) {
    std::vector<std::string> expected;
    for (int i = 100; i < 200; ++i) {
        expected.push_back("/" + std::to_string(i) + ".pdf");
        addHolding(expected.back(), contentsOf('x', 100'000));
    }
    expected.erase(expected.begin() + 50);
    before(Kind::read, "/150.pdf", GetParam().read, [this] {
        files.setContents("/150.pdf", contentsOf('x', GetParam().newSize));
        files.setModified("/150.pdf", Date{Seconds{1}});
    });
    EXPECT_EQ(groups(), (Groups{expected}));
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangingFileAmongHundreds,
                         testing::Values(Change{100'001, 1}, Change{100'001, 2}, Change{99'999, 2},
                                         Change{0, 2}, Change{100'000, 2}));

TEST_F(ReadingForDuplicates, countsAFileReachedTwiceOnce) {
    addHolding("/a.pdf", contentsOf('x'));
    files.addBindMount("/mount/a.pdf", "/a.pdf");
    list("/mount/a.pdf");
    EXPECT_TRUE(find().empty());
    addHolding("/b.pdf", contentsOf('x'));
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/b.pdf"}}));
}

TEST_F(ReadingForDuplicates, countsAPathGivenTwiceOnce) {
    addHolding("/a.pdf", contentsOf('x'));
    list("/a.pdf");
    EXPECT_TRUE(find().empty());
}

TEST_F(ReadingForDuplicates, listsHardLinksAsTheFilesThatTheyAreInTheFolders) {
    addHolding("/a.pdf", contentsOf('x'));
    files.addHardLink("/b.pdf", "/a.pdf");
    list("/b.pdf");
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/b.pdf"}}));
}

TEST_F(ReadingForDuplicates, listsNoMorePathsOfAFileThanItHasLinks) {
    addHolding("/a.pdf", contentsOf('x'));
    files.addHardLink("/b.pdf", "/a.pdf");
    list("/b.pdf");
    files.addBindMount("/mount/a.pdf", "/a.pdf");
    list("/mount/a.pdf");
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/b.pdf"}}));
}

TEST_F(ReadingForDuplicates, countsAFileReachedTwiceOnceAmongHundreds) {
    std::vector<std::string> expected;
    for (int i = 100; i < 200; ++i) {
        expected.push_back("/" + std::to_string(i) + ".pdf");
        addHolding(expected.back(), contentsOf('x'));
        files.addBindMount("/mount" + expected.back(), expected.back());
        list("/mount" + expected.back());
    }
    EXPECT_EQ(groups(), (Groups{expected}));
}

constexpr std::int64_t fiveTebibytes = 5'497'558'138'880;

TEST_F(ReadingForDuplicates, doesNotReadFiveTebibytesOfHoles) {
    for (const auto* path : {"/a.iso", "/b.iso"})
        add(path, {.size = fiveTebibytes, .allocated = 1'000'000});
    addHolding("/c.iso", contentsOf('\0', 1'000'000));
    addHolding("/d.iso", contentsOf('\0', 1'000'000));
    countOperations();
    EXPECT_EQ(groups(), (Groups{{"/c.iso", "/d.iso"}}));
    EXPECT_LE(reads_, 50);
}

TEST_F(ReadingForDuplicates, findsCopiesWithHoles) {
    for (const auto* path : {"/a.iso", "/b.iso"}) {
        add(path, {.contents = "beginning", .size = 20'000'000, .allocated = 100'000});
    }
    add("/c.iso", {.contents = "beginninG", .size = 20'000'000, .allocated = 100'000});
    EXPECT_EQ(groups(), (Groups{{"/a.iso", "/b.iso"}}));
}

TEST_F(ReadingForDuplicates, losesOnlyTheFileThatFails) {
    for (const auto* path : {"/a.pdf", "/b.pdf", "/c.pdf"})
        addHolding(path, contentsOf('x', 700'000));
    for (const auto* path : {"/d.zip", "/e.zip", "/f.zip"})
        addHolding(path, contentsOf('y', 100'000));
    const FailingFileManager counting(files, 0);
    ASSERT_EQ(findDuplicates(counting, candidates, {}).size(), 2u);
    for (int failing = 1; failing <= counting.operations(); ++failing) {
        const FailingFileManager faulty(files, failing);
        const auto found = findDuplicates(faulty, candidates, {});
        ASSERT_EQ(found.size(), 2u) << "operation " << failing;
        std::size_t listed = 0;
        for (const auto& group : found) {
            listed += group.files.size();
            EXPECT_EQ(group.keep, group.files.front().url);
            for (const auto& file : group.files) EXPECT_EQ(file.size, group.files.front().size);
        }
        EXPECT_EQ(listed, 5u) << "operation " << failing;
    }
}

TEST_F(ReadingForDuplicates, losesOnlyTheFileThatFailsAmongHundreds) {
    for (int i = 0; i < 80; ++i) addHolding("/" + std::to_string(i) + ".pdf", contentsOf('x'));
    const FailingFileManager counting(files, 0);
    ASSERT_EQ(findDuplicates(counting, candidates, {}).size(), 1u);
    for (int failing = 1; failing <= counting.operations(); failing += 11) {
        const FailingFileManager faulty(files, failing);
        const auto found = findDuplicates(faulty, candidates, {});
        ASSERT_EQ(found.size(), 1u) << "operation " << failing;
        EXPECT_EQ(found[0].files.size(), 79u) << "operation " << failing;
    }
}

}  // namespace
}  // namespace nookwise
