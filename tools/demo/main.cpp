// The real application over a sample home, for pictures and for trying it out.
#include "platform/linux/Environment.h"
#include "platform/linux/IniUserDefaults.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/QtTasks.h"
#include "platform/linux/SystemClock.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/DatedMetadata.h"
#include "tools/demo/OwnFolder.h"
#include "tools/demo/SampleFolders.h"
#include "tools/demo/SampleHome.h"
#include "ui/window/Application.h"

#include <QFile>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>

namespace nookwise::demo {
namespace {

FileUrl folderForDemo() {
    const auto cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return FileUrl(QFile::encodeName(cache).toStdString()).append("nookwise-demo");
}

int report(const FileError& error) {
    const std::string path(error.url.path());
    std::fprintf(stderr, "nookwise-demo: cannot %s %s: %s\n", error.operation.c_str(), path.c_str(),
                 error.code.message().c_str());
    return EXIT_FAILURE;
}

/// The user's own folders, settings and history stay out of it.
BaseFolders baseFoldersIn(const FileUrl& home) {
    auto base = baseFolders(processEnvironment);
    base.home = home;
    base.configHome = home.append(".config");
    base.dataHome = home.append(".local").append("share");
    return base;
}

int runOn(Application& application, const FileUrl& home) {
    const SystemClock clock;
    const auto agreed = makeSampleHome(home, clock.now());
    if (!agreed) return report(agreed.error());
    const auto base = baseFoldersIn(home);
    const LinuxFileManager linuxFiles;
    const DatedFileManager files(linuxFiles, agreed.value());
    const LinuxMetadata linuxMetadata(base);
    const DatedMetadata metadata(linuxMetadata, agreed.value());
    const SampleFolders folders(home);
    const LinuxWorkspace workspace(desktopEntryFolders(base));
    IniUserDefaults defaults(userDefaultsFile(base));
    QtTasks tasks;
    return application.run({files, metadata, folders, workspace, clock, tasks}, defaults);
}

int run(Application& application) {
    const auto own = OwnFolder::claim(folderForDemo());
    if (!own) return report(own.error());
    const auto home = own.value().makeAnew("home");
    if (!home) return report(home.error());
    const int status = runOn(application, home.value());
    const auto removed = own.value().remove("home");
    return removed ? status : report(removed.error());
}

}  // namespace
}  // namespace nookwise::demo

int main(int argc, char* argv[]) {
    const auto application = nookwise::Application::create(argc, argv);
    return application ? nookwise::demo::run(*application) : EXIT_FAILURE;
}
