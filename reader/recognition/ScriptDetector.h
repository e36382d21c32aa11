// Tells which way up the text in a picture is, and in which script.
#pragma once

#include "reader/recognition/Pix.h"

#include <memory>
#include <optional>
#include <string>

namespace tesseract {
class TessBaseAPI;
}

namespace nookwise {

struct DetectedScript {
    /// How often the picture must be turned by 90 degrees clockwise to be upright, 0 to 3.
    int quarterTurns = 0;
    bool isSureOfTurns = false;
    /// As the detector names it: "Latin", "Cyrillic", "Japanese".
    std::string script;
    bool isSureOfScript = false;
};

/// Used by one thread.
class ScriptDetector {
  public:
    /// Null when the detector's data is not installed.
    static std::unique_ptr<ScriptDetector> create();
    ~ScriptDetector();

    /// None when there is too little text to tell.
    std::optional<DetectedScript> detect(Pix* pix);

  private:
    explicit ScriptDetector(std::unique_ptr<tesseract::TessBaseAPI> api);

    std::unique_ptr<tesseract::TessBaseAPI> api_;
};

}  // namespace nookwise
