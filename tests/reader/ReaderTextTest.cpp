// What comes out of the confined process is what the same code finds without any confinement.
#include "platform/Text.h"
#include "reader/PdfDocument.h"
#include "reader/PdfText.h"
#include "reader/PdfThumbnail.h"
#include "reader/recognition/Pictures.h"
#include "reader/recognition/Recogniser.h"
#include "tests/reader/Deflated.h"
#include "tests/reader/EncryptedPdf.h"
#include "tests/reader/PdfWriter.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const std::vector<std::string> confined{"0", "0"};
const std::vector<std::string> withoutFileRules{"38", "0"};

std::span<const std::byte> bytesOf(const std::string& file) {
    return std::as_bytes(std::span(file));
}

/// Has the whole contents read by a reader process.
class Worker {
  public:
    explicit Worker(std::string_view role, std::vector<std::string> missing = confined)
        : reader_(READER_PROBE, {std::string(role), missing[0], missing[1]}) {
        EXPECT_TRUE(reader_.greeting());
    }

    std::optional<ReaderAnswer> ask(ReaderJob job, const std::string& contents,
                                    std::int32_t argument = 0) {
        return reader_.ask(job, std::string(folder_.write("file", contents).path()), argument);
    }

  private:
    TemporaryFolder folder_;
    StartedReader reader_;
};

std::optional<ReaderAnswer> asText(const std::string& text) {
    return ReaderAnswer{0, 0, text};
}

std::optional<ReaderAnswer> asPicture(const std::optional<Picture>& picture) {
    if (!picture) return ReaderAnswer();
    return ReaderAnswer{picture->size.width, picture->size.height, picture->pixels};
}

std::vector<std::string> documents() {
    return {latinPdf({"Hello", "again"}),
            latinPdf(std::vector<std::string>(20, std::string(3'000, 'x'))),
            chinesePdf(),
            encryptedPdf("Hello", Password::none),
            encryptedPdf("Hello", Password::needed),
            latinPdf({"Hello"}).substr(0, 300),
            "no document",
            ""};
}

/// Lines of text, as a picture.
Picture pictureOfWords() {
    PdfWriter writer;
    const int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>");
    const auto document =
        pdfOf(writer,
              {"BT /F 24 Tf 30 40 TL 30 700 Td(Invoice from Berlin, November)Tj T* "
               "(to be paid within thirty days)Tj T* (We thank you for the order)Tj "
               "T* (and look forward to the next.)Tj ET"},
              font);
    return pdfThumbnail(bytesOf(document), 1'000).value();
}

Picture upsideDown(const Picture& picture) {
    Picture turned{.size = picture.size};
    for (auto end = picture.pixels.size(); end > 0; end -= 4)
        turned.pixels += picture.pixels.substr(end - 4, 4);
    return turned;
}

TEST(ReaderText, ofDocumentsIsTheSameInsideTheProcess) {
    ASSERT_TRUE(preparePdf());
    for (const auto role : {readerRole::text, readerRole::pictures}) {
        Worker worker(role);
        for (const auto& document : documents()) {
            EXPECT_EQ(worker.ask(ReaderJob::pdfText, document), asText(pdfText(bytesOf(document))));
        }
    }
}

TEST(ReaderText, ofDocumentsNeedsNoFileButInAsianEncodings) {
    ASSERT_TRUE(preparePdf());
    Worker worker(readerRole::text, withoutFileRules);
    for (const auto& document : documents()) {
        if (document == chinesePdf()) continue;
        EXPECT_EQ(worker.ask(ReaderJob::pdfText, document), asText(pdfText(bytesOf(document))));
    }
    EXPECT_TRUE(worker.ask(ReaderJob::pdfText, chinesePdf()));
}

TEST(ReaderText, ofPicturesIsTheSameInsideTheProcess) {
    ASSERT_TRUE(preparePdf(PdfUse::textAndThumbnails));
    preparePictures();
    const auto recogniser = Recogniser::create();
    ASSERT_NE(recogniser, nullptr);
    const auto picture = png(pictureOfWords());
    for (const auto& missing : {confined, withoutFileRules}) {
        Worker worker(readerRole::text, missing);
        for (const auto& [job, grade] :
             {std::pair(ReaderJob::recogniseFast, RecognitionGrade::fast),
              std::pair(ReaderJob::recogniseAccurate, RecognitionGrade::accurate)}) {
            const auto expected = recogniser->text(bytesOf(picture), grade);
            EXPECT_NE(expected.find("Invoice"), std::string::npos) << expected;
            EXPECT_EQ(worker.ask(job, picture), asText(expected));
            EXPECT_EQ(worker.ask(job, "no picture"), asText(""));
        }
    }
}

// What turns it is loaded when the first such picture comes along.
TEST(ReaderText, ofTurnedPicturesIsTheSameInsideTheProcess) {
    ASSERT_TRUE(preparePdf(PdfUse::textAndThumbnails));
    preparePictures();
    const auto recogniser = Recogniser::create();
    ASSERT_NE(recogniser, nullptr);
    const auto picture = png(upsideDown(pictureOfWords()));
    const auto expected = recogniser->text(bytesOf(picture), RecognitionGrade::accurate);
    EXPECT_NE(expected.find("Invoice"), std::string::npos) << expected;
    Worker worker(readerRole::text);
    EXPECT_EQ(worker.ask(ReaderJob::recogniseAccurate, picture), asText(expected));
}

TEST(ReaderPictures, areTheSameInsideTheProcess) {
    ASSERT_TRUE(preparePdf(PdfUse::textAndThumbnails));
    preparePictures();
    const auto picture = png(pictureOfWords());
    Worker worker(readerRole::pictures);
    EXPECT_EQ(worker.ask(ReaderJob::thumbnail, picture, 300),
              asPicture(thumbnail(bytesOf(picture), 300)));
    const auto size = pixelSize(bytesOf(picture)).value();
    EXPECT_EQ(worker.ask(ReaderJob::pixelSize, picture),
              (ReaderAnswer{size.width, size.height, ""}));
    for (const auto& document : documents()) {
        EXPECT_EQ(worker.ask(ReaderJob::thumbnail, document, 300),
                  asPicture(pdfThumbnail(bytesOf(document), 300)));
        EXPECT_EQ(worker.ask(ReaderJob::pixelSize, document), ReaderAnswer());
    }
}

TEST(ReaderPictures, areNoneForASizeThatIsNone) {
    Worker worker(readerRole::pictures);
    const auto picture = emptyPng({40, 30});
    EXPECT_EQ(worker.ask(ReaderJob::thumbnail, picture, 0), ReaderAnswer());
    EXPECT_EQ(worker.ask(ReaderJob::thumbnail, picture, -5), ReaderAnswer());
    EXPECT_EQ(worker.ask(ReaderJob::pixelSize, picture), (ReaderAnswer{40, 30, ""}));
}

}  // namespace
}  // namespace nookwise
