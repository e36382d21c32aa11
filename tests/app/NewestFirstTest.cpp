#include "app/NewestFirst.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

std::vector<FileItem> filesAt(const std::vector<Date>& dates) {
    std::vector<FileItem> files;
    for (std::size_t i = 0; i < dates.size(); ++i)
        files.push_back({.url = FileUrl("/" + std::to_string(i)), .added = dates[i]});
    return files;
}

void expectTheOrderOfAStableSort(const std::vector<Date>& dates) {
    const auto files = filesAt(dates);
    NewestFirst list;
    for (std::size_t i = 0; i < files.size(); ++i) list.add(*files[i].added, i);
    auto expected = files;
    std::ranges::stable_sort(expected, std::ranges::greater(), &FileItem::added);
    EXPECT_EQ(std::move(list).list(files), expected);
}

TEST(NewestFirstTest, isEmptyAtFirst) {
    EXPECT_TRUE(NewestFirst().isEmpty());
    EXPECT_TRUE(NewestFirst().list({}).empty());
}

class NewestFirstOf : public testing::TestWithParam<std::size_t> {};

TEST_P(NewestFirstOf, ordersDatesOfEveryKind) {
    const std::vector kinds{
        distantPast,        Date{Seconds{-1e9}},  Date{Seconds{-0.5}},         Date{Seconds{-0.0}},
        Date{Seconds{0.0}}, Date{Seconds{1.7e9}}, Date{Seconds{1.7e9 + 1e-6}}, Date{Seconds{1.8e9}},
        distantFuture};
    std::mt19937 random(1);
    std::vector<Date> dates;
    for (std::size_t i = 0; i < GetParam(); ++i) dates.push_back(kinds[random() % kinds.size()]);
    expectTheOrderOfAStableSort(dates);
}

TEST_P(NewestFirstOf, ordersRealDates) {
    std::mt19937_64 random(2);
    std::vector<Date> dates;
    for (std::size_t i = 0; i < GetParam(); ++i)
        dates.push_back(Date{Seconds{1.5e9 + double(random() % 300'000'000'000) / 1'000}});
    expectTheOrderOfAStableSort(dates);
}

TEST_P(NewestFirstOf, keepsTheOrderOfEqualDates) {
    expectTheOrderOfAStableSort(std::vector<Date>(GetParam(), Date{Seconds{5}}));
}

INSTANTIATE_TEST_SUITE_P(Counts, NewestFirstOf, testing::Values(1, 2, 499, 500, 501, 20'000));

}  // namespace
}  // namespace nookwise
