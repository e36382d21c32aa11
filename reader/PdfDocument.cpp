#include "reader/PdfDocument.h"

#include "reader/PdfText.h"
#include "reader/PdfThumbnail.h"

#include <limits>
#include <string_view>

#include <iconv.h>
#include <poppler-document.h>
#include <poppler-global.h>

namespace nookwise {
namespace {

/// One page that says "Nookwise" in a font that it does not bring along. Without a table of its
/// objects, which Poppler then finds by itself.
constexpr std::string_view smallDocument =
    "%PDF-1.4\n"
    "1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
    "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
    "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 99 99]/Contents 4 0 R"
    "/Resources<</Font<</F 5 0 R>>>>>>endobj\n"
    "4 0 obj<</Length 33>>stream\nBT /F 12 Tf 9 9 Td(Nookwise)Tj ET\nendstream endobj\n"
    "5 0 obj<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>endobj\n"
    "trailer<</Root 1 0 R>>\n";

/// The C library loads the code of a conversion when the first one is opened, and forgets it some
/// time after the last one was closed. Poppler gives no text without a word where that fails.
struct KeptConversions {
    iconv_t fromUtf8 = ::iconv_open("UTF-16", "UTF-8");
    iconv_t toUtf8 = ::iconv_open("UTF-8", "UTF-16");
};

/// Poppler reads its configuration anew for each document that is opened while no other is.
struct Kept {
    KeptConversions conversions;
    std::unique_ptr<poppler::document> document =
        openPdf(std::as_bytes(std::span(smallDocument.data(), smallDocument.size())));
};

void ignoreComplaint(const std::string&, void*) {}

}  // namespace

bool preparePdf(PdfUse use) {
    poppler::set_debug_error_function(&ignoreComplaint, nullptr);
    static const Kept kept;
    const auto bytes = std::as_bytes(std::span(smallDocument.data(), smallDocument.size()));
    // The list of the system's fonts is read when the first page is drawn.
    if (use == PdfUse::textAndThumbnails && !pdfThumbnail(bytes, 99)) return false;
    return kept.document != nullptr && pdfText(bytes) == "Nookwise\n";
}

std::unique_ptr<poppler::document> openPdf(std::span<const std::byte> bytes) {
    if (bytes.empty() || bytes.size() > std::numeric_limits<int>::max()) return nullptr;
    std::unique_ptr<poppler::document> document(poppler::document::load_from_raw_data(
        reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())));
    return document != nullptr && !document->is_locked() ? std::move(document) : nullptr;
}

}  // namespace nookwise
