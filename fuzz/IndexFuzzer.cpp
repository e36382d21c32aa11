// An index file may hold any bytes; what is read from it survives being written.
#include "fuzz/Check.h"
#include "platform/Text.h"
#include "search/IndexJson.h"
#include "tests/search/GivenBytes.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {
namespace {

std::optional<IndexEntries> entriesOf(std::string bytes) {
    GivenBytes file(std::move(bytes));
    return indexFromJson(file, file.size());
}

std::string textOf(const IndexEntries& entries) {
    std::string text;
    const ContentsSink sink = [&](std::string_view piece) {
        text += piece;
        return true;
    };
    IndexJsonWriter writer(sink);
    for (const auto& [url, entry] : entries) check(writer.add(url, entry), "an entry is taken");
    check(writer.finish(), "the end is taken");
    return text;
}

void checkFile(std::string_view bytes) {
    const auto entries = entriesOf(std::string(bytes));
    if (!entries) return;
    for (const auto& [url, entry] : *entries) {
        check(url.path().starts_with('/'), "an entry has an absolute path");
        check(std::isfinite(entry.mtime), "a time is a number");
        check(isWellFormed(entry.text.view()), "a text is UTF-8");
        check(entry.lowerText.view() == lowercased(entry.text.view()), "its lower case is made");
    }
    const auto again = entriesOf(textOf(*entries));
    check(again && *again == *entries, "entries come back from their text");
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkFile({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
