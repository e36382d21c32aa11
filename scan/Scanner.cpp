#include "scan/Scanner.h"

#include "scan/DuplicateFinder.h"
#include "scan/InstalledApps.h"
#include "scan/Piles.h"
#include "scan/Walk.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

enum RootIndex : std::size_t { desktopRoot, documentsRoot, downloadsRoot };

bool isRoot(const FileUrl& folder, const std::vector<Scanner::Root>& roots) {
    return std::any_of(roots.begin(), roots.end(),
                       [standardized = folder.standardized()](const Scanner::Root& root) {
                           return root.url.standardized() == standardized;
                       });
}

}  // namespace

std::vector<Scanner::Root> Scanner::roots() const {
    return {{"Desktop", folders_.desktop()},
            {"Documents", folders_.documents()},
            {"Downloads", folders_.downloads()}};
}

ScanResult Scanner::runBlocking(const Progress& progress, std::stop_token stop) const {
    const auto scanned = roots();
    auto walked = walk(files_, scanned, folders_.home(), progress, stop);
    const auto now = clock_.now();
    const auto desktop = walked.ofRoot(desktopRoot);
    const auto downloads = walked.ofRoot(downloadsRoot);
    const auto report = [&](double fraction, std::string step) {
        progress({.folder = {},
                  .filesSeen = static_cast<int>(walked.files.size()),
                  .fraction = fraction,
                  .step = std::move(step)});
    };

    ScanResult result;
    if (stop.stop_requested()) return result;
    result.piles[PileKind::installers] = installersPile(
        downloads, desktop,
        installedAppNames(installedApplications(files_, folders_, workspace_, stop)), now);

    std::vector<FileItem> elsewhere;
    if (const auto folder = folders_.screenshots(); folder && !isRoot(*folder, scanned)) {
        elsewhere = topLevelFiles(files_, *folder, stop);
    }
    auto& screenshots = result.piles[PileKind::screenshots];
    screenshots = screenshotsPile(desktop, downloads, elsewhere, metadata_, now, stop);
    ClaimedFiles claimed;
    for (const auto& item : screenshots) claimed.insert(item.file.url);

    if (stop.stop_requested()) return result;
    report(0.8, "Checking when files were last opened");
    result.piles[PileKind::forgotten] = forgottenPile(downloads, metadata_, now, claimed, stop);
    result.piles[PileKind::large] = largePile(walked.files, metadata_, now, claimed, stop);

    if (stop.stop_requested()) return result;
    report(0.88, "Looking for copies");
    result.duplicates = findDuplicates(
        files_, walked.files, stop,
        {.downloads = scanned[downloadsRoot].url, .desktop = scanned[desktopRoot].url});
    if (stop.stop_requested()) return result;
    report(1.0, "Done");
    result.files = std::move(walked.files);
    return result;
}

}  // namespace nookwise
