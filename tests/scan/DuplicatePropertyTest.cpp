#include "tests/scan/DuplicateFixture.h"
#include "tests/scan/ThreeStages.h"

#include <array>
#include <random>

namespace nookwise {
namespace {

/// Corpora in which nearly everything looks like a copy of something, made from a number.
class RandomCorpus : public DuplicateFixture, public testing::WithParamInterface<unsigned> {
  protected:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }

    template <typename T, std::size_t count>
    T oneOf(const std::array<T, count>& choices) {
        return choices[below(count)];
    }

    std::string path(int number) {
        static constexpr std::array<std::string_view, 5> folders{
            "/home/user/Documents/", "/home/user/Downloads/", "/home/user/Desktop/",
            "/home/user/Desktop/deep/", "/home/user/Downloads/Desktop/"};
        static constexpr std::array<std::string_view, 6> marks{"",     "",     " copy",
                                                               " (2)", "(17)", " (x)"};
        static constexpr std::array<std::string_view, 7> exts{".pdf", ".PDF", ".jpg",  ".7z",
                                                              ".txt", "",     ".Pages"};
        return std::string(oneOf(folders)) + "file" + std::to_string(number) +
               std::string(oneOf(marks)) + std::string(oneOf(exts));
    }

    std::string randomContents() {
        static constexpr std::array<std::size_t, 8> sizes{60'000, 65'535,  65'536,  65'537,
                                                          66'000, 131'072, 262'145, 300'000};
        static constexpr std::array<std::size_t, 9> offsets{
            0, 4'095, 4'096, 65'535, 65'536, 131'071, 262'143, 262'144, 299'999};
        auto contents = contentsOf(oneOf(std::array{'x', 'y'}), oneOf(sizes));
        for (std::size_t changes = below(3); changes > 0; --changes) {
            const auto offset = oneOf(offsets);
            if (offset < contents.size()) contents[offset] = oneOf(std::array{'a', 'b'});
        }
        return contents;
    }

    std::optional<Date> date() {
        if (below(3) == 0) return std::nullopt;
        return Date{Seconds{static_cast<double>(below(4))}};
    }

    /// Sometimes larger than the contents, as after preallocation.
    std::int64_t allocated(std::size_t size) {
        static constexpr std::array<std::int64_t, 4> rooms{0, 0, 131'072, 400'000};
        return std::max(oneOf(rooms), static_cast<std::int64_t>(size));
    }

    void addRandomFile(int number) {
        const auto place = path(number);
        auto contents = randomContents();
        contents_.insert_or_assign(FileUrl(place), contents);
        const auto room = allocated(contents.size());
        add(place, {.contents = std::move(contents),
                    .allocated = room,
                    .modified = date(),
                    .added = date()});
        if (below(12) == 0) {
            files.makeUnreadable(place);
            contents_.erase(FileUrl(place));
        }
    }

    std::mt19937 random_{GetParam()};
    std::map<FileUrl, std::string> contents_;
};

TEST_P(RandomCorpus, hasTheCopiesThatTheDefinitionSays) {
    const auto count = static_cast<int>(80 + below(120));
    for (int number = 0; number < count; ++number) addRandomFile(number);
    const auto expected = threeStages(candidates, contents_);
    const auto found = find();
    ASSERT_FALSE(expected.empty());
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].id, expected[i].id) << "group " << i;
        EXPECT_EQ(found[i].keep, expected[i].keep) << "group " << i;
        EXPECT_EQ(found[i].files, expected[i].files) << "group " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCorpus, testing::Range(1u, 41u));

}  // namespace
}  // namespace nookwise
