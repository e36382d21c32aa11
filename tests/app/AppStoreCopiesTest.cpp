#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

class Copies : public StoreFixture {
  protected:
    static DuplicateGroup group(std::string id, std::initializer_list<std::string_view> paths) {
        DuplicateGroup group{.id = std::move(id)};
        for (const auto path : paths) group.files.push_back(sized(path, 10));
        group.keep = group.files.front().url;
        return group;
    }

    void SetUp() override {
        store->duplicates.set({group("x", {"/a", "/b", "/c"}), group("y", {"/d", "/e"})});
    }
    const DuplicateGroup& at(std::size_t index) { return store->duplicates.get()[index]; }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(Copies, canEachBeTheOneToKeep) {
    store->setKeep("y", FileUrl("/e"));
    EXPECT_EQ(at(0).keep, FileUrl("/a"));
    EXPECT_EQ(at(1).keep, FileUrl("/e"));
}

TEST_F(Copies, ofAnUnknownGroupChangeNothing) {
    int told = 0;
    const auto watch = store->duplicates.observe([&] { ++told; });
    store->setKeep("z", FileUrl("/b"));
    EXPECT_EQ(told, 0);
    EXPECT_EQ(at(0).keep, FileUrl("/a"));
}

TEST_F(Copies, keptAnywayTellNobody) {
    int told = 0;
    const auto watch = store->duplicates.observe([&] { ++told; });
    store->setKeep("x", FileUrl("/a"));
    EXPECT_EQ(told, 0);
}

TEST_F(Copies, areNotCheckedAgainstTheGroup) {
    store->setKeep("x", FileUrl("/elsewhere"));
    EXPECT_EQ(at(0).keep, FileUrl("/elsewhere"));
}

TEST_F(Copies, ofTwoGroupsOfOneIdAreKeptInTheirOwn) {
    store->duplicates.set({group("x", {"/a", "/b"}), group("x", {"/c", "/d"})});
    store->setKeep("x", FileUrl("/d"));
    EXPECT_EQ(at(0).keep, FileUrl("/a")) << "else all of its copies would be offered";
    EXPECT_EQ(at(1).keep, FileUrl("/d"));
}

TEST_F(Copies, areOfferedForTheTrashInTheOrderOfTheGroups) {
    store->setKeep("x", FileUrl("/b"));
    store->trashDuplicates(store->duplicates.get());
    const auto& request = store->pendingTrash.get();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->files, (std::vector{sized("/a", 10), sized("/c", 10), sized("/e", 10)}));
    EXPECT_EQ(request->title, "Move 3 copies to the Trash?");
    EXPECT_EQ(request->source, "Duplicates");
    EXPECT_EQ(request->pile, PileKind::duplicates);
}

TEST_F(Copies, areNotAskedForWhereThereAreNone) {
    store->trashDuplicates({});
    store->trashDuplicates({group("x", {"/a"})});
    EXPECT_FALSE(store->pendingTrash.get());
}

TEST_F(Copies, leaveTheirGroupWhenTheyAreTrashed) {
    world.defaults.setBoolean("skipConfirm.Duplicates", true);
    for (const auto* path : {"/a", "/b", "/c", "/d", "/e"}) world.files.addFile(path);
    store->requestTrash({sized("/c", 10)}, PileKind::duplicates, "Duplicates");
    EXPECT_EQ(at(0), group("x", {"/a", "/b"}));
    store->requestTrash({sized("/a", 10), sized("/d", 10)}, PileKind::duplicates, "Duplicates");
    EXPECT_TRUE(store->duplicates.get().empty()) << "one file is no group";
}

TEST_F(Copies, thatAreAllGoneDoNotCountAsAClearedPile) {
    world.defaults.setBoolean("skipConfirm.Duplicates", true);
    for (const auto* path : {"/a", "/b", "/c", "/d", "/e"}) world.files.addFile(path);
    store->trashDuplicates(store->duplicates.get());
    EXPECT_TRUE(store->duplicates.get().empty());
    EXPECT_FALSE(store->justCleared.get());
}

}  // namespace
}  // namespace nookwise
