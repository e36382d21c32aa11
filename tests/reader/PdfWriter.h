// Makes PDF documents for tests.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// Objects are numbered from 1 in the order in which they are added; `add` returns the number.
class PdfWriter {
  public:
    int add(std::string_view object);
    /// `entries` are those of its dictionary but its length.
    int addStream(std::string_view bytes, std::string_view entries = {});

    /// `trailer` are entries of the last dictionary.
    std::string document(int catalog, std::string_view trailer = {}) const;

  private:
    std::vector<std::string> objects_;
};

std::string reference(int object);

/// One page each, with the content as given, in points 0 to `width` and 0 to 800, and a font "F"
/// (an object of the writer, which may hold more already). `entries` go to every page.
std::string pdfOf(PdfWriter& writer, const std::vector<std::string>& contents, int font,
                  int width = 600, std::string_view entries = {});

/// One page a text, each in one line of Courier. No parentheses and backslashes.
std::string latinPdf(const std::vector<std::string>& texts);

/// The same page of Chinese in an encoding whose table no document brings along: "你好世界".
std::string chinesePdf();

/// One page, whose content is the bytes compressed.
std::string compressedPdf(std::string_view deflated);

}  // namespace nookwise
