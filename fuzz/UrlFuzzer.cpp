// Any bytes are the path of a file and of its URL, or of neither.
#include "fuzz/Check.h"
#include "platform/FileUrl.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nookwise {
namespace {

void checkParts(const FileUrl& url) {
    const auto standard = url.standardized();
    const auto name = url.lastPathComponent();
    check(url.parent().append(name).standardized() == standard,
          "a path is its folder and its name");
    const auto extension = url.pathExtension();
    const auto dot = std::string(extension.empty() ? "" : ".");
    check(std::string(url.stem()) + dot + std::string(extension) == name,
          "a name is its stem and its extension");
    check(url.isWithin(url.parent()) && url.isWithin(url), "a path lies in its folder");
    check(standard.standardized() == standard, "what is standardized stays so");
    check(standard.path().starts_with('/'), "what is standardized is absolute");
}

void checkRoundTrip(const FileUrl& url) {
    const auto text = url.urlString();
    for (const char c : text) check(c > ' ' && c < '\x7F', "a URL is printable ASCII");
    const auto read = FileUrl::fromUrlString(text);
    check(read && *read == url, "a path comes back from its URL");
}

void checkBytes(std::string_view bytes) {
    if (const auto url = FileUrl::fromUrlString(bytes)) {
        check(url->path().starts_with('/'), "a URL's path is absolute");
        checkRoundTrip(*url);
        checkParts(*url);
    }
    // No path holds a NUL.
    const FileUrl url("/" + std::string(bytes.substr(0, bytes.find('\0'))));
    checkRoundTrip(url);
    checkParts(url);
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkBytes({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
