#include "platform/linux/LinuxFileManager.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/KeptHome.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace nookwise::demo {
namespace {

namespace fs = std::filesystem;

constexpr Date firstStart{Seconds{1'773'500'966}};
constexpr Date secondStart = firstStart + std::chrono::hours(50);
constexpr std::int64_t agreedSize = 1'310'000'000;

class HomeThatStays : public ::testing::Test {
  protected:
    /// One start of the demo, over a home with one film.
    Result<KeptHome> start(Date now) const {
        return start(now, [this](const FileUrl& home, Date made) -> Result<AgreedFiles> {
            root.write("cache/home/Downloads/film.mov", "film");
            return AgreedFiles{{home.append("Downloads").append("film.mov"),
                                {.added = made - std::chrono::hours(24),
                                 .lastUsed = made,
                                 .allocatedSize = agreedSize}}};
        });
    }

    Result<KeptHome> start(Date now, const HomeMaker& make) const {
        const auto own = OwnFolder::claim(root.url("cache"));
        if (!own) return own.error();
        return keptHome(own.value(), now, make);
    }

    /// What a start says about the film.
    Result<FileAttributes> attributes(const KeptHome& kept) const {
        LinuxFileManager real(root.url("data"));
        return DatedFileManager(real, kept.agreed).attributes(film());
    }

    FileUrl film() const { return root.url("cache/home/Downloads/film.mov"); }
    bool hasFilm() const { return fs::exists(std::string(film().path())); }

    TemporaryFolder root;
};

TEST_F(HomeThatStays, isMadeAtTheFirstStart) {
    const auto first = start(firstStart);
    ASSERT_TRUE(first);
    EXPECT_EQ(first.value().home, root.url("cache/home"));
    EXPECT_TRUE(hasFilm());
}

TEST_F(HomeThatStays, isAsItWasLeft) {
    ASSERT_TRUE(start(firstStart));
    fs::remove(std::string(film().path()));
    root.write("cache/home/Desktop/mine.txt", "mine");
    const auto second = start(secondStart);
    ASSERT_TRUE(second);
    EXPECT_EQ(second.value().home, root.url("cache/home"));
    EXPECT_FALSE(hasFilm());
    EXPECT_TRUE(fs::exists(root.path("cache/home/Desktop/mine.txt")));
}

TEST_F(HomeThatStays, keepsItsAgreedDatesAndSizes) {
    ASSERT_TRUE(start(firstStart));
    const auto second = start(secondStart);
    ASSERT_TRUE(second);
    ASSERT_TRUE(second.value().agreed.contains(film()));
    EXPECT_EQ(second.value().agreed.at(film()).lastUsed, firstStart);
    const auto found = attributes(second.value());
    ASSERT_TRUE(found);
    EXPECT_EQ(found.value().added, firstStart - std::chrono::hours(24));
    EXPECT_EQ(found.value().allocatedSize, agreedSize);
}

TEST_F(HomeThatStays, agreesOnAFileThatComesBackFromTheTrashAfterARestart) {
    const auto first = start(firstStart);
    ASSERT_TRUE(first);
    const auto before = attributes(first.value());
    ASSERT_TRUE(before);
    LinuxFileManager files(first.value().home.append(".local").append("share"));
    const auto place = files.trash(film());
    ASSERT_TRUE(place);
    ASSERT_TRUE(place.value());
    const auto second = start(secondStart);
    ASSERT_TRUE(second);
    ASSERT_FALSE(attributes(second.value()));
    ASSERT_TRUE(files.move(*place.value(), film()));
    const auto after = attributes(second.value());
    ASSERT_TRUE(after);
    EXPECT_EQ(after.value().added, before.value().added);
    EXPECT_EQ(after.value().allocatedSize, before.value().allocatedSize);
}

TEST_F(HomeThatStays, isMadeAnewAfterAStartThatWasKilledWhileItWasMade) {
    ASSERT_TRUE(start(firstStart));
    fs::remove_all(root.path("cache/home"));
    const auto killed = start(firstStart, [this](const FileUrl& home, Date) -> Result<AgreedFiles> {
        root.write("cache/home/Desktop/half.txt", "half");
        return FileError{std::make_error_code(std::errc::interrupted), home, "make"};
    });
    ASSERT_FALSE(killed);
    ASSERT_TRUE(fs::exists(root.path("cache/home/Desktop/half.txt")));
    ASSERT_TRUE(start(secondStart));
    EXPECT_FALSE(fs::exists(root.path("cache/home/Desktop/half.txt")));
    EXPECT_TRUE(hasFilm());
}

TEST_F(HomeThatStays, isMadeAnewWhenWhatWasAgreedCannotBeRead) {
    ASSERT_TRUE(start(firstStart));
    root.write("cache/home-agreed", "nookwise-demo agreed files, format 1\n5 -");
    const auto second = start(secondStart);
    ASSERT_TRUE(second);
    EXPECT_EQ(second.value().agreed.at(film()).lastUsed, secondStart);
}

TEST_F(HomeThatStays, isMadeAnewWhenSomebodyRemovedIt) {
    for (const auto* removed : {"cache/home", "cache"}) {
        ASSERT_TRUE(start(firstStart));
        fs::remove_all(root.path(removed));
        ASSERT_TRUE(start(secondStart));
        EXPECT_TRUE(hasFilm()) << removed;
    }
}

TEST_F(HomeThatStays, isNeverBehindALink) {
    ASSERT_TRUE(start(firstStart));
    fs::rename(root.path("cache/home"), root.path("elsewhere"));
    fs::create_directory_symlink(root.path("elsewhere"), root.path("cache/home"));
    ASSERT_TRUE(start(secondStart));
    EXPECT_FALSE(fs::is_symlink(root.path("cache/home")));
    EXPECT_TRUE(fs::exists(root.path("elsewhere/Downloads/film.mov")));
}

TEST_F(HomeThatStays, failsWhereItCannotBeKept) {
    const auto failed = start(secondStart, [this](const FileUrl&, Date) -> Result<AgreedFiles> {
        root.write("cache/home-agreed/in the way", "");
        return AgreedFiles{};
    });
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().url, root.url("cache/home-agreed"));
}

}  // namespace
}  // namespace nookwise::demo
