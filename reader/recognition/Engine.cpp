#include "reader/recognition/Engine.h"

#include <utility>

#include <tesseract/baseapi.h>

namespace nookwise {

namespace {

/// A guess, which keeps the engine from making one: at about 150 dots an inch the letters of
/// interfaces have the usual sizes of print.
constexpr int dotsPerInch = 150;

std::string joined(const std::vector<std::string>& languages) {
    std::string names;
    for (const auto& language : languages) names += (names.empty() ? "" : "+") + language;
    return names;
}

std::string withoutEndOfLine(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

std::vector<RecognisedLine> linesOf(tesseract::ResultIterator& results) {
    constexpr auto line = tesseract::RIL_TEXTLINE;
    std::vector<RecognisedLine> lines;
    do {
        if (results.Empty(line)) continue;
        const std::unique_ptr<char[]> text(results.GetUTF8Text(line));
        if (text) lines.push_back({withoutEndOfLine(text.get()), results.Confidence(line)});
    } while (results.Next(line));
    return lines;
}

}  // namespace

std::unique_ptr<Engine> Engine::create(const std::vector<std::string>& languages) {
    auto api = std::make_unique<tesseract::TessBaseAPI>();
    // It would tell of every picture that it finds small or empty.
    api->SetVariable("debug_file", "/dev/null");
    if (api->Init(nullptr, joined(languages).c_str(), tesseract::OEM_LSTM_ONLY) != 0)
        return nullptr;
    api->SetPageSegMode(tesseract::PSM_AUTO);
    return std::unique_ptr<Engine>(new Engine(std::move(api), languages));
}

Engine::Engine(std::unique_ptr<tesseract::TessBaseAPI> api, std::vector<std::string> languages)
    : api_(std::move(api)), languages_(std::move(languages)) {}

Engine::~Engine() = default;

std::vector<RecognisedLine> Engine::read(const TextPicture& picture) {
    api_->SetVariable("tessedit_do_invert", picture.mayHoldLightText ? "1" : "0");
    api_->SetImage(picture.pix.get());
    api_->SetSourceResolution(dotsPerInch);
    std::vector<RecognisedLine> lines;
    if (api_->Recognize(nullptr) == 0) {
        const std::unique_ptr<tesseract::ResultIterator> results(api_->GetIterator());
        if (results) lines = linesOf(*results);
    }
    api_->Clear();
    return lines;
}

std::vector<std::string> installedLanguages() {
    tesseract::TessBaseAPI api;
    api.SetVariable("debug_file", "/dev/null");
    // It finds out where the data lies before it misses this language, and says so to the debug
    // file, which is then open for good.
    (void)api.Init(nullptr, "none", tesseract::OEM_LSTM_ONLY);
    std::vector<std::string> languages;
    api.GetAvailableLanguagesAsVector(&languages);
    return languages;
}

}  // namespace nookwise
