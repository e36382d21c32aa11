#include "tests/search/IndexerFixture.h"

#include <cmath>

namespace nookwise {
namespace {

using Operation = FakeTextReader::Operation;

TEST_F(TextIndexerTest, readsPdfsAndPictures) {
    reader.setPdf("/d/a.PDF", "Terms of Use");
    reader.setOcr("/d/b.jpg", RecognitionGrade::fast, "Sunset");
    reader.setOcr("/d/Screenshot 1.png", RecognitionGrade::accurate, "Log in");
    run({fileAt("/d/a.PDF"), fileAt("/d/b.jpg"), fileAt("/d/Screenshot 1.png"),
         fileAt("/d/c.txt")});
    EXPECT_EQ(steps, (std::vector<Step>{{3, 3, 3}}));
    EXPECT_EQ(textOf("/d/a.PDF"), "Terms of Use");
    EXPECT_EQ(told.at(FileUrl("/d/a.PDF")).lowerText.view(), "terms of use");
    EXPECT_EQ(textOf("/d/b.jpg"), "Sunset");
    EXPECT_EQ(textOf("/d/Screenshot 1.png"), "Log in");
    EXPECT_EQ(textOf("/d/c.txt"), "(none)");
}

TEST_F(TextIndexerTest, isAccurateWithScreenshotsOnly) {
    run({fileAt("/d/Screenshot 1.png"), fileAt("/d/a.png"), fileAt("/d/Screenshots.pdf"),
         fileAt("/d/Screenshots/b.png")});
    auto calls = reader.calls();
    std::sort(calls.begin(), calls.end(),
              [](const auto& a, const auto& b) { return a.url < b.url; });
    EXPECT_EQ(calls, (std::vector<FakeTextReader::Call>{
                         {Operation::ocrAccurate, FileUrl("/d/Screenshot 1.png")},
                         {Operation::pdf, FileUrl("/d/Screenshots.pdf")},
                         {Operation::ocrFast, FileUrl("/d/Screenshots/b.png")},
                         {Operation::ocrFast, FileUrl("/d/a.png")}}));
}

TEST_F(TextIndexerTest, readsAllDownloadsWhateverTheirSize) {
    reader.setOcr("/home/user/Downloads/photo.jpg", "Beach");
    reader.setOcr("/home/user/Documents/photo.jpg", "Beach");
    reader.setPdf("/home/user/Downloads/huge.pdf", "Catalogue");
    run({fileAt("/home/user/Downloads/photo.jpg", 50'000'000),
         fileAt("/home/user/Documents/photo.jpg", 50'000'000),
         fileAt("/home/user/Downloads/huge.pdf", 150'000'000),
         fileAt("/home/user/Downloads/a.zip", 1)});
    EXPECT_EQ(steps, (std::vector<Step>{{3, 3, 3}}));
    EXPECT_EQ(textOf("/home/user/Downloads/photo.jpg"), "Beach");
    EXPECT_EQ(textOf("/home/user/Documents/photo.jpg"), "(none)");
    EXPECT_EQ(textOf("/home/user/Downloads/huge.pdf"), "Catalogue");
    EXPECT_EQ(textOf("/home/user/Downloads/a.zip"), "");
}

TEST_F(TextIndexerTest, learnsTheSourcesOfDownloadsOnly) {
    const std::vector<std::string> gmail{"https://mail.google.com/mail/u/0"};
    metadata.setWhereFrom("/home/user/Downloads/a.png", gmail);
    metadata.setWhereFrom("/home/user/Documents/b.pdf", gmail);
    metadata.setWhereFrom("/home/user/Downloads/c.zip", {"https://www.example.com/c.zip"});
    reader.setOcr("/home/user/Downloads/a.png", "Boarding pass");
    run({fileAt("/home/user/Downloads/a.png"), fileAt("/home/user/Documents/b.pdf"),
         fileAt("/home/user/Downloads/c.zip"), fileAt("/home/user/Downloads/d.zip")});
    EXPECT_EQ(textOf("/home/user/Downloads/a.png"), "Boarding pass");
    EXPECT_EQ(sourceOf("/home/user/Downloads/a.png"), "Gmail");
    EXPECT_EQ(sourceOf("/home/user/Documents/b.pdf"), "(none)");
    EXPECT_EQ(sourceOf("/home/user/Downloads/c.zip"), "example.com");
    EXPECT_EQ(sourceOf("/home/user/Downloads/d.zip"), "(none)");
}

TEST_F(TextIndexerTest, hasTheDownloadsWhereTheUserHasThem) {
    folders.downloadsFolder = FileUrl("/data/Heruntergeladen");
    metadata.setWhereFrom("/data/Heruntergeladen/a.zip", {"https://github.com/a"});
    run({fileAt("/data/Heruntergeladen/a.zip"), fileAt("/home/user/Downloads/b.zip")});
    EXPECT_EQ(told.size(), 1u);
    EXPECT_EQ(sourceOf("/data/Heruntergeladen/a.zip"), "GitHub");
}

TEST_F(TextIndexerTest, sharesTheBytesOfEqualSources) {
    const auto items = downloads(2);
    for (const auto& item : items) metadata.setWhereFrom(item.url.path(), {"https://github.com/a"});
    run(items);
    EXPECT_EQ(told.at(items[0].url).source->view().data(),
              told.at(items[1].url).source->view().data());
}

TEST_F(TextIndexerTest, readsNothingTwice) {
    const auto items = documents(9);
    run(items);
    EXPECT_EQ(reader.calls().size(), 9u);
    run(items);
    restart();
    run(items);
    EXPECT_EQ(reader.calls().size(), 9u);
    EXPECT_EQ(steps.size(), 1u);
}

TEST_F(TextIndexerTest, readsAgainWhatWasChangedByAnyAmount) {
    run({fileAt("/d/a.png", 100'000, 1'790'000'000.25)});
    run({fileAt("/d/a.png", 300'000, 1'790'000'000.25)});
    EXPECT_EQ(reader.calls().size(), 1u);
    // Earlier, or by the least that can be told.
    run({fileAt("/d/a.png", 100'000, std::nextafter(1'790'000'000.25, 2e9))});
    EXPECT_EQ(reader.calls().size(), 2u);
    run({fileAt("/d/a.png", 100'000, 5)});
    EXPECT_EQ(reader.calls().size(), 3u);
    auto undated = fileAt("/d/a.png");
    undated.modified.reset();
    run({undated});
    EXPECT_EQ(reader.calls().size(), 4u);
    run({undated});
    EXPECT_EQ(told.at(undated.url).mtime, 0);
    EXPECT_EQ(reader.calls().size(), 4u);
}

TEST_F(TextIndexerTest, triesAFileThatSaysNothingOnce) {
    run({fileAt("/d/broken.pdf"), fileAt("/d/broken.png")});
    EXPECT_EQ(textOf("/d/broken.pdf"), "");
    EXPECT_EQ(told.at(FileUrl("/d/broken.png")), indexEntry(1, "", std::nullopt));
    restart();
    run({fileAt("/d/broken.pdf"), fileAt("/d/broken.png")});
    EXPECT_EQ(reader.calls().size(), 2u);
}

TEST_F(TextIndexerTest, tellsWhatStillHolds) {
    reader.setOcr("/d/a.png", "One");
    run({fileAt("/d/a.png"), fileAt("/d/b.png"), fileAt("/d/c.png")});
    restart();
    const auto cached = indexer->cached(
        {{fileAt("/d/a.png"), fileAt("/d/b.png", 100'000, 2), fileAt("/d/unknown.png")}});
    EXPECT_EQ(cached, (IndexEntries{{FileUrl("/d/a.png"), indexEntry(1, "One", std::nullopt)}}));
    EXPECT_EQ(cached.at(FileUrl("/d/a.png")).lowerText.view(), "one");
}

TEST_F(TextIndexerTest, keepsTheEntriesOfFilesThatAreGone) {
    run({fileAt("/d/gone.png")});
    run({fileAt("/d/a.png")});
    restart();
    EXPECT_EQ(indexer->cached({{fileAt("/d/gone.png")}}).size(), 1u);
}

TEST_F(TextIndexerTest, readsEverythingAgainWithoutTheFile) {
    const auto items = documents(5);
    run(items);
    files.remove(indexPath);
    restart();
    run(items);
    EXPECT_EQ(reader.calls().size(), 10u);
    EXPECT_EQ(steps.size(), 2u);
}

TEST_F(TextIndexerTest, startsEmptyWithAFileThatIsNone) {
    for (const auto* const contents : {"", "{\"/d/a.png\":{\"mtime\":1", "[]", "\xff", "null"}) {
        files.addFile(indexPath, {.contents = contents});
        restart();
        EXPECT_TRUE(indexer->cached({{fileAt("/d/a.png")}}).empty()) << contents;
    }
    run({fileAt("/d/a.png")});
    restart();
    EXPECT_EQ(indexer->cached({{fileAt("/d/a.png")}}).size(), 1u);
}

TEST_F(TextIndexerTest, findsAFileWhosePathIsNoUtf8) {
    run({fileAt("/d/\xff.png")});
    restart();
    run({fileAt("/d/\xff.png")});
    EXPECT_EQ(reader.calls().size(), 1u);
}

TEST_F(TextIndexerTest, looksAtTheFileWhenItIsFirstNeededAndOnce) {
    run(documents(1));
    int opened = 0;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::open) ++opened;
    });
    restart();
    indexer->save();
    EXPECT_EQ(opened, 0);
    indexer->cached({});
    run(documents(2));
    indexer->save();
    indexer->cached({});
    EXPECT_EQ(opened, 1);
}

TEST_F(TextIndexerTest, tellsNothingWhenThereIsNothingToRead) {
    EXPECT_EQ(savesOf({}), 0);
    EXPECT_EQ(savesOf({fileAt("/d/a.txt"), fileAt("/d/icon.png", 100)}), 0);
    EXPECT_TRUE(steps.empty());
}

TEST_F(TextIndexerTest, tellsOfNineFilesOnce) {
    EXPECT_EQ(savesOf(documents(9)), 1);
    EXPECT_EQ(steps, (std::vector<Step>{{9, 9, 9}}));
    EXPECT_TRUE(files.exists(FileUrl(indexPath)));
}

TEST_F(TextIndexerTest, tellsInBatchesOfTwentyFour) {
    run(documents(60));
    EXPECT_EQ(steps, (std::vector<Step>{{24, 24, 60}, {24, 48, 60}, {12, 60, 60}}));
    EXPECT_EQ(told.size(), 60u);
}

TEST_F(TextIndexerTest, endsWithAShorterChunk) {
    run(documents(25));
    EXPECT_EQ(steps, (std::vector<Step>{{24, 24, 25}, {1, 25, 25}}));
}

TEST_F(TextIndexerTest, savesAboutEveryHundredAndTwentyFiles) {
    // At 120 and at 240, where a batch ends too, and at the end.
    EXPECT_EQ(savesOf(documents(263)), 3);
    EXPECT_EQ(savesOf(downloads(119)), 1);
    EXPECT_EQ(savesOf(documents(263)), 0);
}

TEST_F(TextIndexerTest, savesWhatWasNotSavedBefore) {
    files.forbidChanges(folders.applicationSupportFolder.path());
    run(documents(3));
    EXPECT_EQ(told.size(), 3u);
    EXPECT_FALSE(files.exists(FileUrl(indexPath)));
    EXPECT_EQ(indexer->cached(documents(3)).size(), 3u);
}

TEST_F(TextIndexerTest, triesToSaveAgainAfterAFailure) {
    files.setRoomForContents(10);
    run(documents(3));
    files.setRoomForContents(1'000'000);
    indexer->save();
    restart();
    EXPECT_EQ(indexer->cached(documents(3)).size(), 3u);
}

TEST_F(TextIndexerTest, writesTheFileOnlyWhenThereIsSomethingNew) {
    run(documents(3));
    restart();
    EXPECT_EQ(savesOf(documents(3)), 0);
    indexer->save();
    files.remove(indexPath);
    indexer->save();
    EXPECT_FALSE(files.exists(FileUrl(indexPath)));
}

TEST_F(TextIndexerTest, readsAtMostSixThousandInARun) {
    std::vector<FileItem> items;
    for (int i = 0; i < 10'000; ++i)
        items.push_back(fileAt("/d/" + std::to_string(i) + ".png", 100'000, i));
    run(items);
    EXPECT_EQ(told.size(), 6'000u);
    EXPECT_TRUE(told.contains(FileUrl("/d/4000.png")));
    EXPECT_FALSE(told.contains(FileUrl("/d/3999.png")));
    run(items);
    EXPECT_EQ(told.size(), 10'000u);
    EXPECT_EQ(reader.calls().size(), 10'000u);
}

TEST_F(TextIndexerTest, worksWithoutAnyFolders) {
    folders.downloadsFolder = FileUrl();
    folders.applicationSupportFolder = FileUrl();
    restart();
    run(documents(2));
    EXPECT_EQ(told.size(), 2u);
}

}  // namespace
}  // namespace nookwise
