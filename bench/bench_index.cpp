// Loading and saving an index of 100,000 files and 127 MB, and the memory that it takes.
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "search/TextIndexer.h"
#include "tests/support/FakeMetadata.h"
#include "tests/support/FakeTextReader.h"
#include "tests/support/FakeUserFolders.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

using namespace nookwise;

namespace {

constexpr int fileCount = 100'000;
constexpr double bytesPerSecond = 300e6;
constexpr double longestLoad = 0.5;
constexpr double longestSave = 0.6;
constexpr double mostMemory = 2.2;

/// Words as recognised text has them: capitals, figures, signs, and other alphabets now and then.
std::string sampleText(std::mt19937& random) {
    constexpr std::array words{"the",       "of",     "Invoice",   "invoice",  "2026-04-17",
                               "Amount",    "total",  "customer",  "1,250.00", "for",
                               "Meeting",   "notes",  "quarterly", "Report",   "\"draft\"",
                               "Grüße",     "Zürich", "Москва",    "page",     "www.example.org",
                               "EUR",       "to",     "is",        "a",        "in",
                               "agreement", "and",    "with",      "on",       "signature"};
    std::string text;
    const auto length = random() % 2'510;
    while (text.size() < length) {
        text += words[random() % words.size()];
        text += random() % 10 == 0 ? '\n' : ' ';
    }
    return text;
}

/// Half of the files lie in a folder of their own kind.
FileUrl sampleUrl(int number, std::mt19937& random) {
    constexpr std::array roots{"Desktop", "Documents", "Downloads"};
    auto folder = FileUrl("/home/user").append(roots[random() % roots.size()]);
    if (random() % 2 == 0) folder = folder.append("Folder " + std::to_string(random() % 3'000));
    return folder.append("Screenshot 2026-03-11 at 10.22." + std::to_string(number) + ".png");
}

/// One file in ten says nothing, one in three has a source. The same at every run.
template <typename Use>
void forEachSample(Use use) {
    std::mt19937 random(7);
    for (int i = 0; i < fileCount; ++i) {
        const auto url = sampleUrl(i, random);
        const double mtime = 1'790'000'000 - static_cast<double>(random()) / 100;
        auto source = random() % 3 == 0 ? std::optional(SharedBytes("Google Drive")) : std::nullopt;
        const auto text = random() % 10 == 0 ? std::string() : sampleText(random);
        use(url, indexEntry(mtime, text, std::move(source)));
    }
}

double sampleTextBytes() {
    double bytes = 0;
    forEachSample([&](const FileUrl&, const IndexEntry& entry) {
        bytes += static_cast<double>(entry.text.view().size());
    });
    return bytes;
}

void writeSample(IndexFile& file) {
    const auto addAll = [](IndexJsonWriter& writer) {
        bool isTaken = true;
        forEachSample([&](const FileUrl& url, const IndexEntry& entry) {
            isTaken = isTaken && writer.add(url, entry);
        });
        return isTaken;
    };
    if (!file.save(addAll)) std::exit(1);
}

/// Loads the index, reads one more file, saves the index.
void loadAndSave(FileManager& files, const FileUrl& folder) {
    const FakeMetadata metadata;
    FakeUserFolders folders;
    folders.applicationSupportFolder = folder;
    FakeTextReader reader;
    TextIndexer indexer(files, metadata, folders, reader);
    const FileItem unread{.url = FileUrl("/home/user/Documents/new.pdf"), .size = 10'000};
    indexer.run(std::span(&unread, 1), [](auto&&...) {}, {});
}

void printBeside(const char* what, double value, double goal) {
    std::printf("  %-50s %6.3f   goal %5.3f   ratio to it %.2f\n", what, value, goal, value / goal);
}

void printTimes(IndexFile& file, double size) {
    IndexEntries loaded;
    const auto forget = [&] { loaded.clear(); };
    const auto addAll = [&](IndexJsonWriter& writer) {
        return std::all_of(loaded.begin(), loaded.end(), [&](const auto& entry) {
            return writer.add(entry.first, entry.second);
        });
    };
    const auto seconds = bench::medians(
        {{"load", [&] { loaded = file.load(); }, forget}, {"save", [&] { file.save(addAll); }}});
    const double atRate = size / bytesPerSecond;
    printBeside("load, seconds", seconds[0], std::min(longestLoad, atRate));
    printBeside("save to the disk, seconds", seconds[1], longestSave);
    printBeside("save to the disk, seconds, at 300 MB/s", seconds[1], atRate);
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    const FileUrl folder(work.path().native());
    LinuxFileManager files(folder);
    IndexFile file(files, folder);
    const double textBytes = sampleTextBytes();
    writeSample(file);
    const auto size =
        static_cast<double>(std::filesystem::file_size(work.path() / "text-index.json"));
    std::printf("Index of %d files, %.1f MB, of which %.1f MB text\n", fileCount, size / 1e6,
                textBytes / 1e6);
    const double without = bench::peakMegabytes([] {});
    const double with = bench::peakMegabytes([&] { loadAndSave(files, folder); });
    printBeside("peak memory while loaded and saved, times the text",
                (with - without) * 1024 * 1024 / textBytes, mostMemory);
    printTimes(file, size);
    return 0;
}
