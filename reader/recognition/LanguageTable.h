// The languages there is data for.
#pragma once

#include <span>
#include <string_view>

namespace nookwise {

struct LanguageData {
    /// The stem of the data file.
    std::string_view name;
    /// As the script detector names it.
    std::string_view script;
    /// Locales, separated by spaces, each a language (ISO 639) alone, with a territory ("zh_TW") or
    /// with a modifier ("sr@latin").
    std::string_view locales;
};

/// Within a script, those with more speakers come first.
std::span<const LanguageData> languageTable();

struct ScriptData {
    std::string_view script;
    /// The stems of the data files for all languages of the script, separated by spaces.
    std::string_view names;
};

std::span<const ScriptData> scriptTable();

}  // namespace nookwise
