#include "reader/recognition/Languages.h"

#include "reader/recognition/LanguageTable.h"

#include <algorithm>
#include <optional>

namespace nookwise {

namespace {

constexpr std::size_t mostLanguages = 3;

bool contains(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void addOnce(std::vector<std::string>& names, std::string_view name) {
    if (names.size() < mostLanguages && !contains(names, name)) names.emplace_back(name);
}

/// Calls with every part of a text between separators, empty ones left out.
template <typename Take>
void eachPart(std::string_view text, char separator, Take take) {
    while (!text.empty()) {
        const auto part = text.substr(0, text.find(separator));
        text.remove_prefix(std::min(text.size(), part.size() + 1));
        if (!part.empty()) take(part);
    }
}

bool listHolds(std::string_view list, std::string_view name) {
    bool found = false;
    eachPart(list, ' ', [&](std::string_view part) { found = found || part == name; });
    return found;
}

const LanguageData* languageOfExactly(std::string_view locale) {
    for (const auto& language : languageTable())
        if (listHolds(language.locales, locale)) return &language;
    return nullptr;
}

/// Of a locale such as "sr_RS.UTF-8@latin", whose modifier tells the script and whose territory
/// tells the kind of Chinese.
const LanguageData* languageOf(std::string_view locale) {
    const auto language = std::string(locale.substr(0, locale.find_first_of("_.@")));
    const auto territory = std::string(locale.substr(0, locale.find_first_of(".@")));
    const auto at = locale.find('@');
    if (at != std::string_view::npos)
        if (const auto* found = languageOfExactly(language + std::string(locale.substr(at))))
            return found;
    if (const auto* found = languageOfExactly(territory)) return found;
    return languageOfExactly(language);
}

/// The variable that decides, in the order of the C library.
std::string_view decidingLocale(const LocaleVariables& variables) {
    for (const auto value : {variables.all, variables.messages, variables.otherwise})
        if (!value.empty()) return value;
    return {};
}

bool isWithoutLanguage(std::string_view locale) {
    const auto name = locale.substr(0, locale.find('.'));
    return name.empty() || name == "C" || name == "POSIX";
}

std::optional<std::string_view> scriptOf(std::string_view name) {
    for (const auto& language : languageTable())
        if (language.name == name) return language.script;
    for (const auto& data : scriptTable())
        if (listHolds(data.names, name)) return data.script;
    return std::nullopt;
}

}  // namespace

std::vector<std::string> preferredLanguages(const LocaleVariables& variables) {
    std::vector<std::string> names;
    const auto locale = decidingLocale(variables);
    // Without a language there, LANGUAGE counts for nothing.
    if (isWithoutLanguage(locale)) return names;
    const auto add = [&](std::string_view part) {
        if (const auto* language = languageOf(part); language && !contains(names, language->name))
            names.emplace_back(language->name);
    };
    eachPart(variables.languages, ':', add);
    add(locale);
    return names;
}

std::vector<std::string> startingLanguages(const std::vector<std::string>& preferred,
                                           const std::vector<std::string>& installed) {
    std::vector<std::string> names;
    for (const auto& name : preferred)
        if (names.size() + 1 < mostLanguages && contains(installed, name)) addOnce(names, name);
    if (contains(installed, "eng")) addOnce(names, "eng");
    if (!names.empty()) return names;
    for (const auto& name : installed)
        if (scriptOf(name)) return {name};
    return {};
}

std::vector<std::string> languagesOfScript(std::string_view script,
                                           const std::vector<std::string>& preferred,
                                           const std::vector<std::string>& installed) {
    std::vector<std::string> names;
    for (const auto& name : preferred)
        if (scriptOf(name) == script && contains(installed, name)) addOnce(names, name);
    if (!names.empty()) return names;
    for (const auto& data : scriptTable())
        if (data.script == script)
            eachPart(data.names, ' ', [&](std::string_view name) {
                if (contains(installed, name)) addOnce(names, name);
            });
    if (!names.empty()) return names;
    for (const auto& language : languageTable())
        if (language.script == script && contains(installed, language.name))
            addOnce(names, language.name);
    return names;
}

bool anyWrittenIn(std::string_view script, const std::vector<std::string>& languages) {
    return std::any_of(languages.begin(), languages.end(),
                       [&](const auto& name) { return scriptOf(name) == script; });
}

}  // namespace nookwise
