#include "reader/Reader.h"

#include "reader/FileSystemRules.h"
#include "reader/PdfDocument.h"
#include "reader/PdfText.h"
#include "reader/PdfThumbnail.h"
#include "reader/ProcessLimits.h"
#include "reader/Serve.h"
#include "reader/SystemCallFilter.h"
#include "reader/recognition/LanguageData.h"
#include "reader/recognition/Pictures.h"
#include "reader/recognition/Recogniser.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nookwise {
namespace {

enum class Role { text, pictures };

enum ExitCode { ended = 0, brokenConversation = 1, cannotWork = 2, brokenWork = 3 };

/// The libraries' farewells would make calls that are refused by then.
[[noreturn]] void end(ExitCode code) {
    std::_Exit(code);
}

ExitCode exitCodeOf(ServeEnd served) {
    switch (served) {
        case ServeEnd::closed:
        case ServeEnd::full:
            return ended;
        case ServeEnd::broken:
            return brokenConversation;
        case ServeEnd::thrown:
            return brokenWork;
    }
    return brokenConversation;
}

std::optional<Role> roleNamed(std::string_view name) {
    if (name == readerRole::text) return Role::text;
    if (name == readerRole::pictures) return Role::pictures;
    return std::nullopt;
}

/// The conversion tables of Asian encodings.
const std::string popplerData = "/usr/share/poppler";
/// For pages that do not bring their fonts along.
const std::vector<std::string> systemFonts{"/usr/share/fonts", "/usr/local/share/fonts"};

std::vector<std::string> readablePaths(Role role) {
    auto paths = role == Role::text ? languagePaths() : systemFonts;
    paths.push_back(popplerData);
    return paths;
}

void confine(Role role, ReaderGreeting& greeting) {
    const auto readable = readablePaths(role);
    if (greeting.fileSystemError == 0) greeting.fileSystemError = closeFileSystem(readable);
    // A filter of calls sees no names, so that without the former nothing may be opened.
    const auto openCalls = greeting.fileSystemError == 0 ? OpenCalls::allowed : OpenCalls::refused;
    if (greeting.systemCallsError == 0)
        greeting.systemCallsError = filterSystemCalls(readerSocket, openCalls);
}

Answer answerOf(std::optional<Picture> picture) {
    if (!picture) return {};
    return {.size = picture->size, .bytes = std::move(picture->pixels)};
}

Answer thumbnailOf(std::span<const std::byte> bytes, std::int32_t longestSide) {
    if (longestSide < 1) return {};
    auto picture = thumbnail(bytes, longestSide);
    return answerOf(picture ? std::move(picture) : pdfThumbnail(bytes, longestSide));
}

Answer recognised(Recogniser* recogniser, std::span<const std::byte> bytes,
                  RecognitionGrade grade) {
    return {.bytes = recogniser == nullptr ? std::string() : recogniser->text(bytes, grade)};
}

Answer answer(const ReaderRequest& request, PassedFile& file, Recogniser* recogniser,
              const Work& otherWork) {
    const auto bytes = file.bytes();
    switch (request.job) {
        case ReaderJob::pdfText:
            return {.bytes = pdfText(bytes)};
        case ReaderJob::recogniseFast:
            return recognised(recogniser, bytes, RecognitionGrade::fast);
        case ReaderJob::recogniseAccurate:
            return recognised(recogniser, bytes, RecognitionGrade::accurate);
        case ReaderJob::thumbnail:
            return thumbnailOf(bytes, request.argument);
        case ReaderJob::pixelSize:
            return {.size = pixelSize(bytes).value_or(PixelSize())};
    }
    return otherWork ? otherWork(request, file) : Answer();
}

}  // namespace

void runReader(const ReaderSetup& setup) {
    endWithParent();
    const auto role = roleNamed(setup.role);
    if (!role) end(cannotWork);
    if (role == Role::text) yieldToEverybody();
    limitResources(readerSocket);

    preparePictures();
    const bool mayRecognise = role == Role::text && setup.missing.recognitionError == 0;
    const auto recogniser = mayRecognise ? createRecogniser() : nullptr;
    const auto pdfUse = role == Role::text ? PdfUse::text : PdfUse::textAndThumbnails;
    if (!preparePdf(pdfUse)) end(cannotWork);

    ReaderGreeting greeting{.fileSystemError = setup.missing.fileSystemError,
                            .systemCallsError = setup.missing.systemCallsError,
                            .recognitionError = recogniser == nullptr ? ENOENT : 0};
    confine(*role, greeting);
    if (greeting.fileSystemError != 0 && greeting.systemCallsError != 0) end(cannotWork);
    if (!greet(readerSocket, greeting)) end(brokenConversation);
    const auto served = serve(readerSocket, [&](const ReaderRequest& request, PassedFile& file) {
        return answer(request, file, recogniser.get(), setup.otherWork);
    });
    end(exitCodeOf(served));
}

}  // namespace nookwise
