// Reading text: how much of it is recognised, how fast beside the tools, and what that costs
// whoever works meanwhile. Takes a folder of pictures, each with its text in NAME.txt beside it,
// and one of PDF files, from NOOKWISE_SAMPLES and NOOKWISE_PDFS; draws and writes some where these
// are unset.
#include "bench/Measure.h"
#include "bench/SampleTexts.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxTextReader.h"
#include "platform/linux/ReaderProgram.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <latch>
#include <thread>
#include <vector>

using namespace nookwise;

namespace {

constexpr int atATime = 2;

/// Does the work for every file, as many at a time as there are processes on either side.
void forEachFile(const std::vector<bench::SampleText>& samples,
                 const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < atATime; ++i)
        threads.emplace_back([&] {
            for (std::size_t index = next++; index < samples.size(); index = next++) work(index);
        });
}

std::string recognised(LinuxTextReader& reader, const std::string& path, RecognitionGrade grade) {
    const auto text = reader.ocr(FileUrl(path), grade, {});
    return text ? text.value() : std::string();
}

void readAll(LinuxTextReader& reader, const std::vector<bench::SampleText>& samples,
             RecognitionGrade grade) {
    forEachFile(samples, [&](std::size_t i) { (void)recognised(reader, samples[i].path, grade); });
}

void printScore(const char* name, LinuxTextReader& reader,
                const std::vector<bench::SampleText>& samples, RecognitionGrade grade) {
    std::vector<std::string> texts(samples.size());
    forEachFile(samples,
                [&](std::size_t i) { texts[i] = recognised(reader, samples[i].path, grade); });
    bench::WordScore score;
    for (std::size_t i = 0; i < samples.size(); ++i) score.add(samples[i].text, texts[i]);
    std::printf("  %-10s recall %.1f %%, precision %.1f %%\n", name, score.recall(),
                score.precision());
}

bench::Contestant command(const std::string& name, const std::vector<bench::SampleText>& samples,
                          const std::vector<std::string>& before,
                          const std::vector<std::string>& after) {
    return {name, [&samples, before, after] {
                forEachFile(samples, [&](std::size_t i) {
                    auto arguments = before;
                    arguments.push_back(samples[i].path);
                    arguments.insert(arguments.end(), after.begin(), after.end());
                    bench::runQuietly(arguments);
                });
            }};
}

void measurePictures(LinuxTextReader& reader, const std::vector<bench::SampleText>& samples) {
    std::printf("\nWords recognised in %zu pictures\n", samples.size());
    printScore("accurate", reader, samples, RecognitionGrade::accurate);
    printScore("fast", reader, samples, RecognitionGrade::fast);

    std::vector<bench::Contestant> contestants{
        {"accurate, two readers", [&] { readAll(reader, samples, RecognitionGrade::accurate); }},
        {"fast, two readers", [&] { readAll(reader, samples, RecognitionGrade::fast); }}};
    if (bench::isInstalled("tesseract")) {
        contestants.push_back(
            command("tesseract a file, two at a time", samples, {"tesseract"}, {"stdout"}));
        contestants.push_back(command("the same with OMP_THREAD_LIMIT=1", samples,
                                      {"env", "OMP_THREAD_LIMIT=1", "tesseract"}, {"stdout"}));
    }
    const auto seconds = bench::medians(contestants, 3);
    bench::printRatios("Recognising them", contestants, seconds, 0);
    for (std::size_t i = 0; i < contestants.size(); ++i)
        std::printf("  %-58s %7.2f pictures a second\n", contestants[i].name.c_str(),
                    static_cast<double>(samples.size()) / seconds[i]);
}

void measureDocuments(LinuxTextReader& reader, const std::vector<bench::SampleText>& documents) {
    const auto read = [&](std::size_t i) { (void)reader.pdf(FileUrl(documents[i].path), {}); };
    std::vector<bench::Contestant> contestants{
        {"two readers", [&] { forEachFile(documents, read); }}};
    if (bench::isInstalled("pdftotext"))
        contestants.push_back(command("pdftotext -l 15 a file, two at a time", documents,
                                      {"pdftotext", "-l", "15"}, {"-"}));
    bench::printRatios("The text of " + std::to_string(documents.size()) + " PDF files",
                       contestants, bench::medians(contestants), 0);
}

/// Rounds of plain arithmetic that a thread on every processor gets through, added up.
double busyRounds(std::chrono::milliseconds duration) {
    std::atomic<std::uint64_t> rounds = 0;
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
            threads.emplace_back([&] {
                const auto end = std::chrono::steady_clock::now() + duration;
                std::uint64_t own = 0;
                volatile std::uint64_t value = 1;
                for (; std::chrono::steady_clock::now() < end; ++own)
                    for (int step = 0; step < 1000; ++step) value = value * 3 + 1;
                rounds += own;
            });
    }
    return static_cast<double>(rounds);
}

/// Two readers at work until this ends.
class BusyReaders {
  public:
    BusyReaders(LinuxTextReader& reader, const std::vector<bench::SampleText>& samples) {
        for (int i = 0; i < atATime; ++i)
            threads_.emplace_back([&] {
                // The first file may have to wait for a process to start.
                (void)recognised(reader, samples.front().path, RecognitionGrade::fast);
                started_.count_down();
                for (std::size_t at = 0; !ends_; at = (at + 1) % samples.size())
                    (void)recognised(reader, samples[at].path, RecognitionGrade::accurate);
            });
        started_.wait();
    }
    ~BusyReaders() { ends_ = true; }

  private:
    std::atomic<bool> ends_ = false;
    std::latch started_{atATime};
    std::vector<std::jthread> threads_;
};

void measureForeground(LinuxTextReader& reader, const std::vector<bench::SampleText>& samples) {
    constexpr std::chrono::milliseconds turn{700};
    constexpr std::size_t turns = 15;
    std::vector<double> shares;
    (void)busyRounds(turn);
    while (shares.size() < turns) {
        const double before = busyRounds(turn);
        double beside = 0;
        {
            const BusyReaders readers(reader, samples);
            beside = busyRounds(turn);
        }
        shares.push_back(2 * beside / (before + busyRounds(turn)));
    }
    std::nth_element(shares.begin(), shares.begin() + turns / 2, shares.end());
    std::printf(
        "\nWork on every processor keeps %.1f %% of its speed beside two readers (median)\n",
        100 * shares[turns / 2]);
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    const char* const pictures = std::getenv("NOOKWISE_SAMPLES");
    const char* const documents = std::getenv("NOOKWISE_PDFS");
    const auto samples = pictures != nullptr ? bench::samplePictures(pictures)
                                             : bench::drawPictures(work.path() / "pictures");
    const auto pdfs = documents != nullptr ? bench::sampleDocuments(documents)
                                           : bench::writeDocuments(work.path() / "documents");
    if (samples.empty() || pdfs.empty()) {
        std::fputs("there is nothing to read\n", stderr);
        return 1;
    }
    LinuxTextReader reader(readerProgram());
    if (recognised(reader, samples.front().path, RecognitionGrade::accurate).empty()) {
        std::fputs("the reader reads nothing\n", stderr);
        return 1;
    }
    measurePictures(reader, samples);
    measureDocuments(reader, pdfs);
    measureForeground(reader, samples);
    return 0;
}
