#include "tests/ui/StoreFixture.h"
#include "ui/transfer/TransferModel.h"

#include <QSignalSpy>

namespace nookwise {
namespace {

class TransferShown : public StoreFixture {
  protected:
    void show(TransferProgress progress) { store->transferProgress.set(progress); }

    TransferModel transfer{*store};
};

TEST_F(TransferShown, isNotThereAtFirst) {
    EXPECT_FALSE(transfer.running());
    EXPECT_FALSE(transfer.stopping());
    EXPECT_EQ(transfer.text(), QString());
    EXPECT_EQ(transfer.spokenText(), QString());
    EXPECT_EQ(transfer.fraction(), -1.0);
}

TEST_F(TransferShown, saysHowManyFilesAndBytesAreDone) {
    QSignalSpy changed(&transfer, &TransferModel::changed);
    show({2, 14, 1'200'000'000, 3'600'000'000});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(transfer.running());
    EXPECT_EQ(transfer.text(), QStringLiteral("2 of 14 · 1.2 GB of 3.6 GB"));
    EXPECT_DOUBLE_EQ(transfer.fraction(), 1.0 / 3.0);
    EXPECT_EQ(transfer.spokenText(), QStringLiteral("2 of 14, 30 per cent"));
}

TEST_F(TransferShown, ofOneFileSaysItsBytes) {
    show({0, 1, 1'200'000'000, 3'600'000'000});
    EXPECT_EQ(transfer.text(), QStringLiteral("1.2 GB of 3.6 GB"));
}

TEST_F(TransferShown, goesByFilesWhereTheBytesAreNotKnown) {
    show({3, 4, 0, std::nullopt});
    EXPECT_EQ(transfer.text(), QStringLiteral("3 of 4"));
    EXPECT_DOUBLE_EQ(transfer.fraction(), 0.75);
    show({3, 4, 1'500'000, std::nullopt});
    EXPECT_EQ(transfer.text(), QStringLiteral("3 of 4 · 1.5 MB"));
    EXPECT_DOUBLE_EQ(transfer.fraction(), 0.75);
}

TEST_F(TransferShown, ofOneFileOfUnknownSizeKnowsNoFraction) {
    show({0, 1, 0, std::nullopt});
    EXPECT_EQ(transfer.text(), QStringLiteral("0 of 1"));
    EXPECT_EQ(transfer.fraction(), -1.0);
    EXPECT_EQ(transfer.spokenText(), QStringLiteral("0 of 1"));
}

TEST_F(TransferShown, ofEmptyFilesGoesByFiles) {
    show({1, 2, 0, 0});
    EXPECT_EQ(transfer.text(), QStringLiteral("1 of 2"));
    EXPECT_DOUBLE_EQ(transfer.fraction(), 0.5);
}

TEST_F(TransferShown, stopsForTheMomentThatTakes) {
    show({2, 14, 0, std::nullopt});
    QSignalSpy changed(&transfer, &TransferModel::changed);
    transfer.cancel();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(transfer.stopping());
    EXPECT_EQ(transfer.text(), QStringLiteral("Stopping…"));
    EXPECT_EQ(transfer.spokenText(), QStringLiteral("Stopping…"));
    store->transferProgress.set(std::nullopt);
    EXPECT_FALSE(transfer.stopping());
    show({0, 3, 0, std::nullopt});
    EXPECT_FALSE(transfer.stopping()) << "the next one goes on";
    EXPECT_EQ(transfer.text(), QStringLiteral("0 of 3"));
}

TEST_F(TransferShown, isNotStoppingWhenAnEarlierOneWasStoppedUnseen) {
    transfer.cancel();
    show({0, 3, 0, std::nullopt});
    EXPECT_FALSE(transfer.stopping());
    EXPECT_EQ(transfer.text(), QStringLiteral("0 of 3"));
}

TEST_F(TransferShown, endsTheStoresTransfer) {
    const FileUrl film("/home/user/Downloads/film.mp4");
    fake.files.addFile(film.path(), {.size = 40'000'000});
    store->transfer({film}, fake.folders.documents(), TransferKind::copy);
    transfer.cancel();
    fake.tasks.runEverything();
    EXPECT_FALSE(fake.files.exists(fake.folders.documents().append("film.mp4")));
}

}  // namespace
}  // namespace nookwise
