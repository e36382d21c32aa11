// What the UI thread does to its lists after an action, with 100,000 files in them.
#include "app/Library.h"
#include "app/Results.h"
#include "bench/Measure.h"

#include <array>
#include <cstdio>
#include <random>
#include <string>

using namespace nookwise;

namespace {

constexpr int fileCount = 100'000;
constexpr Date now{Seconds{1'790'000'000}};
constexpr double year = 31'536'000;

/// Kinds, dates and folders mixed as in a real home; the same at every run.
std::vector<FileItem> sampleFiles(const FileUrl& home) {
    constexpr std::array extensions{"pdf", "png", "JPG",  "txt", "zip",
                                    "mp3", "mov", "docx", "ts",  ""};
    constexpr std::array roots{"Desktop", "Documents", "Downloads"};
    std::mt19937 random(7);
    std::vector<FileItem> files;
    for (int i = 0; i < fileCount; ++i) {
        auto folder = home.append(roots[random() % roots.size()]);
        if (random() % 4 != 0) folder = folder.append("Folder " + std::to_string(random() % 3'000));
        const auto* stem = random() % 20 == 0 ? "Screenshot " : "Quarterly report ";
        const auto name = stem + std::to_string(i) + "." + extensions[random() % extensions.size()];
        const auto age = [&] { return now - Seconds{year * double(random() % 100'000) / 100'000}; };
        files.push_back(
            {.url = folder.append(name), .size = 4'096, .modified = age(), .added = age()});
    }
    return files;
}

}  // namespace

int main() {
    const FileUrl home("/home/user");
    const auto files = sampleFiles(home);
    UrlSet gone;
    Relocation moved;
    for (int i = 0; i < fileCount; i += 100) {
        const auto& url = files[static_cast<std::size_t>(i)].url;
        gone.insert(url);
        moved.emplace(url, home.append("Documents").append("moved " + std::to_string(i)));
    }
    std::vector<FileItem> list;
    const auto restore = [&] { list = files; };
    const std::vector<bench::Contestant> contestants{
        {"one frame at 60 Hz", [] {}},
        {"rebuild of the library lists",
         [&] { (void)buildLibrary(files, home.append("Downloads"), home.append("Desktop"), now); }},
        {"1,000 files removed from the list", [&] { removeFrom(list, gone); }, restore},
        {"1,000 files moved within the list", [&] { relocate(list, moved); }, restore}};
    auto seconds = bench::medians(contestants, 15);
    seconds.front() = 1.0 / 60;
    bench::printRatios("Lists of 100,000 files, ratios to one frame", contestants, seconds, 0);
    return 0;
}
