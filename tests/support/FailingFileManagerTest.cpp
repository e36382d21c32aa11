#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <array>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

/// Does one of everything and writes down what succeeded.
std::string outcome(const FileManager& files) {
    std::string done;
    const auto note = [&](const char* name, const auto& result) { done += result ? name : "-"; };
    note("e", files.enumerate(FileUrl("/r"), {}, [&](FoundFile&&) { done += "f"; }, {}));
    note("l", files.list(FileUrl("/r"), {}));
    note("a", files.attributes(FileUrl("/r/a")));
    note("r", files.resolved(FileUrl("/r/a")));
    note("v", files.volumeFigures(FileUrl("/")));
    const auto opened = files.open(FileUrl("/r/a"));
    note("o", opened);
    if (!opened) return done;
    std::array<std::byte, 4> buffer{};
    note("s", opened.value()->state());
    note("1", opened.value()->read(buffer));
    note("2", opened.value()->read(buffer));
    return done;
}

TEST(FailingFiles, failExactlyTheOperationThatIsAskedFor) {
    FakeFileManager files;
    files.addFile("/r/a", {.contents = "abc"});
    files.addFile("/r/b");
    const std::vector<std::string> outcomes{
        "ffelarvos12", "-larvos12",   "felarvos12", "felarvos12",  "ffe-arvos12", "ffel-rvos12",
        "ffela-vos12", "ffelar-os12", "ffelarv-",   "ffelarvo-12", "ffelarvos-2", "ffelarvos1-"};
    for (std::size_t failing = 0; failing < outcomes.size(); ++failing) {
        const FailingFileManager faulty(files, static_cast<int>(failing));
        EXPECT_EQ(outcome(faulty), outcomes[failing]) << "operation " << failing;
    }
}

TEST(FailingFiles, countWhatPasses) {
    FakeFileManager files;
    files.addFile("/r/a", {.contents = "abc"});
    files.addFile("/r/b");
    const FailingFileManager counting(files, 0);
    outcome(counting);
    EXPECT_EQ(counting.operations(), 11);
}

TEST(FailingFiles, failWithAnIoErrorAtTheUrl) {
    FakeFileManager files;
    const FailingFileManager faulty(files, 1);
    const auto result = faulty.open(FileUrl("/a"));
    EXPECT_EQ(result.error().code, std::errc::io_error);
    EXPECT_EQ(result.error().url, FileUrl("/a"));
}

}  // namespace
}  // namespace nookwise
