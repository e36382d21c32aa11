#include "tests/scan/ScanFixture.h"

#include <cstdio>

namespace nookwise {
namespace {

class Progress : public ScanFixture {
  protected:
    void addFiles(std::string_view folder, int count) {
        for (int i = 0; i < count; ++i) {
            char name[16];
            std::snprintf(name, sizeof name, "/%06d", i);
            world.files.addFile(std::string(folder) + name);
        }
    }
};

/// The last three reports of every scan.
std::vector<ScanProgress> ending(int files) {
    return {{"", files, 0.8, "Checking when files were last opened"},
            {"", files, 0.88, "Looking for copies"},
            {"", files, 1.0, "Done"}};
}

std::vector<ScanProgress> withEnding(std::vector<ScanProgress> walk, int files) {
    for (auto& report : ending(files)) walk.push_back(std::move(report));
    return walk;
}

TEST_F(Progress, ofEmptyRootsIsOneReportForEachAndTheThreeSteps) {
    scan();
    EXPECT_EQ(reports, withEnding({{"Desktop", 0, 0.25, "Reading Desktop"},
                                   {"Documents", 0, 0.5, "Reading Documents"},
                                   {"Downloads", 0, 0.75, "Reading Downloads"}},
                                  0));
}

TEST_F(Progress, isReportedForEvery400thFileOfARoot) {
    addFiles(desktop, 399);
    addFiles(documents, 400);
    addFiles(downloads, 801);
    scan();
    EXPECT_EQ(reports,
              withEnding({{"Desktop", 399, 0.25, "Reading Desktop"},
                          {"Documents", 799, (400 / 20'000.0 + 1) * 0.25, "Reading Documents"},
                          {"Documents", 799, 0.5, "Reading Documents"},
                          {"Downloads", 1'199, (400 / 20'000.0 + 2) * 0.25, "Reading Downloads"},
                          {"Downloads", 1'599, (800 / 20'000.0 + 2) * 0.25, "Reading Downloads"},
                          {"Downloads", 1'600, 0.75, "Reading Downloads"}},
                         1'600));
}

TEST_F(Progress, countsOnlyTheFilesThatAreRecorded) {
    addFiles(desktop, 399);
    world.files.addFile("/home/user/Desktop/x.xcodeproj");
    world.files.addFile("/home/user/Desktop/y", {.cloud = CloudState::notHere});
    world.files.addFile("/home/user/Desktop/.hidden");
    world.files.addFolder("/home/user/Desktop/folder");
    scan();
    EXPECT_EQ(reports.front(), (ScanProgress{"Desktop", 399, 0.25, "Reading Desktop"}));
}

TEST_F(Progress, ofARootStopsGrowingAtNineTenthsOfItsShare) {
    addFiles(documents, 19'000);
    scan();
    std::vector<double> fractions;
    for (const auto& report : reports) {
        if (report.folder == "Documents") fractions.push_back(report.fraction);
    }
    ASSERT_EQ(fractions.size(), 48u);
    EXPECT_EQ(fractions[43], (17'600 / 20'000.0 + 1) * 0.25);
    EXPECT_EQ(fractions[44], (0.9 + 1) * 0.25);
    EXPECT_EQ(fractions[45], (0.9 + 1) * 0.25);
    EXPECT_EQ(fractions[46], (0.9 + 1) * 0.25);
    EXPECT_EQ(fractions[47], 0.5);
}

TEST_F(Progress, neverGoesBack) {
    addFiles(desktop, 1'300);
    addFiles(documents, 900);
    addFiles(downloads, 500);
    scan();
    for (std::size_t i = 1; i < reports.size(); ++i) {
        EXPECT_GE(reports[i].fraction, reports[i - 1].fraction);
        EXPECT_GE(reports[i].filesSeen, reports[i - 1].filesSeen);
    }
}

TEST_F(Progress, saysTheStepBeforeItsWorkIsDone) {
    world.files.addFile("/home/user/Downloads/a.pdf", {.contents = std::string(70'000, 'x')});
    world.files.addFile("/home/user/Downloads/b.pdf", {.contents = std::string(70'000, 'x')});
    std::string stepAtLastUsed;
    world.metadata.onQuestion([&](const FileUrl&) { stepAtLastUsed = reports.back().step; });
    std::string stepAtOpening;
    std::mutex mutex;
    world.files.onOperation([&](const FakeOperation& operation) {
        const std::lock_guard lock(mutex);
        if (operation.kind == FakeOperation::Kind::open) stepAtOpening = reports.back().step;
    });
    scan();
    EXPECT_EQ(stepAtLastUsed, "Checking when files were last opened");
    EXPECT_EQ(stepAtOpening, "Looking for copies");
}

}  // namespace
}  // namespace nookwise
