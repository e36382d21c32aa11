// Whatever the texts inside hold, a file system takes the names that are made of them. The input is
// the options, then a name and a text for each file.
#include "fileops/RenamePlan.h"
#include "fuzz/Check.h"
#include "fuzz/Fields.h"
#include "platform/Text.h"
#include "platform/TextCharacters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nookwise {
namespace {

bool isControl(unsigned char byte) {
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char del = 0x7F;
    return byte < firstPrintable || byte == del;
}

bool holdsControl(std::string_view text) {
    if (std::ranges::any_of(text, isControl)) return true;
    // U+0080 to U+009F.
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == '\xC2' && static_cast<unsigned char>(text[i + 1]) < 0xA0) return true;
    }
    return false;
}

/// A space that is joined to a character before it is none.
bool holdsTwoSpaces(std::string_view text) {
    bool isAfterSpace = false;
    bool holdsTwo = false;
    visitCharacters(text, [&](std::string_view character) {
        holdsTwo |= isAfterSpace && character == " ";
        isAfterSpace = character == " ";
        return true;
    });
    return holdsTwo;
}

void checkLine(std::string_view text) {
    const auto line = firstLine(text);
    if (!line) return;
    constexpr std::size_t longest = 50;
    check(!line->empty(), "a line says something");
    check(characterCount(*line) <= longest, "a line is short");
    check(isWellFormed(*line), "a line is UTF-8");
    check(!holdsControl(*line), "a line holds nothing that controls a terminal");
    check(line->find_first_of("/:") == std::string::npos, "a line can be a name");
    check(line->front() != ' ' && line->back() != ' ', "a line is trimmed");
    check(!holdsTwoSpaces(*line), "a line has single spaces");
}

void checkNewName(const RenameRow& row) {
    const std::string_view name = row.newName;
    const auto extension = row.file.url.pathExtension();
    check(isFileName(name), "a file can have the name");
    check(name.ends_with(extension), "the extension stays");
    const auto stem = name.substr(0, name.size() - extension.size());
    check(isWellFormed(stem), "the name is UTF-8");
    check(!holdsControl(stem), "the name holds nothing that controls a terminal");
}

void checkRows(const std::vector<FileItem>& files, const std::vector<RenameRow>& rows) {
    check(rows.size() == files.size(), "every file has a row");
    std::set<std::string> given;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        check(rows[i].file == files[i], "rows are in the order of the files");
        if (!rows[i].renames()) continue;
        checkNewName(rows[i]);
        check(given.insert(lowercased(rows[i].newName)).second, "no name is given twice");
    }
}

RenameOptions optionsOf(std::string_view field) {
    const auto has = [&](char option) { return field.find(option) != std::string_view::npos; };
    return {.useText = has('t'), .useDate = has('d'), .dashed = has('-')};
}

void checkInput(Fields fields) {
    const auto options = optionsOf(fields.next());
    std::vector<FileItem> files;
    TextsByUrl texts;
    while (!fields.isAtEnd()) {
        const auto name = fields.next();
        const auto text = fields.next();
        checkLine(text);
        if (!isFileName(name)) continue;
        const FileUrl url("/home/" + std::string(name));
        if (!texts.try_emplace(url, text).second) continue;
        files.push_back({.url = url});
        // Some have no date.
        if (name.size() % 2 == 0)
            files.back().added = Date(Seconds(1e7 * static_cast<double>(text.size())));
    }
    FirstLines lines;
    const auto rows = makePlan(files, texts, options, lines);
    checkRows(files, rows);
    check(makePlan(files, texts, options, lines) == rows, "what is remembered changes nothing");
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkInput({bytes, size});
    return 0;
}
