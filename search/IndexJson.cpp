#include "search/IndexJson.h"

#include "platform/Text.h"
#include "search/IndexBuilder.h"
#include "search/JsonInput.h"
#include "search/JsonPlainText.h"
#include "search/SharedNames.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

namespace nookwise {
namespace {

constexpr std::string_view urlScheme = "file:";

constexpr std::size_t pieceSize = std::size_t{256} << 10U;

bool canBeReadBack(const IndexEntry& entry) {
    return std::isfinite(entry.mtime) && entry.text.view().size() <= JsonInput::longestString;
}

std::optional<FileUrl> urlFromName(std::string_view name) {
    if (name.starts_with(urlScheme)) return FileUrl::fromUrlString(name);
    return name.starts_with('/') ? std::optional(FileUrl(name)) : std::nullopt;
}

class IndexReader {
  public:
    IndexReader(FileReader& file, std::uint64_t limit) : input_(file, limit) {}

    std::optional<IndexEntries> read() {
        if (!readObject([this] { return readFile(); }) || !input_.isAtEnd()) return std::nullopt;
        return entries_.take();
    }

  private:
    /// Takes an object whose members' values are taken by `readValue`. Their names are in `name_`.
    template <typename ReadValue>
    bool readObject(ReadValue readValue) {
        if (!input_.take('{')) return false;
        if (input_.take('}')) return true;
        do {
            if (!input_.takeString(name_) || !input_.take(':') || !readValue()) return false;
        } while (input_.take(','));
        return input_.take('}');
    }

    bool readFile() {
        const auto url = urlFromName(name_);
        mtime_.reset();
        hasText_ = false;
        source_.reset();
        if (!readObject([this] { return readMember(); }) || !mtime_ || !hasText_) return false;
        if (url)
            entries_.add(*url, {.mtime = *mtime_, .text = SharedBytes(text_), .source = source_});
        return true;
    }

    bool readMember() {
        if (name_ == "mtime") return input_.takeNumber(mtime_.emplace());
        if (name_ == "text") return hasText_ = input_.takeString(text_);
        if (name_ != "source") return input_.skipValue();
        source_.reset();
        if (input_.isNext('n')) return input_.takeWord("null");
        if (!input_.takeString(value_)) return false;
        source_ = names_.shared(SharedBytes(value_));
        return true;
    }

    JsonInput input_;
    IndexBuilder entries_;
    SharedNames names_;
    std::string name_;
    std::string value_;
    // Of the file at hand.
    std::optional<double> mtime_;
    bool hasText_ = false;
    std::string text_;
    std::optional<SharedBytes> source_;
};

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

std::optional<IndexEntries> indexFromJson(FileReader& file, std::uint64_t limit) {
    return IndexReader(file, limit).read();
}

}  // namespace nookwise
