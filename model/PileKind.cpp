#include "model/PileKind.h"

namespace nookwise {
namespace {

struct PileTexts {
    PileKind kind;
    std::string_view rawValue;
    std::string_view title;
    std::string_view subtitle;
    std::string_view noun;
};

constexpr std::array<PileTexts, allPileKinds.size()> pileTexts{{
    {PileKind::forgotten, "forgotten", "Forgotten downloads",
     "Files in Downloads you haven’t opened in 90+ days", "downloads"},
    {PileKind::installers, "installers", "Old installers",
     ".dmg and .pkg files for apps that are already installed", "installers"},
    {PileKind::screenshots, "screenshots", "Old screenshots", "Screenshots older than a month",
     "screenshots"},
    {PileKind::large, "large", "Large files",
     "Files over 500 MB in Desktop, Documents and Downloads", "large files"},
    {PileKind::duplicates, "duplicates", "Duplicates", "Exact copies of files you already have",
     "copies"},
}};

const PileTexts& textsOf(PileKind kind) {
    return pileTexts[static_cast<std::size_t>(kind)];
}

}  // namespace

std::string_view rawValue(PileKind kind) {
    return textsOf(kind).rawValue;
}

std::optional<PileKind> pileKindFromRawValue(std::string_view rawValue) {
    for (const auto& texts : pileTexts) {
        if (texts.rawValue == rawValue) return texts.kind;
    }
    return std::nullopt;
}

std::string_view title(PileKind kind) {
    return textsOf(kind).title;
}

std::string_view subtitle(PileKind kind) {
    return textsOf(kind).subtitle;
}

std::string_view noun(PileKind kind) {
    return textsOf(kind).noun;
}

}  // namespace nookwise
