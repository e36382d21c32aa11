#include "model/DuplicateGroup.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

FileItem file(std::string_view path, std::int64_t size = 10) {
    return {.url = FileUrl(path), .size = size};
}

TEST(DuplicateGroup, keepsTheFileAtKeepAndOffersTheOthersInListOrder) {
    const DuplicateGroup group{"id", {file("/a"), file("/b"), file("/c")}, FileUrl("/b")};
    ASSERT_NE(group.keptFile(), nullptr);
    EXPECT_EQ(*group.keptFile(), file("/b"));
    EXPECT_EQ(group.extras(), (std::vector{file("/a"), file("/c")}));
}

TEST(DuplicateGroup, whoseKeepMatchesNoFileHasNoKeptFileAndOffersAll) {
    const DuplicateGroup group{"id", {file("/a"), file("/b")}, FileUrl("/elsewhere")};
    EXPECT_EQ(group.keptFile(), nullptr);
    EXPECT_EQ(group.extras(), group.files);
}

TEST(DuplicateGroup, keptFileIsTheFirstOfSeveralAtKeep) {
    const DuplicateGroup group{"id", {file("/a", 1), file("/a", 2), file("/b", 3)}, FileUrl("/a")};
    EXPECT_EQ(group.keptFile(), &group.files[0]);
    EXPECT_EQ(group.extras(), (std::vector{file("/b", 3)}));
}

TEST(DuplicateGroup, withoutFilesHasNeitherKeptFileNorExtras) {
    const DuplicateGroup group;
    EXPECT_EQ(group.keptFile(), nullptr);
    EXPECT_TRUE(group.extras().empty());
}

TEST(DuplicateGroup, differsAndHashesDifferentlyWhenAnyFieldDiffers) {
    const std::hash<DuplicateGroup> hash;
    const DuplicateGroup group{"id", {file("/a"), file("/b")}, FileUrl("/a")};
    const DuplicateGroup same = group;
    EXPECT_EQ(group, same);
    EXPECT_EQ(hash(group), hash(same));
    const DuplicateGroup otherId{"other", group.files, group.keep};
    const DuplicateGroup otherOrder{"id", {file("/b"), file("/a")}, group.keep};
    const DuplicateGroup fewerFiles{"id", {file("/a")}, group.keep};
    const DuplicateGroup otherKeep{"id", group.files, FileUrl("/b")};
    for (const auto& other : {otherId, otherOrder, fewerFiles, otherKeep}) {
        EXPECT_NE(group, other);
        EXPECT_NE(hash(group), hash(other));
    }
}

TEST(WastedBytes, areTheFirstFilesSizeForEachFurtherCopy) {
    EXPECT_EQ(wastedBytes({}), 0);
    EXPECT_EQ(wastedBytes({"id", {file("/a", 20)}, FileUrl("/a")}), 0);
    EXPECT_EQ(wastedBytes({"id", {file("/a", 10), file("/b", 99), file("/c", 99)}, FileUrl("/b")}),
              20);
}

TEST(WastedBytesDeathTest, stopTheProgramWhenTheyOverflow) {
    const auto most = std::numeric_limits<std::int64_t>::max();
    const DuplicateGroup group{
        "id", {file("/a", most), file("/b", most), file("/c", most)}, FileUrl("/a")};
    EXPECT_DEATH(wastedBytes(group), "overflow");
}

}  // namespace
}  // namespace nookwise
