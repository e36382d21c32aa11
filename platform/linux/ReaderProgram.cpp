#include "platform/linux/ReaderProgram.h"

#include <array>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::string_view programName = "nookwise-reader";

bool isExecutable(const FileUrl& url) {
    return ::access(std::string(url.path()).c_str(), X_OK) == 0;
}

}  // namespace

FileUrl readerProgramOf(const FileUrl& executable) {
    const auto folder = executable.parent();
    const auto installed = folder.parent().append("libexec").append("nookwise").append(programName);
    if (folder.lastPathComponent() == "bin") return installed;
    // Programs lie one folder or two below the top of the build tree.
    for (const auto& top : {folder.parent(), folder.parent().parent()}) {
        const auto built = top.append("reader").append(programName);
        if (isExecutable(built)) return built;
    }
    return installed;
}

FileUrl readerProgram() {
    std::error_code error;
    // Of a program that was replaced meanwhile, only the name is wrong.
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return readerProgramOf(error ? FileUrl("/usr/bin/nookwise") : FileUrl(executable.native()));
}

std::vector<std::string> readerEnvironment(const Environment& environment) {
    static constexpr std::array passedOn{"LANG",        "LANGUAGE", "LC_ALL",
                                         "LC_MESSAGES", "LC_CTYPE", "TESSDATA_PREFIX"};
    // Recognition with threads of its own takes five times as long where several processes do it.
    std::vector<std::string> variables{"OMP_THREAD_LIMIT=1"};
    for (const auto* name : passedOn)
        if (const auto value = environment(name); !value.empty())
            variables.push_back(std::string(name) + '=' + value);
    return variables;
}

}  // namespace nookwise
