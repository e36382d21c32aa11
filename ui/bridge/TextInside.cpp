#include "ui/bridge/TextInside.h"

namespace nookwise {

SharedBytes textInside(const TextsByUrl& texts, const FileUrl& url) {
    const auto text = texts.find(url);
    return text == texts.end() ? SharedBytes() : text->second;
}

std::string_view fromFirstLetter(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n\f");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

}  // namespace nookwise
