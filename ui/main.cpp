// The application on the user's own folders.
#include "platform/linux/Environment.h"
#include "platform/linux/IniUserDefaults.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/LinuxMetadata.h"
#include "platform/linux/LinuxTextReader.h"
#include "platform/linux/LinuxUserFolders.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/QtTasks.h"
#include "platform/linux/ReaderProgram.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/TerminationSignals.h"
#include "ui/window/Application.h"

#include <QCoreApplication>
#include <cstdlib>

int main(int argc, char* argv[]) {
    using namespace nookwise;
    const auto application = Application::create(argc, argv);
    if (!application) return EXIT_FAILURE;
    const BaseFolders base = baseFolders(processEnvironment);
    const LinuxUserFolders folders;
    const auto instance = SingleInstance::claim(SingleInstance::places(
        folders.applicationSupport(), processEnvironment("XDG_RUNTIME_DIR")));
    if (!instance) return EXIT_SUCCESS;
    instance->onShow([&] { application->showWindow(); });
    LinuxFileManager files(base.dataHome);
    const LinuxMetadata metadata(base);
    LinuxWorkspace workspace(desktopEntryFolders(base));
    const SystemClock clock;
    IniUserDefaults defaults(userDefaultsFile(base));
    LinuxTextReader reader(readerProgram());
    QtTasks tasks;
    const TerminationSignals termination([] { QCoreApplication::quit(); });
    const int status =
        application->run({files, metadata, folders, workspace, defaults, clock, tasks, reader});
    instance->stopAnswering();
    return status;
}
