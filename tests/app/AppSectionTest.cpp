#include "app/AppSection.h"

#include <optional>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

std::vector<AppSection> everySection() {
    std::vector<AppSection> sections{AppSection::home,
                                     AppSection::search,
                                     AppSection::recent,
                                     AppSection::screenshots,
                                     AppSection::apps,
                                     AppSection::split,
                                     AppSection::sweep,
                                     AppSection::duplicates,
                                     AppSection::activity,
                                     AppSection::folder("Desktop"),
                                     AppSection::folder("Documents"),
                                     AppSection::folder("")};
    for (const auto kind : allShelfKinds) sections.push_back(AppSection::shelf(kind));
    return sections;
}

template <typename Payload>
std::optional<Payload> copyOf(const Payload* payload) {
    return payload == nullptr ? std::nullopt : std::optional<Payload>(*payload);
}

TEST(AppSection, isEqualToItselfAndToNoOther) {
    const auto sections = everySection();
    for (std::size_t i = 0; i < sections.size(); ++i) {
        for (std::size_t j = 0; j < sections.size(); ++j)
            EXPECT_EQ(sections[i] == sections[j], i == j);
    }
}

TEST(AppSection, isHashedWithItsPayload) {
    std::unordered_set<AppSection> set;
    for (const auto& section : everySection()) EXPECT_TRUE(set.insert(section).second);
    for (const auto& section : everySection()) EXPECT_TRUE(set.contains(section));
}

TEST(AppSection, tellsWhichCaseItIs) {
    EXPECT_EQ(copyOf(AppSection::sweep.asPlain()), AppSection::Plain::sweep);
    EXPECT_EQ(AppSection::sweep.asShelf(), nullptr);
    EXPECT_EQ(AppSection::sweep.asFolder(), nullptr);
    const auto shelf = AppSection::shelf(ShelfKind::docs);
    EXPECT_EQ(copyOf(shelf.asShelf()), ShelfKind::docs);
    EXPECT_EQ(shelf.asPlain(), nullptr);
    const auto folder = AppSection::folder("Desktop");
    EXPECT_EQ(copyOf(folder.asFolder()), "Desktop");
    EXPECT_EQ(folder.asShelf(), nullptr);
}

}  // namespace
}  // namespace nookwise
