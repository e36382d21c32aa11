#include "platform/linux/LinuxMetadata.h"
#include "platform/linux/PngSoftware.h"
#include "tests/platform_linux/FileTimes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

std::string bigEndian(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 255);
    return bytes;
}

std::string chunkSaying(std::uint32_t length, const std::string& type, const std::string& data) {
    return bigEndian(length) + type + data + "CRC?";
}

std::string chunk(const std::string& type, const std::string& data) {
    return chunkSaying(static_cast<std::uint32_t>(data.size()), type, data);
}

const std::string signature = "\x89PNG\r\n\x1a\n";

std::string beginning() {
    return signature + chunk("IHDR", bigEndian(8) + bigEndian(8) + "\x08\x02\0\0\0"s);
}

std::string ending() {
    return chunk("IDAT", "pixels") + chunk("IEND", "");
}

std::string software(const std::string& name) {
    return chunk("tEXt", "Software\0"s + name);
}

std::string picture(const std::string& chunks) {
    return beginning() + chunks + ending();
}

std::string internationalSoftware(const std::string& flags, const std::string& name) {
    return chunk("iTXt", "Software\0"s + flags + "en\0"s + "Programm\0"s + name);
}

class ScreenCapture : public ::testing::Test {
  protected:
    bool isCapture(const std::string& contents) {
        return metadata_.isScreenCapture(home_.write("x.png", contents));
    }

    TemporaryFolder home_;
    LinuxMetadata metadata_{baseFolders([this](const char* name) {
        return std::string_view(name) == "HOME" ? std::string(home_.url().path()) : std::string();
    })};
};

TEST_F(ScreenCapture, isWhatACaptureToolMade) {
    EXPECT_TRUE(isCapture(picture(software("gnome-screenshot"))));
    EXPECT_TRUE(isCapture(picture(software("Spectacle 22.12"))));
    EXPECT_TRUE(isCapture(
        picture(chunk("sRGB", "\0"s) + chunk("tEXt", "Title\0shot"s) + software("ksnip"))));
    EXPECT_TRUE(isCapture(picture(internationalSoftware("\0\0"s, "Flameshot"))));
    EXPECT_TRUE(isCapture(picture(software("gimp") + software("shutter"))));
}

TEST_F(ScreenCapture, isNotWhatAnotherProgramMade) {
    EXPECT_FALSE(isCapture(picture("")));
    EXPECT_FALSE(isCapture(picture(software("Adobe ImageReady"))));
    EXPECT_FALSE(isCapture(picture(software("grimoire"))));
    EXPECT_FALSE(isCapture(picture(software(""))));
    EXPECT_FALSE(isCapture(picture(chunk("tEXt", "Comment\0gnome-screenshot"s))));
    EXPECT_FALSE(isCapture(picture(chunk("tEXt", "software\0gnome-screenshot"s))));
    EXPECT_FALSE(isCapture(picture(chunk("tEXt", "Software"))));
    EXPECT_FALSE(isCapture(picture(chunk("gnOm", "Software\0gnome-screenshot"s))));
}

TEST_F(ScreenCapture, isNotToldByCompressedText) {
    EXPECT_FALSE(isCapture(picture(chunk("zTXt", "Software\0\0gnome-screenshot"s))));
    EXPECT_FALSE(isCapture(picture(internationalSoftware("\1\0"s, "Flameshot"))));
}

TEST_F(ScreenCapture, isToldBeforeThePicturesData) {
    EXPECT_FALSE(isCapture(beginning() + ending() + software("gnome-screenshot")));
    EXPECT_FALSE(isCapture(beginning() + chunk("IDAT", "a") + software("grim") + ending()));
}

TEST_F(ScreenCapture, isNotToldByATruncatedPicture) {
    const auto whole = beginning() + software("gnome-screenshot");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(isCapture(whole.substr(0, length))) << length;
    }
    EXPECT_TRUE(isCapture(whole));
}

TEST_F(ScreenCapture, isNotToldByAChunkWhoseLengthLies) {
    for (const std::uint32_t length :
         {0U, 1U, 8U, 26U, 1'000U, 0x7fffffffU, 0x80000000U, 0xfffffff4U, 0xffffffffU}) {
        EXPECT_FALSE(
            isCapture(beginning() + chunkSaying(length, "tEXt", "Software\0gnome-screenshot"s)))
            << length;
        EXPECT_FALSE(isCapture(signature + chunkSaying(length, "IHDR", "") + software("grim")))
            << length;
    }
}

TEST_F(ScreenCapture, isNotToldByAnythingButAPicture) {
    const auto chunks = software("gnome-screenshot");
    EXPECT_FALSE(isCapture(""));
    EXPECT_FALSE(isCapture(chunks));
    EXPECT_FALSE(isCapture(signature + chunks));
    EXPECT_FALSE(isCapture("\x89PNX\r\n\x1a\n" + picture(chunks).substr(8)));
    EXPECT_FALSE(isCapture("\xff\xd8\xff\xe1 Software gnome-screenshot"));
}

TEST_F(ScreenCapture, isToldBehindAColourProfileButNotBehindTheWholeWorld) {
    EXPECT_TRUE(isCapture(picture(chunk("iCCP", std::string(20'000, 'p')) + software("grim"))));
    EXPECT_FALSE(isCapture(picture(chunk("iCCP", std::string(100'000, 'p')) + software("grim"))));
    std::string empties;
    for (int i = 0; i < 50'000; ++i) empties += chunk("prVt", "");
    EXPECT_FALSE(isCapture(picture(empties + software("grim"))));
}

TEST_F(ScreenCapture, isNoPipeFolderOrMissingFile) {
    EXPECT_FALSE(metadata_.isScreenCapture(home_.makePipe("pipe.png")));
    EXPECT_FALSE(metadata_.isScreenCapture(home_.makeFolder("folder.png")));
    EXPECT_FALSE(metadata_.isScreenCapture(home_.url("missing.png")));
    EXPECT_FALSE(metadata_.isScreenCapture(FileUrl("/" + std::string(10'000, 'a') + ".png")));
    EXPECT_FALSE(metadata_.isScreenCapture(FileUrl()));
}

TEST_F(ScreenCapture, doesNotLookUsedAfterTheQuestion) {
    const auto url = home_.write("x.png", picture(software("grim")));
    const Date old{Seconds{1e9}};
    ASSERT_TRUE(setTimes(url, old, old + Seconds{10}));
    EXPECT_TRUE(metadata_.isScreenCapture(url));
    EXPECT_EQ(accessOf(url), old);
}

TEST_F(ScreenCapture, isNotToldByAPictureThatMayNotBeRead) {
    const auto url = home_.write("x.png", picture(software("grim")));
    ASSERT_TRUE(metadata_.isScreenCapture(url));
    ASSERT_EQ(::chmod(home_.path("x.png").c_str(), 0), 0);
    const OrdinaryUser user;
    EXPECT_FALSE(metadata_.isScreenCapture(url));
}

TEST(PngSoftware, isEveryTextInOrder) {
    const auto bytes = picture(software("a") + internationalSoftware("\0\0"s, "b") + software("c"));
    EXPECT_EQ(pngSoftware(bytes), (std::vector<std::string_view>{"a", "b", "c"}));
}

TEST(PngSoftware, isNoneOfABrokenInternationalText) {
    for (const auto& text :
         {""s, "\0"s, "\0\0"s, "\0\0en"s, "\0\0en\0"s, "\0\0en\0de"s, "\0"s + "\1en\0"s}) {
        EXPECT_TRUE(pngSoftware(picture(chunk("iTXt", "Software\0"s + text))).empty())
            << text.size();
    }
}

}  // namespace
}  // namespace nookwise
