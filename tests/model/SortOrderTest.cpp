#include "model/SortOrder.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

// The locale of a desktop that was set up without one, chosen before anything asks for the user's.
const int localeIsChosen = setenv("LC_ALL", "C.UTF-8", 1);

Date at(double seconds) {
    return Date{Seconds{seconds}};
}

FileItem named(std::string_view name, std::int64_t size = 0) {
    return {.url = FileUrl("/home/user").append(name), .size = size};
}

std::vector<std::string> names(const std::vector<FileItem>& files) {
    std::vector<std::string> result;
    for (const auto& file : files) result.emplace_back(file.url.lastPathComponent());
    return result;
}

using Names = std::vector<std::string>;

TEST(SortOrder, hasThreeOrdersWithTheirTexts) {
    Names texts;
    for (const auto order : allSortOrders) texts.emplace_back(rawValue(order));
    EXPECT_EQ(texts, (Names{"date", "size", "name"}));
}

TEST(SortByDate, takesLastUsedThenAddedThenModifiedNewestFirst) {
    auto used = named("used");
    used.lastUsed = at(30);
    used.added = at(100);
    used.modified = at(100);
    auto added = named("added");
    added.added = at(20);
    added.modified = at(100);
    auto modified = named("modified");
    modified.modified = at(10);
    const auto none = named("none");
    EXPECT_EQ(names(apply(SortOrder::date, {none, modified, added, used})),
              (Names{"used", "added", "modified", "none"}));
}

TEST(SortByDate, putsAFileWithoutDatesAfterTheOldestOne) {
    auto ancient = named("ancient");
    ancient.modified = at(-1e12);
    EXPECT_EQ(names(apply(SortOrder::date, {named("none"), ancient})), (Names{"ancient", "none"}));
}

TEST(SortBySize, putsTheLargestFirst) {
    EXPECT_EQ(names(apply(SortOrder::size,
                          {named("b", 2), named("c", 3), named("a", 1), named("z", -1)})),
              (Names{"c", "b", "a", "z"}));
}

TEST(SortByName, isThatOfAFileViewer) {
    EXPECT_EQ(names(apply(SortOrder::name,
                          {named("file 10"), named("File 9"), named("beta"), named("Alpha")})),
              (Names{"Alpha", "beta", "File 9", "file 10"}));
}

TEST(SortByName, comparesTheLastPathComponentOnly) {
    const FileItem first{.url = FileUrl("/z/a.txt")};
    const FileItem second{.url = FileUrl("/a/b.txt")};
    EXPECT_EQ(names(apply(SortOrder::name, {second, first})), (Names{"a.txt", "b.txt"}));
}

TEST(SortByName, takesNamesThatAreNotUtf8) {
    EXPECT_EQ(names(apply(SortOrder::name, {named("b\xff"), named("a\xfe")})),
              (Names{"a\xfe", "b\xff"}));
}

class EverySortOrder : public testing::TestWithParam<SortOrder> {};

TEST_P(EverySortOrder, keepsTheOrderOfEqualFiles) {
    std::vector<FileItem> files;
    for (int i = 0; i < 200; ++i) {
        files.push_back(
            {.url = FileUrl("/" + std::to_string(i) + "/same name"), .size = 7, .added = at(7)});
    }
    EXPECT_EQ(apply(GetParam(), files), files);
}

TEST_P(EverySortOrder, leavesItsInputAsItWas) {
    const std::vector<FileItem> files{named("b", 1), named("a", 2)};
    const auto before = files;
    EXPECT_EQ(apply(GetParam(), files).size(), 2u);
    EXPECT_EQ(files, before);
    EXPECT_TRUE(apply(GetParam(), {}).empty());
}

INSTANTIATE_TEST_SUITE_P(Orders, EverySortOrder, testing::ValuesIn(allSortOrders));

TEST(SortByName, equalButForCaseKeepTheirOrder) {
    EXPECT_EQ(names(apply(SortOrder::name, {named("B"), named("a"), named("b"), named("A")})),
              (Names{"a", "A", "B", "b"}));
}

TEST(ListedDate, isLastUsedElseAddedElseModifiedElseTheDistantPast) {
    FileItem file;
    EXPECT_EQ(listedDate(file), distantPast);
    file.modified = at(1);
    EXPECT_EQ(listedDate(file), at(1));
    file.added = at(-2);
    EXPECT_EQ(listedDate(file), at(-2));
    file.lastUsed = at(-3);
    EXPECT_EQ(listedDate(file), at(-3));
}

TEST(ArrivalDate, doesNotLookAtLastUsed) {
    FileItem file;
    file.lastUsed = at(5);
    EXPECT_EQ(arrivalDate(file), distantPast);
    file.modified = at(1);
    EXPECT_EQ(arrivalDate(file), at(1));
    file.added = at(-2);
    EXPECT_EQ(arrivalDate(file), at(-2));
}

}  // namespace
}  // namespace nookwise
