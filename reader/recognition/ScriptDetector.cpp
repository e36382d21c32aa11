#include "reader/recognition/ScriptDetector.h"

#include <utility>

#include <tesseract/baseapi.h>

namespace nookwise {

namespace {

// On the detector's own scales.
constexpr float sureOfTurns = 2;
constexpr float sureOfScript = 2;

}  // namespace

std::unique_ptr<ScriptDetector> ScriptDetector::create() {
    auto api = std::make_unique<tesseract::TessBaseAPI>();
    api->SetVariable("debug_file", "/dev/null");
    if (api->Init(nullptr, "osd", tesseract::OEM_TESSERACT_ONLY) != 0) return nullptr;
    api->SetPageSegMode(tesseract::PSM_OSD_ONLY);
    return std::unique_ptr<ScriptDetector>(new ScriptDetector(std::move(api)));
}

ScriptDetector::ScriptDetector(std::unique_ptr<tesseract::TessBaseAPI> api)
    : api_(std::move(api)) {}

ScriptDetector::~ScriptDetector() = default;

std::optional<DetectedScript> ScriptDetector::detect(Pix* pix) {
    api_->SetImage(pix);
    int degrees = 0;
    float turnsConfidence = 0;
    const char* script = nullptr;
    float scriptConfidence = 0;
    const bool detected =
        api_->DetectOrientationScript(&degrees, &turnsConfidence, &script, &scriptConfidence);
    std::optional<DetectedScript> result;
    if (detected)
        result = DetectedScript{(4 - degrees / 90) % 4, turnsConfidence > sureOfTurns,
                                script == nullptr ? "" : script, scriptConfidence > sureOfScript};
    api_->Clear();
    return result;
}

}  // namespace nookwise
