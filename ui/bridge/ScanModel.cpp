#include "ui/bridge/ScanModel.h"

#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

namespace {

struct StepText {
    const char* title;
    const char* icon;
    /// The scan's fraction at the beginning and at the end of the step.
    double from;
    double to;
};

constexpr std::array<StepText, 5> stepTexts{{
    {"Desktop", "desktop", 0.0, 0.25},
    {"Documents", "documents", 0.25, 0.5},
    {"Downloads", "downloads", 0.5, 0.75},
    {"Last opened", "recent", 0.8, 0.88},
    {"Copies", "duplicates", 0.88, 1.0},
}};
constexpr std::size_t folderSteps = 3;

}  // namespace

ScanModel::ScanModel(AppStore& store)
    : store_(store),
      first_(store.phase.get() != AppStore::Phase::ready),
      steps_({{"title", [](const Step& step) { return step.title; }},
              {"glyph", [](const Step& step) { return step.icon; }},
              {"stage", [](const Step& step) { return step.stage; }},
              {"fill", [](const Step& step) { return step.fill; }},
              {"caption", [](const Step& step) { return step.caption; }}}),
      phase_(store.phase.observe([this] { phaseChanged(); })),
      progress_(store.progress.observe([this] { progressChanged(); })) {
    progressChanged();
}

bool ScanModel::scanning() const {
    return store_.phase.get() != AppStore::Phase::ready;
}

QString ScanModel::step() const {
    return shown(store_.progress.get().step);
}

QString ScanModel::filesText() const {
    return shownFiles(store_.progress.get().filesSeen);
}

void ScanModel::scanAgain() {
    store_.scan(AppStore::ScanKind::visible);
}

void ScanModel::startFirstScan() {
    if (store_.phase.get() == AppStore::Phase::idle) store_.scan(AppStore::ScanKind::visible);
}

void ScanModel::phaseChanged() {
    if (store_.phase.get() == AppStore::Phase::ready) first_ = false;
    emit changed();
}

void ScanModel::progressChanged() {
    const ScanProgress& progress = store_.progress.get();
    const std::size_t current = currentStep(progress);
    // A report of a scan that was replaced may still arrive: what lies ahead is forgotten, never
    // summed up.
    std::fill(seenAtEnd_.begin() + static_cast<std::ptrdiff_t>(current), seenAtEnd_.end(),
              progress.filesSeen);
    std::vector<Step> rows;
    for (std::size_t step = 0; step < stepTexts.size(); ++step)
        rows.push_back(describe(step, current, progress));
    steps_.setRows(std::move(rows));
    emit changed();
}

std::size_t ScanModel::currentStep(const ScanProgress& progress) const {
    for (std::size_t step = 0; step < folderSteps; ++step) {
        if (progress.folder == stepTexts[step].title) return step;
    }
    std::size_t current = 0;
    for (std::size_t step = folderSteps; step < stepTexts.size(); ++step) {
        if (progress.fraction >= stepTexts[step].from) current = step;
    }
    return current;
}

ScanModel::Step ScanModel::describe(std::size_t step, std::size_t current,
                                    const ScanProgress& progress) const {
    const StepText& text = stepTexts[step];
    Step row{QString::fromLatin1(text.title), QString::fromLatin1(text.icon),
             QStringLiteral("waiting"), 0.0, QStringLiteral("Waiting")};
    if (step < current) {
        row.stage = QStringLiteral("done");
        row.fill = 1.0;
        const int before = step == 0 ? 0 : seenAtEnd_[step - 1];
        row.caption = step < folderSteps ? shownFiles(seenAtEnd_[step] - before) : QString();
    } else if (step == current) {
        row.stage = QStringLiteral("now");
        row.fill = std::clamp((progress.fraction - text.from) / (text.to - text.from), 0.0, 1.0);
        row.caption = shown(progress.step);
    }
    return row;
}

}  // namespace nookwise
