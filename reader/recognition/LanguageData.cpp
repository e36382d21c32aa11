#include "reader/recognition/LanguageData.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace nookwise {

namespace {

const char* const variable = "TESSDATA_PREFIX";

/// The data files right in the folder that the user names: the engine opens no others there. The
/// folder may hold anything else.
std::vector<std::string> filesOfTheUser(const std::filesystem::path& folder) {
    std::vector<std::string> files;
    if (!folder.is_absolute()) return files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (entry->path().extension() == ".traineddata") files.push_back(entry->path());
    return files;
}

}  // namespace

std::unique_ptr<Recogniser> createRecogniser() {
    if (const char* folder = std::getenv(variable)) {
        // Where there is nothing, the engine would look through all the folders below.
        auto recogniser = filesOfTheUser(folder).empty() ? nullptr : Recogniser::create();
        if (recogniser) return recogniser;
        ::unsetenv(variable);
    }
    return Recogniser::create();
}

std::vector<std::string> languagePaths() {
    if (const char* folder = std::getenv(variable)) return filesOfTheUser(folder);
    // Distributions put them into different places.
    return {"/usr/share/tesseract-ocr", "/usr/share/tesseract", "/usr/share/tessdata"};
}

}  // namespace nookwise
