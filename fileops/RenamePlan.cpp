#include "fileops/RenamePlan.h"

#include "fileops/NameFitting.h"
#include "platform/InternetDate.h"
#include "platform/Text.h"
#include "platform/TextCharacters.h"
#include "platform/TextClasses.h"

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace nookwise {
namespace {

constexpr std::string_view betweenParts = " — ";
constexpr std::string_view noTextFound = "no text found";
constexpr std::string_view nameKept = " — name kept";
/// What a taken name gets first.
constexpr std::string_view shortestNumber = " (2)";
/// No number is longer than this.
constexpr std::size_t longestNumber = 24;

/// What a name is made of.
struct Parts {
    std::string_view line;
    std::string_view day;

    bool empty() const { return line.empty() && day.empty(); }
};

std::string_view withoutTrailingSpace(std::string_view text) {
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

/// In UTC; empty for a file without any date.
std::string dayOf(const FileItem& file) {
    constexpr std::size_t dayLength = 10;
    const auto date = file.added ? file.added : file.modified;
    return date ? internetDate(*date).substr(0, dayLength) : std::string();
}

std::string withDashes(std::string_view name) {
    std::string dashed;
    bool dashDue = false;
    visitCharacters(lowercased(name), [&](std::string_view character) {
        const auto kind = classOf(character);
        if (kind != CharacterClass::letter && kind != CharacterClass::digit) {
            dashDue = !dashed.empty();
            return true;
        }
        if (std::exchange(dashDue, false)) dashed += '-';
        dashed += character;
        return true;
    });
    return dashed;
}

std::string joined(const Parts& parts, const RenameOptions& options) {
    std::string name(parts.line);
    if (!parts.line.empty() && !parts.day.empty()) name += betweenParts;
    name += parts.day;
    return options.dashed ? withDashes(name) : name;
}

/// Takes from the line what does not fit, so that the day stays.
std::string joinedToFit(Parts parts, const RenameOptions& options, std::size_t room) {
    auto name = joined(parts, options);
    while (name.size() > room && !parts.line.empty()) {
        const auto excess = name.size() - room;
        const auto left = parts.line.size() > excess ? parts.line.size() - excess : 0;
        parts.line = withoutTrailingSpace(fitting(parts.line, left));
        name = joined(parts, options);
    }
    return std::string(withoutTrailingSpace(fitting(name, room)));
}

/// How long a name may be before its extension, so that it may also get a number.
std::size_t roomBefore(std::string_view extension) {
    const auto tail = nameOf(shortestNumber, extension).size();
    return tail < longestName ? longestName - tail : 0;
}

/// The names that are given in a plan, each once, whatever their case.
class GivenNames {
  public:
    struct Given {
        std::string name;
        bool wasTaken = false;
    };

    Given give(std::string_view base, std::string_view extension) {
        auto name = nameOf(base, extension);
        if (names_.insert(lowercased(name)).second) return {std::move(name), false};
        // All smaller numbers were taken when they were tried, and none is ever free again.
        auto& number = nextNumber_.try_emplace(family(base, extension), 2).first->second;
        do {
            name = numberedName(base, extension, number++);
        } while (!names_.insert(lowercased(name)).second);
        return {std::move(name), true};
    }

  private:
    /// The same for names that are the same with every number.
    static std::string family(std::string_view base, std::string_view extension) {
        constexpr std::string_view separator = "/";
        // Where a number cuts the base, how much is cut depends on the case.
        const bool mayBeCut = base.size() + extension.size() + longestNumber > longestName;
        if (mayBeCut) return std::string(base).append(separator).append(extension);
        // What follows a letter may have a say in its lower case.
        return lowercased(std::string(base).append(shortestNumber))
            .append(separator)
            .append(lowercased(nameOf("", extension)));
    }

    std::unordered_set<std::string> names_;
    std::unordered_map<std::string, std::uint64_t> nextNumber_;
};

class Planner {
  public:
    Planner(const TextsByUrl& texts, const RenameOptions& options, FirstLines& lines)
        : texts_(texts), options_(options), lines_(lines) {}

    RenameRow plan(const FileItem& file) {
        const auto& line = lineOf(file);
        const auto day = options_.useDate ? dayOf(file) : std::string();
        std::optional<std::string> note;
        if (options_.useText && !line) note = noTextFound;
        const auto extension = file.url.pathExtension();
        const auto base = joinedToFit({line ? std::string_view(*line) : std::string_view(), day},
                                      options_, roomBefore(extension));
        if (base.empty()) return keep(file, std::move(note));
        auto [name, wasTaken] = given_.give(base, extension);
        if (wasTaken && !note) note = sameNameNote;
        return {file, std::move(name), std::move(note)};
    }

  private:
    static RenameRow keep(const FileItem& file, std::optional<std::string> note) {
        if (note) *note += nameKept;
        return {file, std::string(file.url.lastPathComponent()), std::move(note)};
    }

    const std::optional<std::string>& lineOf(const FileItem& file) {
        static const std::optional<std::string> none;
        if (!options_.useText) return none;
        const auto text = texts_.find(file.url);
        return text == texts_.end() ? none : lines_.of(file.url, text->second);
    }

    const TextsByUrl& texts_;
    const RenameOptions& options_;
    FirstLines& lines_;
    GivenNames given_;
};

}  // namespace

std::vector<RenameRow> makePlan(std::span<const FileItem> files, const TextsByUrl& texts,
                                const RenameOptions& options, FirstLines& lines) {
    Planner planner(texts, options, lines);
    std::vector<RenameRow> rows;
    rows.reserve(files.size());
    for (const auto& file : files) rows.push_back(planner.plan(file));
    return rows;
}

std::vector<RenameRow> makePlan(std::span<const FileItem> files, const TextsByUrl& texts,
                                const RenameOptions& options) {
    FirstLines lines;
    return makePlan(files, texts, options, lines);
}

}  // namespace nookwise
