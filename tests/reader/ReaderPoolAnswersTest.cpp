#include "tests/reader/ReaderPoolFixture.h"
#include "tests/support/OrdinaryUser.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace nookwise {
namespace {

class ReaderPoolAnswers : public ReaderPoolFixture {
  protected:
    FileUrl socketFile() const {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        folder_.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
        const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        EXPECT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
                  0);
        return folder_.url("socket");
    }
};

TEST_F(ReaderPoolAnswers, TheTextOfAFileIsWhatItsProcessSays) {
    makeReader();
    EXPECT_EQ(text("say hello, world"), "hello, world");
    EXPECT_EQ(text("say "), "");
    EXPECT_EQ(text("say " + std::string(60'000, 'a')), std::string(60'000, 'a'));
}

TEST_F(ReaderPoolAnswers, EveryOperationIsAskedForWithItsArgument) {
    makeReader();
    const auto request = file("say-request");
    const auto expected = [](ReaderJob job) {
        return std::to_string(static_cast<int>(job)) + " 0";
    };
    EXPECT_EQ(textOf(reader().pdf(request, {})), expected(ReaderJob::pdfText));
    EXPECT_EQ(textOf(reader().ocr(request, RecognitionGrade::fast, {})),
              expected(ReaderJob::recogniseFast));
    EXPECT_EQ(textOf(reader().ocr(request, RecognitionGrade::accurate, {})),
              expected(ReaderJob::recogniseAccurate));
}

TEST_F(ReaderPoolAnswers, AThumbnailIsTheSizeAndThePixelsThatComeBack) {
    makeReader();
    const auto picture = reader().thumbnail(file("say-bytes 3 2 24 24"), 3, {});
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.value(), (Picture{{3, 2}, std::string(24, 'x')}));
}

TEST_F(ReaderPoolAnswers, ALargeThumbnailComesInManyPieces) {
    auto limits = patientLimits();
    limits.pictures.reply = longestReply;
    makeReader(limits);
    const auto picture =
        reader().thumbnail(file("say-bytes 2000 1500 12000000 12000000"), 2000, {});
    ASSERT_TRUE(picture && picture.value());
    EXPECT_EQ(picture.value()->pixels, std::string(12'000'000, 'x'));
}

TEST_F(ReaderPoolAnswers, APixelSizeComesWithoutPixels) {
    makeReader();
    const auto size = reader().pixelSize(file("say-bytes 20000 10000 0 0"), {});
    ASSERT_TRUE(size);
    EXPECT_EQ(size.value(), (PixelSize{20'000, 10'000}));
}

TEST_F(ReaderPoolAnswers, AFileThatGivesNothingHasNoThumbnailAndNoSize) {
    makeReader();
    const auto nothing = file("say-bytes 0 0 0 0");
    const auto picture = reader().thumbnail(nothing, 100, {});
    const auto size = reader().pixelSize(nothing, {});
    ASSERT_TRUE(picture && size);
    EXPECT_EQ(picture.value(), std::nullopt);
    EXPECT_EQ(size.value(), std::nullopt);
}

TEST_F(ReaderPoolAnswers, TextAndPicturesAreReadByProcessesOfTheirOwn) {
    makeReader();
    EXPECT_EQ(text("say-role"), "text");
    const auto question = file("say-whether-for-pictures");
    EXPECT_TRUE(reader().pixelSize(question, {}).value());
    EXPECT_EQ(textOf(reader().ocr(question, RecognitionGrade::fast, {})), "");
}

TEST_F(ReaderPoolAnswers, WhatIsNotUtf8IsReplaced) {
    makeReader();
    EXPECT_EQ(text("say a\xFFz"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(text(std::string("say a\0z", 7)), std::string("a\0z", 3));
}

TEST_F(ReaderPoolAnswers, WhatIsNoRegularFileSaysNothingAndIsNeverWaitedFor) {
    makeReader();
    const auto pipe = folder_.makePipe("pipe.pdf");
    const auto folder = folder_.makeFolder("folder.pdf");
    const auto circle = folder_.url("circle.pdf");
    std::filesystem::create_symlink("circle.pdf", folder_.path("circle.pdf"));
    for (const auto& url :
         {pipe, folder, circle, socketFile(), FileUrl("/dev/zero"), FileUrl("/dev/tty")}) {
        EXPECT_EQ(textOf(reader().pdf(url, {})), "") << url.path();
        const auto picture = reader().thumbnail(url, 100, {});
        ASSERT_TRUE(picture) << url.path();
        EXPECT_FALSE(picture.value()) << url.path();
    }
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolAnswers, AFileThatMayNotBeReadSaysNothing) {
    makeReader();
    const auto secret = file("say secret");
    ASSERT_EQ(::chmod(std::string(secret.path()).c_str(), 0), 0);
    const OrdinaryUser user;
    EXPECT_EQ(textOf(reader().pdf(secret, {})), "");
}

TEST_F(ReaderPoolAnswers, AFileThatIsNotInItsPlaceIsAnErrorAndNotAnEmptyText) {
    makeReader();
    const auto hello = file("say hello");
    const auto trashed = folder_.path("trashed");
    std::filesystem::rename(hello.path(), trashed);
    const auto result = reader().pdf(hello, {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(result.error().url, hello);
    EXPECT_FALSE(reader().thumbnail(hello, 100, {}));
    std::filesystem::rename(trashed, hello.path());
    EXPECT_EQ(textOf(reader().pdf(hello, {})), "hello");
}

TEST_F(ReaderPoolAnswers, AFileWhoseFolderIsNotThereIsAnError) {
    makeReader();
    const auto hello = file("say hello");
    for (const auto& url : {hello.append("a.pdf"), folder_.url("missing/a.pdf"), FileUrl()})
        EXPECT_FALSE(reader().pdf(url, {})) << url.path();
}

TEST_F(ReaderPoolAnswers, AWorldWithoutDescriptorsLeftIsAnErrorAndNotAnEmptyText) {
    makeReader();
    const auto hello = file("say hello");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{.rlim_cur = 0, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const auto result = reader().pdf(hello, {});
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, std::errc::too_many_files_open);
    EXPECT_EQ(textOf(reader().pdf(hello, {})), "hello");
}

TEST_F(ReaderPoolAnswers, AnEmptyFileIsHandedOverLikeAnyOther) {
    makeReader();
    // The obedient process knows no empty command, and dies of it.
    EXPECT_EQ(text(""), "");
    EXPECT_EQ(text("say still there"), "still there");
}

}  // namespace
}  // namespace nookwise
