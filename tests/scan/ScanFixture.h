// A home in memory, and whole scans of it.
#pragma once

#include "scan/Scanner.h"
#include "tests/support/FakePlatform.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {

// The reasons name calendar months, which begin at the user's midnight.
inline const int zoneIsChosen = setenv("TZ", "UTC", 1);

constexpr Seconds day{86'400};
constexpr std::int64_t megabyte = 1'000'000;

class ScanFixture : public testing::Test {
  protected:
    static constexpr std::string_view desktop = "/home/user/Desktop";
    static constexpr std::string_view documents = "/home/user/Documents";
    static constexpr std::string_view downloads = "/home/user/Downloads";

    Scanner scanner(const FileManager& files) {
        return {files, world.metadata, world.folders, world.workspace, world.clock};
    }

    ScanResult scan(std::stop_token stop = {}) {
        return scanner(world.files)
            .runBlocking([this](const ScanProgress& report) { reports.push_back(report); },
                         std::move(stop));
    }

    /// How long before the scan.
    Date ago(Seconds age) const { return now - age; }

    FakePlatform world;
    const Date now = world.clock.now();
    std::vector<ScanProgress> reports;
};

inline std::vector<std::string> paths(const std::vector<FileItem>& files) {
    std::vector<std::string> result;
    for (const auto& file : files) result.emplace_back(file.url.path());
    return result;
}

inline std::vector<std::string> paths(const std::vector<SweepItem>& pile) {
    std::vector<std::string> result;
    for (const auto& item : pile) result.emplace_back(item.file.url.path());
    return result;
}

using Paths = std::vector<std::string>;

}  // namespace nookwise
