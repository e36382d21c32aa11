#include "fileops/ActivityJson.h"

#include "platform/InternetDate.h"
#include "platform/Text.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace nookwise {
namespace {

using Kind = ActivityEntry::Kind;
using Move = ActivityEntry::Move;
using Json = rapidjson::Value;
using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

void writeText(JsonWriter& writer, std::string_view text) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void writeUrl(JsonWriter& writer, const FileUrl& url) {
    writer.StartObject();
    writer.Key("relative");
    writeText(writer, url.urlString());
    writer.EndObject();
}

void writeMove(JsonWriter& writer, const Move& move) {
    writer.StartObject();
    writer.Key("original");
    writeUrl(writer, move.original);
    writer.Key("inTrash");
    writeUrl(writer, move.inTrash);
    writer.Key("size");
    writer.Int64(move.size);
    writer.EndObject();
}

void writeEntry(JsonWriter& writer, const ActivityEntry& entry) {
    writer.StartObject();
    writer.Key("id");
    writeText(writer, entry.id.text());
    writer.Key("date");
    writeText(writer, internetDate(entry.date));
    writer.Key("title");
    // A folder's name in a title may hold bytes that JSON cannot.
    writeText(writer, wellFormed(entry.title));
    writer.Key("source");
    writeText(writer, wellFormed(entry.source));
    writer.Key("moves");
    writer.StartArray();
    for (const auto& move : entry.moves) writeMove(writer, move);
    writer.EndArray();
    writer.Key("restored");
    writer.Bool(entry.restored);
    if (entry.kind) {
        writer.Key("kind");
        writeText(writer, rawValue(*entry.kind));
    }
    writer.EndObject();
}

/// Reads the members of one object. A member that is missing or of another type spoils it.
class Members {
  public:
    explicit Members(const Json& object) : object_(object), isGood_(object.IsObject()) {}

    bool isGood() const { return isGood_; }

    std::string_view text(const char* key) {
        const auto* value = find(key);
        if (value == nullptr || !value->IsString()) return spoil(), std::string_view{};
        const std::string_view text(value->GetString(), value->GetStringLength());
        // RapidJSON's own check lets escaped lone surrogates through.
        if (!isWellFormed(text)) spoil();
        return text;
    }

    bool boolean(const char* key) {
        const auto* value = find(key);
        if (value == nullptr || !value->IsBool()) return spoil(), false;
        return value->GetBool();
    }

    std::int64_t integer(const char* key) {
        const auto* value = find(key);
        if (value == nullptr || !value->IsInt64()) return spoil(), 0;
        return value->GetInt64();
    }

    FileUrl url(const char* key) {
        const auto* value = find(key);
        if (value == nullptr) return spoil(), FileUrl();
        Members members(*value);
        auto url = FileUrl::fromUrlString(members.text("relative"));
        if (!url || !members.isGood()) spoil();
        return std::move(url).value_or(FileUrl());
    }

    /// What `read` makes of a text; none, and spoilt, when it makes nothing of it.
    template <typename Read>
    auto parsed(const char* key, Read read) ->
        typename decltype(read(std::string_view{}))::value_type {
        const auto value = read(text(key));
        if (!value) spoil();
        return value.value_or(typename decltype(read(std::string_view{}))::value_type{});
    }

    std::vector<Move> moves(const char* key) {
        std::vector<Move> moves;
        const auto* value = find(key);
        if (value == nullptr || !value->IsArray()) return spoil(), moves;
        moves.reserve(value->Size());
        for (const auto& element : value->GetArray()) {
            Members members(element);
            moves.push_back(
                {members.url("original"), members.url("inTrash"), members.integer("size")});
            isGood_ = isGood_ && members.isGood();
        }
        return moves;
    }

    /// None where the key is missing or null.
    std::optional<Kind> kind(const char* key) {
        const auto* value = find(key);
        if (value == nullptr || value->IsNull()) return std::nullopt;
        return parsed(key, activityKindFromRawValue);
    }

  private:
    const Json* find(const char* key) const {
        if (!isGood_) return nullptr;
        const auto member = object_.FindMember(key);
        return member == object_.MemberEnd() ? nullptr : &member->value;
    }
    void spoil() { isGood_ = false; }

    const Json& object_;
    bool isGood_;
};

std::optional<ActivityEntry> readEntry(const Json& object) {
    Members members(object);
    ActivityEntry entry{.id = members.parsed("id", Uuid::fromText),
                        .date = members.parsed("date", dateFromInternetDate),
                        .title = std::string(members.text("title")),
                        .source = std::string(members.text("source")),
                        .moves = members.moves("moves"),
                        .restored = members.boolean("restored"),
                        .kind = members.kind("kind")};
    if (!members.isGood()) return std::nullopt;
    return entry;
}

}  // namespace

std::string activityJson(std::span<const ActivityEntry> entries) {
    rapidjson::StringBuffer buffer;
    JsonWriter writer(buffer);
    writer.StartArray();
    for (const auto& entry : entries) writeEntry(writer, entry);
    writer.EndArray();
    return {buffer.GetString(), buffer.GetSize()};
}

std::optional<std::vector<ActivityEntry>> activityFromJson(std::string_view text) {
    rapidjson::Document document;
    // Iterative: a file of nothing but brackets must not exhaust the stack.
    document.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(
        text.data(), text.size());
    if (document.HasParseError() || !document.IsArray()) return std::nullopt;
    std::vector<ActivityEntry> entries;
    entries.reserve(document.Size());
    for (const auto& element : document.GetArray()) {
        auto entry = readEntry(element);
        if (!entry) return std::nullopt;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace nookwise
