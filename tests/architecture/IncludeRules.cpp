#include "tests/architecture/IncludeRules.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string_view>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

enum class Qt { allowed, forbidden };

struct Rule {
    std::string_view room;
    Qt qt;
    /// The room itself is always allowed.
    std::vector<std::string_view> mayInclude;
};

const std::string_view linuxRoom = "platform/linux";

const std::vector<Rule> rules{
    // The more specific room stands first.
    {linuxRoom, Qt::allowed, {"platform"}},
    {"platform", Qt::forbidden, {}},
    {"model", Qt::forbidden, {"platform"}},
    {"scan", Qt::forbidden, {"model", "platform"}},
    {"search", Qt::forbidden, {"model", "platform"}},
    {"fileops", Qt::forbidden, {"model", "platform"}},
    {"app", Qt::forbidden, {"scan", "search", "fileops", "model", "platform"}},
    // The platform's own process for untrusted files; the application never sees it.
    {"reader", Qt::forbidden, {linuxRoom, "platform"}},
    {"ui", Qt::allowed, {"app", "scan", "search", "fileops", "model", "platform"}},
};

bool liesIn(std::string_view path, std::string_view room) {
    return path.starts_with(room) && path.size() > room.size() && path[room.size()] == '/';
}

const Rule* ruleFor(std::string_view path) {
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const Rule& candidate) {
        return liesIn(path, candidate.room);
    });
    return rule == rules.end() ? nullptr : &*rule;
}

bool isMain(std::string_view path) {
    return path.ends_with("/main.cpp");
}

bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

/// QString, QtCore, QtCore/QString.
bool isQtHeader(std::string_view header) {
    if (!header.starts_with('Q') || header.size() < 2) return false;
    return isUpper(header[1]) || (header[1] == 't' && header.size() > 2 && isUpper(header[2]));
}

struct Include {
    std::string header;
    bool quoted;
};

bool isAllowed(const Rule& rule, std::string_view path, const Include& include) {
    if (isQtHeader(include.header)) return rule.qt == Qt::allowed;
    const auto* target = ruleFor(include.header);
    // Quotes are for this repository, and its folders are the only roads through it; what the build
    // makes beside a file has no folder.
    if (target == nullptr)
        return !include.quoted || (rule.qt == Qt::allowed && include.header.ends_with(".moc"));
    if (target->room == rule.room) return true;
    const bool isOpen = std::find(rule.mayInclude.begin(), rule.mayInclude.end(), target->room) !=
                        rule.mayInclude.end();
    return isOpen || (target->room == linuxRoom && isMain(path));
}

std::vector<fs::path> filesUnderRules(const fs::path& root) {
    static constexpr std::array<std::string_view, 4> extensions{".h", ".hpp", ".cpp", ".cc"};
    std::vector<fs::path> files;
    for (const auto& rule : rules) {
        const auto room = root / rule.room;
        if (rule.room == linuxRoom || !fs::is_directory(room)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(room)) {
            const auto extension = entry.path().extension().string();
            if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
                files.push_back(entry.path().lexically_relative(root));
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    const auto start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

std::optional<Include> includeOn(std::string_view line) {
    line = withoutLeadingBlanks(line);
    if (!line.starts_with('#')) return std::nullopt;
    line = withoutLeadingBlanks(line.substr(1));
    static constexpr std::string_view directive = "include";
    if (!line.starts_with(directive)) return std::nullopt;
    line = withoutLeadingBlanks(line.substr(directive.size()));
    if (!line.starts_with('"') && !line.starts_with('<')) return std::nullopt;
    const bool quoted = line.front() == '"';
    const auto header = line.substr(1);
    return Include{std::string(header.substr(0, header.find(quoted ? '"' : '>'))), quoted};
}

void checkFile(const fs::path& root, const fs::path& file, std::vector<std::string>& wrong) {
    const auto path = file.generic_string();
    const auto* rule = ruleFor(path);
    std::ifstream lines(root / file);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const auto include = includeOn(line);
        if (include && !isAllowed(*rule, path, *include)) {
            wrong.push_back(path + ":" + std::to_string(number) + ": " + include->header);
        }
    }
}

}  // namespace

std::vector<std::string> wrongIncludes(const fs::path& root) {
    std::vector<std::string> wrong;
    for (const auto& file : filesUnderRules(root)) checkFile(root, file, wrong);
    return wrong;
}

std::size_t filesUnderARule(const fs::path& root) {
    return filesUnderRules(root).size();
}

}  // namespace nookwise
