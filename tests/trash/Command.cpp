#include "tests/trash/Command.h"

#include "tests/trash/TrashHome.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

std::string searchPath() {
    const auto* path = std::getenv("PATH");
    return path == nullptr ? "/usr/bin:/bin" : path;
}

std::vector<std::string> environmentIn(const TemporaryFolder& home) {
    return {"PATH=" + searchPath(),
            "HOME=" + home.path().native(),
            "XDG_DATA_HOME=" + home.path("data"),
            "XDG_CONFIG_HOME=" + home.path("config"),
            "XDG_CACHE_HOME=" + home.path("cache"),
            "XDG_RUNTIME_DIR=" + home.path("run"),
            "GVFS_DISABLE_FUSE=1",
            "LC_ALL=C.UTF-8"};
}

/// Ends with the null pointer that the system asks for.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// A program that runs in `folder`, with files for what goes in and out.
pid_t start(std::vector<std::string> arguments, std::vector<std::string> environment,
            const std::string& folder, const std::string& input, const std::string& output) {
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                       O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    pid_t process = -1;
    const int reason = ::posix_spawnp(&process, arguments.front().c_str(), &actions, nullptr,
                                      pointersTo(arguments).data(), pointersTo(environment).data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (reason != 0) throw std::runtime_error("cannot run " + arguments.front());
    return process;
}

}  // namespace

CommandResult runIn(const TemporaryFolder& home, const std::vector<std::string>& command,
                    std::string_view input) {
    // A bus does not trust a runtime folder that others can enter.
    home.makeFolder("run");
    std::filesystem::permissions(home.path("run"), std::filesystem::perms::owner_all);
    home.write("run/input", input);
    const auto output = home.path("run/output");
    const auto process =
        start(command, environmentIn(home), home.path().native(), home.path("run/input"), output);
    int status = 0;
    if (::waitpid(process, &status, 0) != process) throw std::runtime_error("no child");
    return {.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1, .output = contentsOf(output)};
}

bool isInstalled(const std::string& program) {
    std::istringstream folders(searchPath());
    std::string folder;
    while (std::getline(folders, folder, ':'))
        if (::access((folder + "/" + program).c_str(), X_OK) == 0) return true;
    return false;
}

}  // namespace nookwise
