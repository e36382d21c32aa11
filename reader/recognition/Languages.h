// Chooses the languages to recognise, by the names that the engine's data files have ("eng",
// "deu").
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// The values of the environment's variables, empty where unset.
struct LocaleVariables {
    /// LANGUAGE
    std::string_view languages;
    /// LC_ALL
    std::string_view all;
    /// LC_MESSAGES
    std::string_view messages;
    /// LANG
    std::string_view otherwise;
};

/// The user's languages, the most preferred first, whether installed or not.
std::vector<std::string> preferredLanguages(const LocaleVariables& variables);

/// The languages to begin with, three at most: those preferred that are installed, and English.
/// Where none of these is installed, any other. Empty where there is nothing to recognise with.
std::vector<std::string> startingLanguages(const std::vector<std::string>& preferred,
                                           const std::vector<std::string>& installed);

/// The languages for text that was found to be in a script, three at most: those preferred that are
/// installed; else the script's own data, which covers all its languages; else the installed ones
/// with the most speakers. `script` is named as by the script detector ("Cyrillic", "Han").
std::vector<std::string> languagesOfScript(std::string_view script,
                                           const std::vector<std::string>& preferred,
                                           const std::vector<std::string>& installed);

/// Whether one of the languages is written in the script.
bool anyWrittenIn(std::string_view script, const std::vector<std::string>& languages);

}  // namespace nookwise
