#include "tests/ui/StoreFixture.h"
#include "ui/rename/RenameModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class RenameModelTest : public StoreFixture {
  protected:
    /// A file in the Downloads folder, on the disk too.
    FileItem add(std::string_view name, std::optional<std::string_view> text = std::nullopt) {
        const auto url = FileUrl("/home/user/Downloads").append(name);
        fake.files.addFile(url.path());
        if (text) {
            store->texts.mutate([&](TextsByUrl& texts) {
                texts.insert_or_assign(url, SharedBytes(*text));
                return true;
            });
        }
        return {.url = url, .size = megabyte, .added = fake.clock.now()};
    }

    void openSome() {
        store->renameFiles.set(std::vector{add("scan-0091.pdf", "Fernhill Garden Trust"),
                                           add("scan-0092.pdf", "Fernhill Garden Trust"),
                                           add("IMG_4471.heic"), add("map.png", "Harbour road")});
    }

    QStringList newNames() { return texts(model.rows(), "newName"); }
    QStringList ticks() { return texts(model.rows(), "ticked"); }
    bool exists(std::string_view name) {
        return fake.files.exists(FileUrl("/home/user/Downloads").append(name));
    }

    RenameModel model{*store};
};

TEST_F(RenameModelTest, isClosedUntilThereAreFiles) {
    EXPECT_FALSE(model.open());
    const QSignalSpy changes(&model, &RenameModel::openChanged);
    openSome();
    EXPECT_TRUE(model.open());
    EXPECT_EQ(changes.count(), 1);
    model.cancel();
    EXPECT_FALSE(model.open());
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(model.rows()->rowCount(), 0);
}

TEST_F(RenameModelTest, startsWithTheTextAndWithEveryNewNameTicked) {
    openSome();
    EXPECT_TRUE(model.useText());
    EXPECT_FALSE(model.useDate());
    EXPECT_FALSE(model.dashed());
    EXPECT_EQ(newNames(), (QStringList{"Fernhill Garden Trust.pdf", "Fernhill Garden Trust (2).pdf",
                                       "IMG_4471.heic", "Harbour road.png"}));
    EXPECT_EQ(ticks(), (QStringList{"true", "true", "false", "true"}));
    EXPECT_EQ(model.renameText(), "Rename 3 files");
    EXPECT_TRUE(model.canRename());
}

TEST_F(RenameModelTest, tellsWhatARowIs) {
    openSome();
    const auto* rows = model.rows();
    EXPECT_EQ(texts(rows, "name"),
              (QStringList{"scan-0091.pdf", "scan-0092.pdf", "IMG_4471.heic", "map.png"}));
    EXPECT_EQ(texts(rows, "note"), (QStringList{"", "same name", "no text found — name kept", ""}));
    EXPECT_EQ(texts(rows, "sameName"), (QStringList{"false", "true", "false", "false"}));
    EXPECT_EQ(texts(rows, "renames"), (QStringList{"true", "true", "false", "true"}));
    EXPECT_EQ(text(rows, 0, "kindGroup"), "pdf");
    EXPECT_TRUE(text(rows, 0, "picture").startsWith("image://thumbnail/"));
}

TEST_F(RenameModelTest, speaksARowInOneSentence) {
    openSome();
    EXPECT_EQ(texts(model.rows(), "spoken"),
              (QStringList{"scan-0091.pdf becomes Fernhill Garden Trust.pdf",
                           "scan-0092.pdf becomes Fernhill Garden Trust (2).pdf, same name",
                           "IMG_4471.heic, no text found — name kept",
                           "map.png becomes Harbour road.png"}));
    model.setUseText(false);
    EXPECT_EQ(text(model.rows(), 0, "spoken"), "scan-0091.pdf, name kept");
}

TEST_F(RenameModelTest, plansAnewWithOtherOptions) {
    openSome();
    const QSignalSpy planned(&model, &RenameModel::planned);
    model.setUseDate(true);
    model.setDashed(true);
    EXPECT_EQ(newNames().first(), "fernhill-garden-trust-2023-11-14.pdf");
    EXPECT_EQ(newNames().at(2), "2023-11-14.heic");
    EXPECT_EQ(planned.count(), 2);
    model.setUseText(false);
    model.setUseDate(false);
    EXPECT_EQ(newNames().first(), "scan-0091.pdf");
    EXPECT_EQ(model.renameText(), "Rename 0 files");
    EXPECT_FALSE(model.canRename());
    EXPECT_FALSE(model.canTick());
    model.setUseText(true);
    model.setUseText(true);
    EXPECT_EQ(planned.count(), 5);
}

TEST_F(RenameModelTest, ticksARowThatComesToHaveANewName) {
    openSome();
    model.setUseDate(true);
    EXPECT_EQ(ticks(), (QStringList{"true", "true", "true", "true"}));
    EXPECT_EQ(model.tickState(), Qt::Checked);
}

TEST_F(RenameModelTest, keepsWhatTheUserUntickedThroughOtherOptions) {
    openSome();
    model.turn(0);
    EXPECT_EQ(ticks(), (QStringList{"false", "true", "false", "true"}));
    model.setUseDate(true);
    EXPECT_EQ(ticks(), (QStringList{"false", "true", "true", "true"}));
    model.setUseDate(false);
    model.setUseText(false);
    EXPECT_EQ(ticks(), (QStringList{"false", "false", "false", "false"}));
    model.setUseText(true);
    EXPECT_EQ(ticks(), (QStringList{"false", "true", "false", "true"}));
    model.turn(0);
    EXPECT_EQ(model.renameText(), "Rename 3 files");
}

TEST_F(RenameModelTest, leavesARowThatKeepsItsNameUnticked) {
    openSome();
    model.turn(2);
    EXPECT_EQ(text(model.rows(), 2, "ticked"), "false");
    model.setUseDate(true);
    EXPECT_EQ(text(model.rows(), 2, "ticked"), "true") << "it was never the user's to untick";
    model.turn(-1);
    model.turn(99);
}

TEST_F(RenameModelTest, ticksAllAndNone) {
    openSome();
    EXPECT_EQ(model.tickState(), Qt::PartiallyChecked);
    EXPECT_EQ(model.tickedText(), "3 of 4");
    model.turnAll();
    EXPECT_EQ(model.tickState(), Qt::Unchecked);
    EXPECT_EQ(model.renameText(), "Rename 0 files");
    model.turn(3);
    EXPECT_EQ(model.renameText(), "Rename 1 file");
    model.turnAll();
    EXPECT_EQ(model.tickedText(), "3 of 4");
    model.tickNone();
    EXPECT_EQ(model.tickedText(), "0 of 4");
    model.tickAll();
    EXPECT_EQ(model.tickedText(), "3 of 4");
}

TEST_F(RenameModelTest, followsTextsThatAreReadMeanwhile) {
    openSome();
    model.turn(0);
    add("IMG_4471.heic", "Sunset over the bay");
    EXPECT_EQ(newNames().at(2), "Sunset over the bay.heic");
    EXPECT_EQ(ticks(), (QStringList{"false", "true", "true", "true"}));
    EXPECT_EQ(model.renameText(), "Rename 3 files");
}

TEST_F(RenameModelTest, losesRowsOfFilesThatGo) {
    openSome();
    model.turn(3);
    const QSignalSpy resets(model.rows(), &QAbstractItemModel::modelReset);
    auto files = *store->renameFiles.get();
    files.erase(files.begin() + 1);
    store->renameFiles.set(files);
    EXPECT_EQ(texts(model.rows(), "name"),
              (QStringList{"scan-0091.pdf", "IMG_4471.heic", "map.png"}));
    EXPECT_EQ(ticks(), (QStringList{"true", "false", "false"}));
    EXPECT_EQ(resets.count(), 0) << "the list keeps its place";
    files.erase(files.begin());
    files.push_back(add("new.pdf", "A new letter"));
    files.push_back(add("newer.pdf", "A newer letter"));
    store->renameFiles.set(files);
    EXPECT_EQ(ticks(), (QStringList{"false", "false", "true", "true"}));
}

TEST_F(RenameModelTest, carriesNoTickToAnotherFileInItsPlace) {
    openSome();
    model.turn(0);
    auto files = *store->renameFiles.get();
    std::swap(files[0], files[1]);
    store->renameFiles.set(files);
    EXPECT_EQ(ticks(), (QStringList{"true", "false", "false", "true"}));
    files[1] = add("new.pdf", "A new letter");
    files[1].size = 77;
    store->renameFiles.set(files);
    EXPECT_EQ(ticks(), (QStringList{"true", "true", "false", "true"}));
}

TEST_F(RenameModelTest, keepsTheTicksOfFilesThatMove) {
    openSome();
    model.turn(0);
    auto files = *store->renameFiles.get();
    files.front().url = FileUrl("/home/user/Documents/scan-0091.pdf");
    store->renameFiles.set(files);
    EXPECT_EQ(text(model.rows(), 0, "renames"), "false") << "its text is not here";
    store->texts.mutate([&](TextsByUrl& texts) {
        texts.insert_or_assign(files.front().url, SharedBytes("Fernhill Garden Trust"));
        return true;
    });
    EXPECT_EQ(ticks(), (QStringList{"false", "true", "false", "true"}));
}

TEST_F(RenameModelTest, renamesWhatIsTickedAndCloses) {
    openSome();
    model.turn(0);
    const QSignalSpy changes(&model, &RenameModel::openChanged);
    model.apply();
    EXPECT_FALSE(model.open());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(store->toast.get()->message, "Renamed 2 files");
    EXPECT_TRUE(exists("scan-0091.pdf"));
    EXPECT_TRUE(exists("Fernhill Garden Trust (2).pdf"));
    EXPECT_TRUE(exists("IMG_4471.heic"));
    EXPECT_TRUE(exists("Harbour road.png"));
}

TEST_F(RenameModelTest, renamesNothingWithoutATick) {
    openSome();
    model.tickNone();
    model.apply();
    EXPECT_TRUE(model.open());
    EXPECT_FALSE(store->toast.get());
}

TEST_F(RenameModelTest, closesAlsoWhenNothingCouldBeRenamed) {
    openSome();
    fake.files.forbidChanges("/home/user/Downloads");
    model.apply();
    EXPECT_FALSE(model.open());
    EXPECT_EQ(store->toast.get()->message, "Couldn’t rename those files");
}

TEST_F(RenameModelTest, opensWithFreshOptionsAndTicks) {
    openSome();
    model.setUseDate(true);
    model.turn(0);
    model.cancel();
    openSome();
    EXPECT_FALSE(model.useDate());
    EXPECT_EQ(model.renameText(), "Rename 3 files");
}

TEST_F(RenameModelTest, closesWhenAnotherSectionIsShown) {
    openSome();
    store->section.set(AppSection::activity);
    EXPECT_FALSE(model.open());
    EXPECT_FALSE(store->renameFiles.get());
}

TEST_F(RenameModelTest, showsNamesThatAreNoTextAsOneLine) {
    store->renameFiles.set(std::vector{add("a\xff\n.p\xfe", "Invoice")});
    EXPECT_EQ(text(model.rows(), 0, "name"), QString::fromUtf8("a\uFFFD\uFFFD.p\uFFFD"));
    EXPECT_EQ(text(model.rows(), 0, "newName"), QString::fromUtf8("Invoice.p\uFFFD"));
}

}  // namespace
}  // namespace nookwise
