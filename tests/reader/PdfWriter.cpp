#include "tests/reader/PdfWriter.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace nookwise {
namespace {

std::string decimal(std::size_t number) {
    return std::to_string(number);
}

int addCourier(PdfWriter& writer) {
    return writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/Encoding/WinAnsiEncoding>>");
}

int addChineseFont(PdfWriter& writer) {
    const int descriptor = writer.add(
        "<</Type/FontDescriptor/FontName/Song/Flags 4/FontBBox[0 0 1000 1000]/ItalicAngle 0"
        "/Ascent 800/Descent -200/CapHeight 800/StemV 80>>");
    const int descendant = writer.add(
        "<</Type/Font/Subtype/CIDFontType0/BaseFont/Song/CIDSystemInfo"
        "<</Registry(Adobe)/Ordering(GB1)/Supplement 2>>/FontDescriptor " +
        reference(descriptor) + ">>");
    return writer.add(
        "<</Type/Font/Subtype/Type0/BaseFont/Song/Encoding/UniGB-UCS2-H"
        "/DescendantFonts[" +
        reference(descendant) + "]>>");
}

}  // namespace

int PdfWriter::add(std::string_view object) {
    objects_.emplace_back(object);
    return static_cast<int>(objects_.size());
}

int PdfWriter::addStream(std::string_view bytes, std::string_view entries) {
    std::string stream = "<<";
    stream += entries;
    stream += "/Length " + decimal(bytes.size()) + ">>stream\n";
    stream += bytes;
    return add(stream + "\nendstream");
}

std::string PdfWriter::document(int catalog, std::string_view trailer) const {
    std::string bytes = "%PDF-1.4\n";
    std::string table = "xref\n0 " + decimal(objects_.size() + 1) + "\n0000000000 65535 f \n";
    for (std::size_t index = 0; index < objects_.size(); ++index) {
        std::array<char, 32> entry{};
        std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \n", bytes.size());
        table += entry.data();
        bytes += decimal(index + 1) + " 0 obj\n" + objects_[index] + "\nendobj\n";
    }
    const auto start = bytes.size();
    bytes +=
        table + "trailer<</Size " + decimal(objects_.size() + 1) + "/Root " + reference(catalog);
    bytes += trailer;
    return bytes + ">>\nstartxref\n" + decimal(start) + "\n%%EOF\n";
}

std::string reference(int object) {
    return std::to_string(object) + " 0 R";
}

std::string pdfOf(PdfWriter& writer, const std::vector<std::string>& contents, int font, int width,
                  std::string_view entries) {
    std::vector<int> streams;
    // What holds the pages comes after all of them.
    int pages = font + 1;
    for (const auto& content : contents) {
        streams.push_back(writer.addStream(content));
        pages = streams.back() + static_cast<int>(contents.size()) + 1;
    }
    std::string kids;
    for (const int stream : streams) {
        std::string page = "<</Type/Page/Parent " + reference(pages) + "/Contents " +
                           reference(stream) + "/MediaBox[0 0 " + std::to_string(width) +
                           " 800]/Resources<</Font<</F " + reference(font) + ">>>>";
        page += entries;
        kids += reference(writer.add(page + ">>")) + " ";
    }
    writer.add("<</Type/Pages/Kids[" + kids + "]/Count " + decimal(streams.size()) + ">>");
    return writer.document(writer.add("<</Type/Catalog/Pages " + reference(pages) + ">>"));
}

std::string latinPdf(const std::vector<std::string>& texts) {
    constexpr int fontSize = 10;
    constexpr int charactersBesides = 20;
    std::size_t longest = 0;
    std::vector<std::string> contents;
    for (const auto& text : texts) {
        longest = std::max(longest, text.size());
        contents.push_back("BT /F " + std::to_string(fontSize) + " Tf 50 700 Td(" + text +
                           ")Tj ET");
    }
    PdfWriter writer;
    const int font = addCourier(writer);
    // A letter of Courier is 0.6 of its size wide; what lies outside the page is no text.
    const int width = static_cast<int>(longest + charactersBesides) * fontSize * 6 / 10;
    return pdfOf(writer, contents, font, width);
}

std::string chinesePdf() {
    PdfWriter writer;
    const int font = addChineseFont(writer);
    return pdfOf(writer, {"BT /F 20 Tf 50 700 Td<4F60597D4E16754C>Tj ET"}, font);
}

std::string compressedPdf(std::string_view deflated) {
    PdfWriter writer;
    const int content = writer.addStream(deflated, "/Filter/FlateDecode");
    const int page = content + 1;
    const int pages = content + 2;
    writer.add("<</Type/Page/Parent " + reference(pages) + "/MediaBox[0 0 99 99]/Contents " +
               reference(content) + ">>");
    writer.add("<</Type/Pages/Kids[" + reference(page) + "]/Count 1>>");
    return writer.document(writer.add("<</Type/Catalog/Pages " + reference(pages) + ">>"));
}

}  // namespace nookwise
