#include "platform/Text.h"
#include "search/IndexBuilder.h"
#include "search/IndexJson.h"
#include "search/JsonStream.h"
#include "search/SharedNames.h"

#include <charconv>
#include <cstddef>
#include <new>
#include <string_view>
#include <system_error>

namespace nookwise {
namespace {

using rapidjson::SizeType;

constexpr int deepestNesting = 512;
// Far more digits than a double needs.
constexpr std::size_t longestNumber = 400;
// For the string at hand and the brackets that are open.
constexpr std::size_t readerMemory = longestIndexedText + (std::size_t{16} << 10U);

// Strings are checked here, when they are complete: RapidJSON's own check would let escaped lone
// surrogates through. Numbers come as they stand, so that times are read exactly.
constexpr unsigned parseFlags =
    rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;

/// Gives RapidJSON its memory once and no more, so that a string that never ends is a failure.
class ReaderMemory {
  public:
    [[maybe_unused]] static constexpr bool kNeedFree = true;

    void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }
    void* Realloc(void* original, std::size_t, std::size_t size) {
        if (original != nullptr && size > 0) throw std::bad_alloc();
        Free(original);
        return Malloc(size);
    }
    static void Free(void* memory) { ::operator delete(memory); }
};

std::optional<FileUrl> urlFromName(std::string_view name) {
    if (name.starts_with("file:")) return FileUrl::fromUrlString(name);
    return name.starts_with('/') ? std::optional(FileUrl(name)) : std::nullopt;
}

/// Is told by RapidJSON what comes. False from any operation ends the reading.
class IndexHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, IndexHandler> {
  public:
    IndexEntries take() { return entries_.take(); }

    bool Default() { return isPassedBy(); }

    bool Null() {
        if (!isValueOf(Member::source)) return isPassedBy();
        source_.reset();
        return true;
    }

    bool RawNumber(const char* digits, SizeType length, bool) {
        if (length > longestNumber) return false;
        if (!isValueOf(Member::mtime)) return isPassedBy();
        const auto* const last = digits + length;
        const auto read = std::from_chars(digits, last, mtime_.emplace());
        return read.ec == std::errc() && read.ptr == last;
    }

    bool String(const char* bytes, SizeType length, bool) {
        const std::string_view value(bytes, length);
        if (!mayBe(value)) return false;
        if (isValueOf(Member::text)) {
            text_ = SharedBytes(value);
        } else if (isValueOf(Member::source)) {
            source_ = names_.shared(SharedBytes(value));
        } else {
            return isPassedBy();
        }
        return true;
    }

    bool Key(const char* bytes, SizeType length, bool) {
        const std::string_view name(bytes, length);
        if (!mayBe(name)) return false;
        if (level_ == inIndex) url_ = urlFromName(name);
        if (level_ == inFile) member_ = memberOf(name);
        return true;
    }

    bool StartObject() {
        if (level_ >= inFile) return StartArray();
        ++level_;
        mtime_.reset();
        text_.reset();
        source_.reset();
        return true;
    }

    bool EndObject(SizeType) {
        if (--level_ != inIndex) return true;
        if (!mtime_ || !text_) return false;
        if (url_) entries_.add(*url_, {.mtime = *mtime_, .text = *text_, .source = source_});
        return true;
    }

    bool StartArray() { return isPassedBy() && ++level_ <= inFile + deepestNesting; }

    bool EndArray(SizeType) {
        --level_;
        return true;
    }

  private:
    enum class Member { mtime, text, source, other };

    static constexpr int inIndex = 1;
    static constexpr int inFile = 2;

    static Member memberOf(std::string_view name) {
        if (name == "mtime") return Member::mtime;
        if (name == "text") return Member::text;
        return name == "source" ? Member::source : Member::other;
    }

    static bool mayBe(std::string_view string) {
        return string.size() <= longestIndexedText && isWellFormed(string);
    }

    bool isValueOf(Member member) const { return level_ == inFile && member_ == member; }
    bool isPassedBy() const { return level_ > inFile || isValueOf(Member::other); }

    IndexBuilder entries_;
    SharedNames names_;
    /// How many brackets are open.
    int level_ = 0;
    // Of the file at hand.
    std::optional<FileUrl> url_;
    Member member_ = Member::other;
    std::optional<double> mtime_;
    std::optional<SharedBytes> text_;
    std::optional<SharedBytes> source_;
};

}  // namespace

std::optional<IndexEntries> indexFromJson(FileReader& file, std::uint64_t limit) {
    JsonPieces pieces(file, limit);
    JsonStream stream(pieces);
    IndexHandler handler;
    ReaderMemory memory;
    rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, ReaderMemory> reader(
        &memory, readerMemory);
    try {
        if (!reader.Parse<parseFlags>(stream, handler) || !pieces.isEnded()) return std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
    return handler.take();
}

}  // namespace nookwise
