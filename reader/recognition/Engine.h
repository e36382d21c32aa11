// Reads lines of text in a prepared picture.
#pragma once

#include "reader/recognition/TextPicture.h"

#include <memory>
#include <string>
#include <vector>

namespace tesseract {
class TessBaseAPI;
}

namespace nookwise {

struct RecognisedLine {
    std::string text;
    /// From 0 to 100, the mean of its words.
    float confidence = 0;
};

/// Used by one thread.
class Engine {
  public:
    /// `languages` as the engine names them, the first preferred. Null when one cannot be loaded.
    static std::unique_ptr<Engine> create(const std::vector<std::string>& languages);
    ~Engine();

    /// In reading order.
    std::vector<RecognisedLine> read(const TextPicture& picture);

    const std::vector<std::string>& languages() const { return languages_; }

  private:
    Engine(std::unique_ptr<tesseract::TessBaseAPI> api, std::vector<std::string> languages);

    std::unique_ptr<tesseract::TessBaseAPI> api_;
    std::vector<std::string> languages_;
};

/// The languages that can be loaded.
std::vector<std::string> installedLanguages();

}  // namespace nookwise
