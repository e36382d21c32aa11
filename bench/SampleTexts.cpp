#include "bench/SampleTexts.h"

#include "tests/reader/DrawnPictures.h"
#include "tests/reader/PdfWriter.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

namespace nookwise::bench {

namespace {

using Words = std::map<std::string, std::size_t>;

Words wordsOf(std::string_view text) {
    Words words;
    std::string word;
    const auto end = [&] {
        if (word.size() >= 2) ++words[word];
        word.clear();
    };
    for (const char character : text) {
        const bool isUpper = character >= 'A' && character <= 'Z';
        const char lower = isUpper ? static_cast<char>(character - 'A' + 'a') : character;
        if ((lower >= 'a' && lower <= 'z') || (lower >= '0' && lower <= '9'))
            word += lower;
        else
            end();
    }
    end();
    return words;
}

std::size_t countOf(const Words& words) {
    std::size_t count = 0;
    for (const auto& [word, times] : words) count += times;
    return count;
}

std::string contentsOf(const std::filesystem::path& path) {
    std::ostringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    return contents.str();
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file()) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

SampleText written(const std::filesystem::path& path, const std::string& contents,
                   const std::string& text) {
    std::ofstream(path, std::ios::binary) << contents;
    return {path.native(), text};
}

constexpr std::array sentences{
    "The quarterly report is due on Thursday",    "Please review the figures before the meeting",
    "Invoice number 4711 amounts to 250 dollars", "Everybody is welcome to stay for dinner",
    "The train leaves at half past seven",        "Remember to water the plants by the window",
    "A summary of all changes since last month",  "Tickets are valid for three days after purchase",
};

std::string sentence(std::size_t number) {
    return sentences[number % sentences.size()];
}

}  // namespace

std::vector<SampleText> samplePictures(const std::filesystem::path& folder) {
    std::vector<SampleText> samples;
    for (const auto& path : filesIn(folder)) {
        auto text = path;
        if (path.extension() != ".txt" && std::filesystem::exists(text.replace_extension(".txt")))
            samples.push_back({path.native(), contentsOf(text)});
    }
    return samples;
}

std::vector<SampleText> sampleDocuments(const std::filesystem::path& folder) {
    std::vector<SampleText> samples;
    for (const auto& path : filesIn(folder))
        if (path.extension() == ".pdf") samples.push_back({path.native(), {}});
    return samples;
}

std::vector<SampleText> drawPictures(const std::filesystem::path& folder) {
    constexpr std::size_t count = 12, lines = 16;
    constexpr Rgba slate{30, 34, 42}, light{225, 225, 225}, navy{0, 70, 140};
    std::filesystem::create_directories(folder);
    std::vector<SampleText> samples;
    for (std::size_t number = 0; number < count; ++number) {
        const bool isDark = number % 2 == 1;
        Drawing page(1200, 700, isDark ? slate : white);
        page.rectangle(0, 670, 1200, 30, navy);
        std::string text;
        for (std::size_t line = 0; line < lines; ++line) {
            const auto words = sentence(number + line) + ", " + sentence(number * 3 + line * 5 + 1);
            page.text(words, 40, 30 + static_cast<int>(line) * 38, 18, isDark ? light : black);
            text += words + '\n';
        }
        page.text("Ready", 10, 676, 16, white);
        samples.push_back(written(folder / (std::to_string(number) + ".png"), page.saved(".png"),
                                  text + "Ready"));
    }
    return samples;
}

std::vector<SampleText> writeDocuments(const std::filesystem::path& folder) {
    constexpr std::size_t count = 60;
    std::filesystem::create_directories(folder);
    std::vector<SampleText> samples;
    for (std::size_t number = 0; number < count; ++number) {
        std::vector<std::string> pages;
        for (std::size_t page = 0; page < 1 + number % 20; ++page)
            pages.push_back(sentence(number + page));
        samples.push_back(written(folder / (std::to_string(number) + ".pdf"), latinPdf(pages), {}));
    }
    return samples;
}

void WordScore::add(std::string_view expected, std::string_view read) {
    const auto wanted = wordsOf(expected), got = wordsOf(read);
    expected_ += countOf(wanted);
    read_ += countOf(got);
    for (const auto& [word, times] : wanted)
        if (const auto found = got.find(word); found != got.end())
            both_ += std::min(times, found->second);
}

double WordScore::share(std::size_t all) const {
    return all == 0 ? 0 : 100 * static_cast<double>(both_) / static_cast<double>(all);
}

}  // namespace nookwise::bench
