#include "reader/recognition/Recogniser.h"

#include "reader/recognition/Engine.h"
#include "reader/recognition/Languages.h"
#include "reader/recognition/Pictures.h"
#include "reader/recognition/ScriptDetector.h"
#include "reader/recognition/TextPicture.h"

#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

namespace nookwise {

namespace {

using Lines = std::vector<RecognisedLine>;

/// Lines at this confidence or less are left out.
constexpr float leastConfidence = 30;
/// Upright text in a known language reads at a mean of 65 or more, text upside down or in another
/// script at less than 50.
constexpr double poorConfidence = 55;
/// Too little to be worth a second look.
constexpr std::size_t fewestBytes = 8;
/// So little that trying the other way up costs less than to find out.
constexpr std::size_t fewBytes = 100;

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

bool isKept(const RecognisedLine& line) {
    return line.confidence > leastConfidence;
}

std::string textOf(const Lines& lines) {
    std::string text;
    for (const auto& line : lines) {
        if (!isKept(line)) continue;
        if (!text.empty()) text += '\n';
        text += line.text;
    }
    return text;
}

struct Quality {
    std::size_t bytes = 0;
    double confidence = 0;
    /// The confidence of each byte that is kept, added up.
    double worth = 0;

    bool isPoor() const { return bytes >= fewestBytes && confidence < poorConfidence; }
};

Quality qualityOf(const Lines& lines) {
    Quality quality;
    for (const auto& line : lines) {
        const double worth =
            static_cast<double>(line.confidence) * static_cast<double>(line.text.size());
        quality.bytes += line.text.size();
        quality.confidence += worth;
        quality.worth += isKept(line) ? worth : 0;
    }
    if (quality.bytes > 0) quality.confidence /= static_cast<double>(quality.bytes);
    return quality;
}

class LocaleRecogniser final : public Recogniser {
  public:
    LocaleRecogniser(std::unique_ptr<Engine> engine, std::vector<std::string> preferred,
                     std::vector<std::string> installed)
        : engine_(std::move(engine)),
          preferred_(std::move(preferred)),
          installed_(std::move(installed)) {}

    std::string text(std::span<const std::byte> file, RecognitionGrade grade) override {
        auto decoded = greyPicture(file, recognitionSide(grade));
        if (!decoded) return {};
        const auto picture = textPicture(std::move(*decoded));
        if (!picture.pix) return {};
        auto lines = read(*engine_, picture, grade);
        const auto quality = qualityOf(lines);
        if (quality.isPoor()) {
            auto others = secondLook(picture, grade, quality);
            if (qualityOf(others).worth > quality.worth) lines = std::move(others);
        }
        return textOf(lines);
    }

  private:
    static Lines read(Engine& engine, const TextPicture& picture, RecognitionGrade grade) {
        const auto sized = inReadingSize(picture, grade);
        return sized.pix ? engine.read(sized) : Lines();
    }

    /// Text may be upside down or in another script. Reads it once more at most.
    Lines secondLook(const TextPicture& picture, RecognitionGrade grade, const Quality& quality) {
        const auto detected = detect(picture);
        int turns = 0;
        if (detected && detected->isSureOfTurns)
            turns = detected->quarterTurns;
        else if (quality.bytes < fewBytes)
            turns = 2;
        Engine* engine =
            detected && detected->isSureOfScript ? engineFor(detected->script) : nullptr;
        if (turns == 0 && engine == nullptr) return {};
        const auto upright = turned(picture, turns);
        return upright.pix ? read(engine == nullptr ? *engine_ : *engine, upright, grade) : Lines();
    }

    std::optional<DetectedScript> detect(const TextPicture& picture) {
        if (!detector_) detector_ = ScriptDetector::create();
        const auto sized = detector_ ? inDetectionSize(picture) : nullptr;
        return sized ? detector_->detect(sized.get()) : std::nullopt;
    }

    /// Null where the first engine knows the script, and where nothing installed does.
    Engine* engineFor(std::string_view script) {
        if (anyWrittenIn(script, engine_->languages())) return nullptr;
        const auto languages = languagesOfScript(script, preferred_, installed_);
        if (languages.empty()) return nullptr;
        if (!other_ || other_->languages() != languages) other_ = Engine::create(languages);
        return other_.get();
    }

    std::unique_ptr<Engine> engine_;
    std::vector<std::string> preferred_;
    std::vector<std::string> installed_;
    /// These two are made when the first picture needs them.
    std::unique_ptr<ScriptDetector> detector_;
    /// For the last script that was none of the first engine's.
    std::unique_ptr<Engine> other_;
};

}  // namespace

std::unique_ptr<Recogniser> Recogniser::create() {
    // It would tell of every flaw of a file.
    setMsgSeverity(L_SEVERITY_NONE);
    const auto installed = installedLanguages();
    auto preferred = preferredLanguages({.languages = environment("LANGUAGE"),
                                         .all = environment("LC_ALL"),
                                         .messages = environment("LC_MESSAGES"),
                                         .otherwise = environment("LANG")});
    const auto starting = startingLanguages(preferred, installed);
    auto engine = starting.empty() ? nullptr : Engine::create(starting);
    if (!engine) return nullptr;
    return std::make_unique<LocaleRecogniser>(std::move(engine), std::move(preferred), installed);
}

}  // namespace nookwise
