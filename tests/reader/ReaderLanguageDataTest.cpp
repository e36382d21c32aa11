// Where a reader process looks for languages, and what it does without any.
#include "reader/recognition/LanguageData.h"
#include "tests/reader/PdfWriter.h"
#include "tests/reader/Probe.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class ReaderLanguageData : public testing::Test {
  protected:
    ~ReaderLanguageData() override { ::unsetenv("TESSDATA_PREFIX"); }

    /// Any language of the system's.
    static std::filesystem::path installedData() {
        for (const auto& folder : languagePaths()) {
            if (!std::filesystem::exists(folder)) continue;
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
                if (entry.path().filename() == "eng.traineddata") return entry.path();
        }
        return {};
    }

    /// The errno of opening it.
    std::string opened(StartedReader& reader, const std::string& path) const {
        const auto target = folder_.write("target", path);
        const auto answer = reader.ask(asJob(Probe::openForReading), std::string(target.path()));
        return answer ? answer->bytes : "no answer";
    }

    void expectTheSystemsData(const std::string& named) const {
        ::setenv("TESSDATA_PREFIX", named.c_str(), 1);
        StartedReader reader(READER_PROBE, {"text", "0", "0"});
        const auto greeting = reader.greeting();
        ASSERT_TRUE(greeting) << named;
        EXPECT_EQ(greeting->recognitionError, 0) << named;
        EXPECT_EQ(opened(reader, data_), "0") << named;
    }

    const TemporaryFolder folder_;
    const std::string data_ = installedData();
};

TEST_F(ReaderLanguageData, isTheSystemsWhereTheNamedFolderHoldsNone) {
    ASSERT_NE(data_, "");
    folder_.write("Documents/letter.txt", "dear reader");
    expectTheSystemsData(folder_.path("missing"));
    expectTheSystemsData(folder_.path("Documents"));
    expectTheSystemsData(folder_.path("Documents/letter.txt"));
    expectTheSystemsData("");
}

TEST_F(ReaderLanguageData, isTheSystemsWhereTheNamedOneIsBroken) {
    ASSERT_NE(data_, "");
    folder_.write("data/eng.traineddata", "no data");
    folder_.write("data/osd.traineddata", "");
    expectTheSystemsData(folder_.path("data"));
}

TEST_F(ReaderLanguageData, isTheSystemsWhereTheFolderIsNamedFromAnother) {
    ASSERT_NE(data_, "");
    folder_.write("data/eng.traineddata", "no data");
    expectTheSystemsData(std::filesystem::relative(folder_.path("data")));
}

TEST_F(ReaderLanguageData, isAllThatIsReadInTheNamedFolder) {
    ASSERT_NE(data_, "");
    const auto letter = std::string(folder_.write("home/letter.txt", "dear reader").path());
    const auto inside = std::string(folder_.write("home/old/eng.traineddata", "old").path());
    const auto named = folder_.path("home/eng.traineddata");
    std::filesystem::copy_file(data_, named);
    ::setenv("TESSDATA_PREFIX", folder_.path("home").c_str(), 1);
    StartedReader reader(READER_PROBE, {"text", "0", "0"});
    const auto greeting = reader.greeting();
    ASSERT_TRUE(greeting);
    EXPECT_EQ(greeting->recognitionError, 0);
    EXPECT_EQ(opened(reader, named), "0");
    for (const auto& path : {letter, inside, data_})
        EXPECT_EQ(opened(reader, path), std::to_string(EACCES)) << path;
}

TEST_F(ReaderLanguageData, isNotNeededForDocuments) {
    const auto file = std::string(folder_.write("a.pdf", latinPdf({"Hello"})).path());
    StartedReader reader(READER_PROBE, {"text", "0", "0", std::to_string(ENOENT)});
    const auto greeting = reader.greeting();
    ASSERT_TRUE(greeting);
    EXPECT_EQ(greeting->recognitionError, ENOENT);
    EXPECT_EQ(reader.ask(ReaderJob::pdfText, file), (ReaderAnswer{0, 0, "Hello\n"}));
}

}  // namespace
}  // namespace nookwise
