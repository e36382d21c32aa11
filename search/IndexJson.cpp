#include "search/IndexJson.h"

#include "platform/Text.h"
#include "search/JsonPlainText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

namespace nookwise {
namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10U;

bool canBeReadBack(const IndexEntry& entry) {
    return std::isfinite(entry.mtime) && entry.text.view().size() <= longestIndexedText;
}

}  // namespace

IndexJsonWriter::IndexJsonWriter(const ContentsSink& sink) : sink_(sink) {
    pending_.reserve(pieceSize);
}

bool IndexJsonWriter::add(const FileUrl& url, const IndexEntry& entry) {
    if (!canBeReadBack(entry)) return isTaken_;
    put(std::exchange(isEmpty_, false) ? "{" : ",");
    putString(isWellFormed(url.path()) ? url.path() : url.urlString());
    put(":{\"mtime\":");
    putNumber(entry.mtime);
    put(",\"text\":");
    putString(entry.text.view());
    if (entry.source) {
        put(",\"source\":");
        putString(entry.source->view());
    }
    put("}");
    return isTaken_;
}

bool IndexJsonWriter::finish() {
    put(isEmpty_ ? "{}" : "}");
    return flush();
}

void IndexJsonWriter::put(std::string_view bytes) {
    while (bytes.size() > pieceSize - pending_.size()) {
        const auto room = pieceSize - pending_.size();
        pending_ += bytes.substr(0, room);
        bytes.remove_prefix(room);
        flush();
    }
    pending_ += bytes;
}

void IndexJsonWriter::putString(std::string_view text) {
    put("\"");
    for (auto plain = plainLength(text); plain < text.size(); plain = plainLength(text)) {
        put(text.substr(0, plain));
        putEscaped(text[plain]);
        text.remove_prefix(plain + 1);
    }
    put(text);
    put("\"");
}

void IndexJsonWriter::putEscaped(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    switch (c) {
        case '"':
            return put("\\\"");
        case '\\':
            return put("\\\\");
        case '\n':
            return put("\\n");
        default:
            put("\\u00");
            put(digits.substr(byte >> 4U, 1));
            put(digits.substr(byte & 15U, 1));
    }
}

void IndexJsonWriter::putNumber(double number) {
    std::array<char, 32> digits{};
    const auto* const last =
        std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    put({digits.data(), static_cast<std::size_t>(last - digits.data())});
}

bool IndexJsonWriter::flush() {
    isTaken_ = isTaken_ && sink_(pending_);
    pending_.clear();
    return isTaken_;
}

}  // namespace nookwise
