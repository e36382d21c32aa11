#include "platform/Text.h"
#include "reader/PdfDocument.h"
#include "reader/PdfText.h"
#include "reader/PdfThumbnail.h"
#include "tests/reader/EncryptedPdf.h"
#include "tests/reader/PdfWriter.h"

#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
// The fonts that Poppler looks up to draw a page.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}
#endif

namespace nookwise {
namespace {

std::span<const std::byte> bytesOf(const std::string& document) {
    return std::as_bytes(std::span(document));
}

class PdfTextTest : public testing::Test {
  protected:
    PdfTextTest() { EXPECT_TRUE(preparePdf(PdfUse::textAndThumbnails)); }

    static std::string text(const std::string& document) { return pdfText(bytesOf(document)); }
};

using PdfThumbnailTest = PdfTextTest;

std::string repeated(const std::string& part, std::size_t length) {
    std::string text;
    while (text.size() < length) text += part;
    return text.substr(0, length);
}

/// A font whose letters A and on stand for the given UTF-16 code units.
int addFontMeaning(PdfWriter& writer, const std::vector<std::string>& utf16) {
    std::string map =
        "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n"
        "1 begincodespacerange <00> <ff> endcodespacerange\n" +
        std::to_string(utf16.size()) + " beginbfchar\n";
    const std::string digits = "0123456789ABCDEF";
    for (std::size_t index = 0; index < utf16.size(); ++index)
        map += std::string("<4") + digits[index + 1] + "> <" + utf16[index] + ">\n";
    map += "endbfchar endcmap end end";
    const int stream = writer.addStream(map);
    return writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/ToUnicode " + reference(stream) +
                      ">>");
}

std::string pdfMeaning(const std::string& shown, const std::vector<std::string>& utf16) {
    PdfWriter writer;
    const int font = addFontMeaning(writer, utf16);
    return pdfOf(writer, {"BT /F 10 Tf 50 700 Td(" + shown + ")Tj ET"}, font, 400'000);
}

TEST_F(PdfTextTest, isTheFirstFifteenPagesEachWithALineFeed) {
    std::vector<std::string> pages;
    std::string expected;
    for (int page = 0; page < 40; ++page) {
        pages.push_back(repeated("page" + std::to_string(page), 1'000));
        if (page < 15) expected += pages.back() + "\n";
    }
    EXPECT_EQ(text(latinPdf(pages)), expected);
}

TEST_F(PdfTextTest, endsAfterThirtyThousandCharacters) {
    const std::vector<std::string> pages{repeated("abc", 20'000), repeated("def", 20'000),
                                         repeated("ghi", 20'000)};
    const auto whole = pages[0] + "\n" + pages[1] + "\n";
    EXPECT_EQ(text(latinPdf(pages)), whole.substr(0, 30'000));
}

TEST_F(PdfTextTest, keepsExactlyThirtyThousandCharactersWhole) {
    EXPECT_EQ(text(latinPdf({repeated("abc", 29'999)})), repeated("abc", 29'999) + "\n");
    EXPECT_EQ(text(latinPdf({repeated("abc", 30'000)})), repeated("abc", 30'000));
}

TEST_F(PdfTextTest, countsCharactersAsPeopleDo) {
    // "e" with an accent of its own, which is one character of three bytes.
    const auto found = text(pdfMeaning(repeated("AB", 40'000), {"0065", "0301"}));
    EXPECT_EQ(characterCount(found), found.ends_with('\n') ? 20'001U : 20'000U);
    const auto cut = text(pdfMeaning(repeated("A", 31'000), {"00650301"}));
    EXPECT_EQ(characterCount(cut), 30'000U);
    EXPECT_GT(cut.size(), 30'000U);
}

TEST_F(PdfTextTest, staysSmallWhereACharacterHasNoEnd) {
    // A letter a page, each under 36,000 accents.
    PdfWriter writer;
    const int font = addFontMeaning(writer, {"0065", repeated("0301", 240)});
    const auto page = "BT /F 10 Tf 50 700 Td(A" + repeated("B", 600) + ")Tj ET";
    const auto found = text(pdfOf(writer, std::vector(20, page), font, 400'000));
    EXPECT_GT(found.size(), 900'000U);
    EXPECT_LT(found.size(), 960'010U);
    EXPECT_EQ(wellFormed(found), found);
}

TEST_F(PdfTextTest, hasALineFeedForAPageWithoutText) {
    EXPECT_EQ(text(latinPdf({"", "Hello", ""})), "\nHello\n\n");
}

TEST_F(PdfTextTest, followsTheReadingOrder) {
    PdfWriter writer;
    const int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier>>");
    EXPECT_EQ(text(pdfOf(writer,
                         {"BT /F 10 Tf 50 600 Td(third)Tj ET BT /F 10 Tf 50 700 Td(first)Tj ET "
                          "BT /F 10 Tf 50 690 Td(second)Tj ET"},
                         font)),
              "first\nsecond\n\nthird\n");
}

TEST_F(PdfTextTest, keepsWhatIsTextOnly) {
    // NUL, a form feed and a bell between letters.
    const auto found = text(pdfMeaning("ABACADA", {"0078", "0000", "000C", "0007"}));
    EXPECT_EQ(found.find('\0'), std::string::npos);
    EXPECT_EQ(found.find('\f'), std::string::npos);
    EXPECT_EQ(found.find('\a'), std::string::npos);
    EXPECT_EQ(std::count(found.begin(), found.end(), 'x'), 4);
}

TEST_F(PdfTextTest, isWellFormedWhateverTheFontSays) {
    // Half a surrogate pair, a whole one, and a code point that is none.
    const auto found = text(pdfMeaning("ABACADA", {"0078", "D800", "D83DDE00", "FFFF"}));
    EXPECT_EQ(wellFormed(found), found);
    EXPECT_EQ(std::count(found.begin(), found.end(), 'x'), 4);
    EXPECT_NE(found.find("\U0001F600"), std::string::npos);
}

TEST_F(PdfTextTest, readsEncodingsOfAsia) {
    EXPECT_EQ(text(chinesePdf()), "你好世界\n");
}

TEST_F(PdfTextTest, readsWhatIsEncryptedWithoutAPassword) {
    EXPECT_EQ(text(encryptedPdf("Hello", Password::none)), "Hello\n");
}

TEST_F(PdfTextTest, isEmptyWhereAPasswordIsNeeded) {
    EXPECT_EQ(text(encryptedPdf("Hello", Password::needed)), "");
}

TEST_F(PdfTextTest, isEmptyForWhatIsNoPdf) {
    EXPECT_EQ(text(""), "");
    EXPECT_EQ(text("%PDF-1.4"), "");
    EXPECT_EQ(text(std::string(100'000, '\0')), "");
    EXPECT_EQ(text("GIF89a"), "");
}

TEST_F(PdfTextTest, readsWhatIsLeftOfATornDocument) {
    const auto whole = latinPdf({"Hello"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto found = text(whole.substr(0, length));
        EXPECT_TRUE(found.empty() || found == "\n" || found == "Hello\n") << length;
    }
}

TEST_F(PdfTextTest, endsForATreeOfPagesThatHoldsItself) {
    PdfWriter writer;
    writer.add("<</Type/Pages/Kids[1 0 R 2 0 R]/Count 2147483647>>");
    writer.add("<</Type/Pages/Kids[1 0 R 2 0 R]/Parent 1 0 R/Count 2147483647>>");
    const auto found = text(writer.document(writer.add("<</Type/Catalog/Pages 1 0 R>>")));
    EXPECT_EQ(found.find_first_not_of('\n'), std::string::npos);
}

TEST_F(PdfThumbnailTest, isNotLargerThanAskedForNorThanThePage) {
    const auto document = latinPdf({repeated("abc", 80)});  // 600 by 800 points
    const auto size = [&](std::int32_t longestSide) {
        const auto picture = pdfThumbnail(bytesOf(document), longestSide);
        return picture ? picture->size : PixelSize();
    };
    EXPECT_EQ(size(400), (PixelSize{300, 400}));
    EXPECT_EQ(size(1), (PixelSize{1, 1}));
    EXPECT_EQ(size(2'000), (PixelSize{600, 800}));
    EXPECT_EQ(size(0), PixelSize());
    EXPECT_EQ(size(-1), PixelSize());
}

/// A black square in the lower left corner.
std::string markedPdf(std::string_view entries) {
    PdfWriter writer;
    const int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier>>");
    return pdfOf(writer, {"0 0 1 rg 0 0 300 400 re f"}, font, 600, entries);
}

/// Red, green, blue, alpha.
std::string pixelAt(const Picture& picture, int x, int y) {
    return picture.pixels.substr(static_cast<std::size_t>(y * picture.size.width + x) * 4, 4);
}

TEST_F(PdfThumbnailTest, showsTheFirstPageInItsColours) {
    const auto picture = pdfThumbnail(bytesOf(markedPdf("")), 400);
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture->pixels.size(), 300U * 400U * 4U);
    EXPECT_EQ(pixelAt(*picture, 10, 390), std::string("\x00\x00\xff\xff", 4));
    EXPECT_EQ(pixelAt(*picture, 10, 10), "\xff\xff\xff\xff");
    EXPECT_EQ(pixelAt(*picture, 290, 390), "\xff\xff\xff\xff");
}

TEST_F(PdfThumbnailTest, isUpright) {
    // Turned clockwise, the lower left corner comes to the upper left.
    const auto picture = pdfThumbnail(bytesOf(markedPdf("/Rotate 90")), 400);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->size, (PixelSize{400, 300}));
    EXPECT_EQ(pixelAt(*picture, 10, 10), std::string("\x00\x00\xff\xff", 4));
    EXPECT_EQ(pixelAt(*picture, 10, 290), "\xff\xff\xff\xff");
}

TEST_F(PdfThumbnailTest, standsPagesOfAnySize) {
    for (const std::string box : {"0 0 1e9 1e9", "0 0 1e30 1", "0 0 0 0", "5 5 5 5", "-1e9 0 1e9 1",
                                  "0 0 0.001 14400", "100 100 0 0"}) {
        const auto picture = pdfThumbnail(bytesOf(markedPdf("/MediaBox[" + box + "]")), 256);
        if (!picture) continue;
        EXPECT_LE(std::max(picture->size.width, picture->size.height), 256) << box;
        EXPECT_EQ(picture->pixels.size(), static_cast<std::size_t>(picture->size.width) *
                                              static_cast<std::size_t>(picture->size.height) * 4)
            << box;
    }
}

TEST_F(PdfThumbnailTest, isNoneForWhatIsNoPdfOrNeedsAPassword) {
    EXPECT_EQ(pdfThumbnail({}, 256), std::nullopt);
    EXPECT_EQ(pdfThumbnail(bytesOf("GIF89a"), 256), std::nullopt);
    EXPECT_EQ(pdfThumbnail(bytesOf(encryptedPdf("Hello", Password::needed)), 256), std::nullopt);
}

}  // namespace
}  // namespace nookwise
