#include "tests/support/FakeTextReader.h"
#include "ui/bridge/ThumbnailProvider.h"

#include <QImage>
#include <QQuickTextureFactory>
#include <QSignalSpy>
#include <atomic>
#include <latch>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr std::string_view photograph = "/home/user/Desktop/a \xff#?%41.PNG";
constexpr std::string_view page = "/home/user/Documents/letter.pdf";

/// One colour, opaque.
Picture plain(std::int32_t width, std::int32_t height, std::string_view rgba) {
    Picture picture{.size = {width, height}, .pixels = {}};
    for (std::int32_t i = 0; i < width * height; ++i) picture.pixels += rgba;
    return picture;
}

const std::string red("\xff\x00\x00\xff", 4);
const std::string white("\xff\xff\xff\xff", 4);

class Thumbnails : public testing::Test {
  protected:
    static QString source(std::string_view path, double changed = 1.5) {
        return thumbnailSource({.url = FileUrl(path), .modified = Date{Seconds{changed}}});
    }
    static QString idOf(std::string_view path) { return source(path).section(QLatin1Char('/'), 3); }

    QImage picture(const QString& id, QSize size) {
        const std::unique_ptr<QQuickImageResponse> response(
            provider.requestImageResponse(id, size));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        finished.wait();
        const std::unique_ptr<QQuickTextureFactory> factory(response->textureFactory());
        return factory->image();
    }

    FakeTextReader reader;
    ThumbnailProvider provider{reader};
};

TEST_F(Thumbnails, areOfPicturesAndPagesOnly) {
    EXPECT_TRUE(source("/a/film.mov").isEmpty());
    EXPECT_TRUE(source("/a/png").isEmpty());
    EXPECT_FALSE(source(photograph).isEmpty());
    EXPECT_FALSE(source("/a/Letter.PDF").isEmpty());
}

TEST_F(Thumbnails, ofAChangedFileAreAnotherPicture) {
    EXPECT_NE(source(page, 1), source(page, 1.001));
    EXPECT_EQ(source(page, 1), source(page, 1));
}

TEST_F(Thumbnails, fillTheSizeWithRoundedCorners) {
    reader.setThumbnail(photograph, plain(90, 60, red));
    const auto image = picture(idOf(photograph), {56, 56});
    EXPECT_EQ(image.size(), QSize(56, 56));
    EXPECT_EQ(image.pixelColor(28, 28), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(28, 1).red(), 255) << "the picture is cut, not framed";
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

TEST_F(Thumbnails, showAPageWhole) {
    reader.setThumbnail(page, plain(60, 90, white));
    const auto image = picture(idOf(page), {56, 56});
    EXPECT_EQ(image.size(), QSize(56, 56));
    EXPECT_EQ(image.pixelColor(28, 28), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(3, 28).alpha(), 0) << "beside the page";
}

TEST_F(Thumbnails, showTheTopOfAPageInAWidePreview) {
    reader.setThumbnail(page, plain(60, 90, white));
    const auto image = picture(idOf(page), {280, 176});
    EXPECT_EQ(image.pixelColor(140, 5).alpha(), 0) << "above the page";
    EXPECT_EQ(image.pixelColor(140, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(140, 175), QColor(Qt::white)) << "cut off at the lower edge";
    EXPECT_EQ(image.pixelColor(85, 90), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(70, 90).alpha(), 0) << "beside the page";
}

TEST_F(Thumbnails, showABroadPageWholeInAWidePreview) {
    reader.setThumbnail(page, plain(160, 90, white));
    const auto image = picture(idOf(page), {280, 176});
    EXPECT_EQ(image.pixelColor(140, 88), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(140, 5).alpha(), 0);
    EXPECT_EQ(image.pixelColor(140, 170).alpha(), 0);
}

TEST_F(Thumbnails, areAskedForLargeEnoughToBeCut) {
    picture(idOf(photograph), {56, 40});
    ASSERT_EQ(reader.calls().size(), 1u);
    EXPECT_EQ(reader.calls().front().operation, FakeTextReader::Operation::thumbnail);
    EXPECT_EQ(reader.calls().front().url, FileUrl(photograph));
}

TEST_F(Thumbnails, ofWhatCannotBeReadAreASingleClearPixel) {
    const auto image = picture(idOf(photograph), {56, 56});
    EXPECT_EQ(image.size(), QSize(1, 1));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    reader.fail(photograph, std::errc::no_such_file_or_directory);
    EXPECT_EQ(picture(idOf(photograph), {56, 56}).size(), QSize(1, 1));
}

TEST_F(Thumbnails, areNotReadForIdsThatNameNoFile) {
    for (const auto* id : {"", "/", "1/", "1/%%%", "1/YWJj", "1/L2E/../b"}) {
        EXPECT_EQ(picture(QString::fromLatin1(id), {56, 56}).size(), QSize(1, 1)) << id;
    }
    EXPECT_TRUE(reader.calls().empty());
}

TEST_F(Thumbnails, aloneThatAreStillWantedAreRead) {
    std::latch underWay(2);
    std::latch goOn(1);
    std::atomic<int> begun{0};
    reader.onCall([&](const FakeTextReader::Call&) {
        if (++begun > 2) return;
        underWay.count_down();
        goOn.wait();
    });
    // As many as are read at a time, and one more that waits.
    std::vector<std::unique_ptr<QQuickImageResponse>> responses;
    for (int i = 0; i < 3; ++i)
        responses.emplace_back(provider.requestImageResponse(idOf(photograph), {56, 56}));
    std::vector<std::unique_ptr<QSignalSpy>> finished;
    for (const auto& response : responses)
        finished.push_back(
            std::make_unique<QSignalSpy>(response.get(), &QQuickImageResponse::finished));
    underWay.wait();
    responses.back()->cancel();
    goOn.count_down();
    for (const auto& spy : finished)
        if (spy->isEmpty()) spy->wait();
    EXPECT_EQ(reader.calls().size(), 2u);
}

}  // namespace
}  // namespace nookwise
