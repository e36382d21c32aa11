// The real application over a sample home, for pictures and for trying it out.
#include "platform/linux/Environment.h"
#include "platform/linux/IniUserDefaults.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "platform/linux/LinuxTextReader.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/QtTasks.h"
#include "platform/linux/ReaderProgram.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/SystemClock.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/DatedMetadata.h"
#include "tools/demo/KeptHome.h"
#include "tools/demo/OwnFolder.h"
#include "tools/demo/SampleFolders.h"
#include "tools/demo/SampleHome.h"
#include "ui/window/Application.h"

#include <QFile>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace nookwise::demo {
namespace {

FileUrl folderInCache(std::string_view name) {
    const auto cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return FileUrl(QFile::encodeName(cache).toStdString()).append(name);
}

/// Beside the demo's folder, into which nothing is put before it is known to be the demo's.
SingleInstance::Places placesOfInstance() {
    return SingleInstance::places(folderInCache("nookwise-demo-instance"),
                                  processEnvironment("XDG_RUNTIME_DIR"));
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

int runOn(Application& application, const KeptHome& kept, const Clock& clock) {
    const auto base = baseFoldersIn(kept.home);
    LinuxFileManager linuxFiles(base.dataHome);
    DatedFileManager files(linuxFiles, kept.agreed);
    const LinuxMetadata linuxMetadata(base);
    const DatedMetadata metadata(linuxMetadata, kept.agreed);
    const SampleFolders folders(kept.home);
    LinuxWorkspace workspace(desktopEntryFolders(base));
    IniUserDefaults defaults(userDefaultsFile(base));
    LinuxTextReader reader(readerProgram());
    QtTasks tasks;
    return application.run({files, metadata, folders, workspace, defaults, clock, tasks, reader});
}

void announce(const FileUrl& own, const FileUrl& home) {
    std::printf("The sample home is %s.\nTo begin with a fresh one, remove %s.\n",
                std::string(home.path()).c_str(), std::string(own.path()).c_str());
    std::fflush(stdout);
}

int run(Application& application) {
    const auto instance = SingleInstance::claim(placesOfInstance());
    if (!instance) return EXIT_SUCCESS;
    instance->onShow([&] { application.showWindow(); });
    const auto own = OwnFolder::claim(folderInCache("nookwise-demo"));
    if (!own) return report(own.error());
    const SystemClock clock;
    const auto kept = keptHome(own.value(), clock.now(), makeSampleHome);
    if (!kept) return report(kept.error());
    announce(own.value().url(), kept.value().home);
    return runOn(application, kept.value(), clock);
}

}  // namespace
}  // namespace nookwise::demo

int main(int argc, char* argv[]) {
    const auto application = nookwise::Application::create(argc, argv);
    return application ? nookwise::demo::run(*application) : EXIT_FAILURE;
}
