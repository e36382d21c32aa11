#include "reader/Reader.h"

#include "reader/FileSystemRules.h"
#include "reader/PdfDocument.h"
#include "reader/PdfText.h"
#include "reader/PdfThumbnail.h"
#include "reader/ProcessLimits.h"
#include "reader/Serve.h"
#include "reader/SystemCallFilter.h"
#include "reader/recognition/Pictures.h"
#include "reader/recognition/Recogniser.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nookwise {
namespace {

enum class Role { text, pictures };

enum ExitCode { ended = 0, brokenConversation = 1, cannotWork = 2 };

/// The libraries' farewells would make calls that are refused by then.
[[noreturn]] void end(ExitCode code) {
    std::_Exit(code);
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

/// Languages are loaded when a picture asks for them. Distributions put them into different places.
std::vector<std::string> languageFolders() {
    if (const char* folder = std::getenv("TESSDATA_PREFIX")) return {folder};
    return {"/usr/share/tesseract-ocr", "/usr/share/tesseract", "/usr/share/tessdata"};
}

std::vector<std::string> readableFolders(Role role) {
    auto folders = role == Role::text ? languageFolders() : systemFonts;
    folders.push_back(popplerData);
    return folders;
}

ReaderGreeting confine(Role role, const MissingConfinement& missing) {
    const auto readable = readableFolders(role);
    ReaderGreeting greeting{.fileSystemError = missing.fileSystemError,
                            .systemCallsError = missing.systemCallsError};
    if (greeting.fileSystemError == 0) greeting.fileSystemError = closeFileSystem(readable);
    // A filter of calls sees no names, so that without the former nothing may be opened.
    const auto openCalls = greeting.fileSystemError == 0 ? OpenCalls::allowed : OpenCalls::refused;
    if (greeting.systemCallsError == 0)
        greeting.systemCallsError = filterSystemCalls(readerSocket, openCalls);
    return greeting;
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
    const auto recogniser = role == Role::text ? Recogniser::create() : nullptr;
    const auto pdfUse = role == Role::text ? PdfUse::text : PdfUse::textAndThumbnails;
    if (!preparePdf(pdfUse) || (role == Role::text && recogniser == nullptr)) end(cannotWork);

    if (!greet(readerSocket, confine(*role, setup.missing))) end(brokenConversation);
    const auto served = serve(readerSocket, [&](const ReaderRequest& request, PassedFile& file) {
        return answer(request, file, recogniser.get(), setup.otherWork);
    });
    end(served == ServeEnd::closed ? ended : brokenConversation);
}

}  // namespace nookwise
