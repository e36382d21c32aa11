#include "reader/recognition/PlainAreas.h"
#include "reader/recognition/Recogniser.h"
#include "tests/reader/DrawnPictures.h"

#include <cstdlib>
#include <string>

#include <gmock/gmock.h>

namespace nookwise {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr Rgba slate{30, 34, 42};
constexpr Rgba light{230, 230, 230};
constexpr Rgba navy{0, 70, 140};

constexpr auto sentence = "The quarterly report is due on Thursday";
constexpr auto reply = "Please bring the signed invoice along";

Drawing letter() {
    return Drawing(640, 200, white)
        .text(sentence, 20, 20, 18, black)
        .text(reply, 20, 60, 18, black)
        .text("The meeting begins at seven in the evening", 20, 100, 18, black)
        .text("and everybody is welcome to stay for dinner", 20, 140, 18, black);
}

class Recognition : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (!recogniser()) recogniser() = Recogniser::create();
    }

    static std::unique_ptr<Recogniser>& recogniser() {
        static std::unique_ptr<Recogniser> instance;
        return instance;
    }

    static std::string textOf(const FileBytes& file,
                              RecognitionGrade grade = RecognitionGrade::accurate) {
        return recogniser()->text(bytesOf(file), grade);
    }

    void SetUp() override { ASSERT_TRUE(recogniser()) << "no language is installed"; }
};

TEST_F(Recognition, readsLinesInOrder) {
    const auto text = textOf(letter().saved(".png"));
    EXPECT_THAT(text, HasSubstr(std::string(sentence) + "\n" + reply + "\n"));
    EXPECT_THAT(text, Not(testing::EndsWith("\n")));
}

TEST_F(Recognition, readsInBothGrades) {
    EXPECT_THAT(textOf(letter().saved(".png"), RecognitionGrade::fast),
                HasSubstr("quarterly report"));
    EXPECT_THAT(textOf(letter().saved(".jpg[Q=85]"), RecognitionGrade::fast),
                HasSubstr("signed invoice"));
}

TEST_F(Recognition, readsEveryFormat) {
    for (const auto* format : {".png", ".jpg[Q=90]", ".heic[Q=90]", ".tif", ".gif", ".webp[Q=90]"})
        EXPECT_THAT(textOf(letter().saved(format)), HasSubstr("quarterly report")) << format;
    EXPECT_THAT(textOf(letter().savedAsBitmap()), HasSubstr("quarterly report"));
}

TEST_F(Recognition, readsLightTextOnDark) {
    const auto file = Drawing(640, 120, slate).text(sentence, 20, 20, 18, light).saved(".png");
    EXPECT_THAT(textOf(file), HasSubstr(sentence));
}

TEST_F(Recognition, readsTextOnTransparency) {
    const auto file =
        Drawing(640, 120, {0, 0, 0, 0}).text(sentence, 20, 20, 18, black).saved(".png");
    EXPECT_THAT(textOf(file), HasSubstr(sentence));
}

TEST_F(Recognition, readsBarsAndRowsOfOtherColours) {
    const auto file = Drawing(900, 400, white)
                          .rectangle(0, 0, 900, 40, slate)
                          .text("Documents and Downloads", 20, 10, 16, light)
                          .text(sentence, 20, 90, 16, black)
                          .rectangle(10, 130, 500, 36, navy)
                          .text(reply, 20, 138, 16, white)
                          .rectangle(0, 364, 900, 36, navy)
                          .text("Ready to synchronise", 20, 372, 16, white)
                          .saved(".png");
    const auto text = textOf(file);
    EXPECT_THAT(text, HasSubstr("Documents and Downloads"));
    EXPECT_THAT(text, HasSubstr(sentence));
    EXPECT_THAT(text, HasSubstr(reply));
    EXPECT_THAT(text, HasSubstr("Ready to synchronise"));
}

TEST_F(Recognition, readsSmallAndLargeText) {
    const auto small = Drawing(420, 80, white).text(sentence, 10, 20, 12, black).saved(".png");
    EXPECT_THAT(textOf(small), HasSubstr("quarterly report"));
    const auto large = Drawing(2300, 300, white).text(sentence, 40, 80, 100, black).saved(".png");
    EXPECT_THAT(textOf(large), HasSubstr("quarterly report"));
}

TEST_F(Recognition, readsPicturesUprightAsTheCameraNoted) {
    const auto file = letter().turned(3).saved(".jpg[Q=92]", 6);
    EXPECT_THAT(textOf(file), HasSubstr(sentence));
}

TEST_F(Recognition, readsTextTurnedAnyWay) {
    for (int turns = 1; turns <= 3; ++turns) {
        const auto text = textOf(letter().turned(turns).saved(".png"));
        EXPECT_THAT(text, HasSubstr("quarterly report")) << turns;
        EXPECT_THAT(text, HasSubstr("signed invoice")) << turns;
    }
}

TEST_F(Recognition, givesTheSameTextWheneverAsked) {
    const auto file = letter().saved(".png");
    const auto first = textOf(file);
    (void)textOf(letter().turned(2).saved(".png"));
    EXPECT_EQ(textOf(file), first);
}

TEST_F(Recognition, findsNothingWhereThereIsNoText) {
    EXPECT_THAT(textOf(Drawing(800, 600, white).saved(".png")), IsEmpty());
    EXPECT_THAT(textOf(Drawing(800, 600, black).saved(".png")), IsEmpty());
    EXPECT_THAT(textOf(Drawing(800, 600, {0, 0, 0, 0}).saved(".png")), IsEmpty());
    EXPECT_THAT(textOf(Drawing(800, 600, white).rectangle(100, 100, 300, 200, navy).saved(".png")),
                IsEmpty());
}

TEST_F(Recognition, readsPicturesTooSmallForTextAsNothing) {
    for (const int width : {1, 2, 7, 8, 500})
        for (const int height : {1, 3, 9})
            EXPECT_THAT(textOf(Drawing(width, height, white).saved(".png")), IsEmpty());
    EXPECT_THAT(textOf(Drawing(20'000, 10, white).saved(".png")), IsEmpty());
}

TEST_F(Recognition, readsBrokenFilesAsNothing) {
    EXPECT_THAT(textOf(""), IsEmpty());
    EXPECT_THAT(textOf("plain words"), IsEmpty());
    EXPECT_THAT(textOf("\x89PNG\r\n\x1a\n"), IsEmpty());
}

TEST_F(Recognition, readsWhatThereIsOfATruncatedFile) {
    const auto file = letter().saved(".png");
    for (std::size_t tenth = 1; tenth < 10; ++tenth)
        (void)textOf(file.substr(0, file.size() * tenth / 10));
    EXPECT_THAT(textOf(file), HasSubstr(sentence));
}

TEST_F(Recognition, readsNoiseWithoutHarm) {
    Drawing drawing(400, 300, white);
    unsigned state = 7;
    const auto next = [&](unsigned end) {
        return static_cast<int>(((state = state * 1664525U + 1013904223U) >> 8) % end);
    };
    for (int i = 0; i < 150; ++i)
        drawing.rectangle(
            next(380), next(280), 1 + next(20), 1 + next(20),
            {static_cast<std::uint8_t>(next(256)), static_cast<std::uint8_t>(next(256)), 90});
    (void)textOf(drawing.saved(".png"));
    (void)textOf(drawing.saved(".jpg[Q=10]"), RecognitionGrade::fast);
}

GreyPicture greyOf(const Drawing& drawing) {
    return *greyPicture(bytesOf(drawing.saved(".png")), 5000);
}

std::uint8_t levelAt(const GreyPicture& picture, int x, int y) {
    return static_cast<std::uint8_t>(
        picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
                       static_cast<std::size_t>(x)]);
}

TEST(RecognitionPlainAreas, becomeWhiteAndWhatStandsOnThemDark) {
    auto picture = greyOf(Drawing(400, 300, light)
                              .rectangle(0, 0, 400, 60, slate)
                              .rectangle(100, 20, 3, 20, white)
                              .rectangle(100, 150, 3, 20, black));
    ASSERT_TRUE(evenOutPlainAreas(picture));
    EXPECT_EQ(levelAt(picture, 50, 30), 255);
    EXPECT_EQ(levelAt(picture, 50, 200), 255);
    EXPECT_LT(levelAt(picture, 101, 30), 60);
    EXPECT_LT(levelAt(picture, 101, 160), 60);
    // The edge between two areas is no ink.
    for (int y = 50; y < 70; ++y) EXPECT_EQ(levelAt(picture, 300, y), 255) << y;
}

TEST(RecognitionPlainAreas, areNotSeenInsideThickLetters) {
    auto picture = greyOf(Drawing(900, 300, white).rectangle(100, 100, 24, 80, black));
    ASSERT_TRUE(evenOutPlainAreas(picture));
    EXPECT_LT(levelAt(picture, 112, 140), 60);
}

TEST(RecognitionPlainAreas, ofPicturesOfAnySizeAreFound) {
    for (const int width : {8, 9, 11, 64})
        for (const int height : {8, 10, 13}) {
            auto picture = greyOf(Drawing(width, height, slate));
            EXPECT_TRUE(evenOutPlainAreas(picture));
            EXPECT_EQ(levelAt(picture, width - 1, height - 1), 255);
        }
}

TEST(RecognitionPlainAreas, areLeftAloneInPhotographs) {
    GreyPicture picture{{200, 200}, {}};
    for (int i = 0; i < 200 * 200; ++i) picture.pixels += static_cast<char>((i * 7919) % 251);
    const auto before = picture.pixels;
    EXPECT_FALSE(evenOutPlainAreas(picture));
    EXPECT_EQ(picture.pixels, before);
}

}  // namespace
}  // namespace nookwise
