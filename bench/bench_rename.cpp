// The plan of new names, which is made anew with each option and each text that is read.
#include "bench/Measure.h"
#include "fileops/RenamePlan.h"

#include <cstdlib>
#include <random>
#include <string>

using namespace nookwise;

namespace {

constexpr int fileCount = 5'000;
constexpr double longestPause = 0.05;

struct Texts {
    std::vector<FileItem> files;
    TextsByUrl texts;
};

template <typename MakeText>
Texts sampleTexts(MakeText makeText) {
    Texts sample;
    for (int i = 0; i < fileCount; ++i) {
        const FileUrl url("/home/user/Desktop/Screenshot " + std::to_string(i) + ".png");
        sample.files.push_back({.url = url, .added = Date{Seconds{1.79e9 + i * 1'000.0}}});
        sample.texts.emplace(url, SharedBytes(makeText(i)));
    }
    return sample;
}

/// A page of thirty thousand characters that begins with a heading.
Texts pages() {
    return sampleTexts([](int i) {
        std::string text = "— " + std::to_string(i) + " —\nInvoice for the garden No. " +
                           std::to_string(i) + " of the autumn planting, two borders\n";
        while (text.size() < 30'000) text += "Fourteen beds along the south wall. ";
        return text;
    });
}

/// The same heading, in letters that are not ASCII.
Texts equalHeadings() {
    return sampleTexts([](int) { return std::string("Übergröße für den Garten – Rechnung"); });
}

/// Tables of thirty thousand characters without a usable line.
Texts figures() {
    std::mt19937 random(7);
    return sampleTexts([&](int) {
        std::string text;
        while (text.size() < 30'000)
            text += std::to_string(random()) + ",00 | " + std::to_string(random()) + " €\n";
        return text;
    });
}

void measure(const std::string& title, const Texts& sample) {
    FirstLines lines;
    bool dashed = false;
    const auto plan = [&](FirstLines& known) {
        const RenameOptions options{.useDate = true, .dashed = dashed};
        if (makePlan(sample.files, sample.texts, options, known).size() != fileCount) std::abort();
    };
    const std::vector<bench::Contestant> contestants{
        {"the longest pause that is allowed", [] {}},
        {"the plan when the screen opens",
         [&] {
             FirstLines fresh;
             plan(fresh);
         }},
        {"the plan after an option", [&] { plan(lines); }, [&] { dashed = !dashed; }}};
    auto seconds = bench::medians(contestants, 15);
    seconds.front() = longestPause;
    bench::printRatios(title, contestants, seconds, 0);
}

}  // namespace

int main() {
    measure("5,000 pages with a heading, ratios to the longest pause", pages());
    measure("5,000 equal headings", equalHeadings());
    measure("5,000 tables of figures, 150 MB without a usable line", figures());
    return 0;
}
