#include "scan/InstalledApps.h"

#include "platform/Text.h"

#include <utility>

namespace nookwise {
namespace {

// Shorter names ("Go", "R") begin too many installers' names by chance.
constexpr std::size_t minimumKeyLength = 3;

}  // namespace

std::string letters(std::string_view text) {
    return lowercasedLetters(text);
}

std::vector<InstalledApplication> installedApplications(const FileManager& files,
                                                        const UserFolders& folders,
                                                        const Workspace& workspace,
                                                        const std::stop_token& stop) {
    auto applications = workspace.applications(stop);
    for (const auto& folder : folders.applications()) {
        const auto entries = files.list(folder, stop);
        if (!entries) continue;
        for (const auto& entry : entries.value()) {
            if (entry.url.pathExtension() != "app") continue;
            applications.push_back({std::string(entry.url.stem()), entry.url});
        }
    }
    return applications;
}

InstalledAppNames installedAppNames(std::span<const InstalledApplication> applications) {
    InstalledAppNames names;
    for (const auto& application : applications) {
        auto key = letters(application.name);
        if (characterCount(key) < minimumKeyLength) continue;
        names.insert_or_assign(std::move(key), application.name);
    }
    return names;
}

const std::string* applicationOfInstaller(const InstalledAppNames& apps,
                                          std::string_view installerLetters) {
    // The longest key that begins the installer's letters is the last such key in byte order at or
    // before them; keys in between that are no beginnings are stepped over by cutting the letters
    // to what they share.
    std::string_view beginning = installerLetters;
    while (!beginning.empty()) {
        auto candidate = apps.upper_bound(std::string(beginning));
        if (candidate == apps.begin()) return nullptr;
        --candidate;
        const std::string_view key = candidate->first;
        if (beginning.starts_with(key)) return &candidate->second;
        std::size_t shared = 0;
        while (shared < key.size() && shared < beginning.size() && key[shared] == beginning[shared])
            ++shared;
        beginning = beginning.substr(0, shared);
    }
    return nullptr;
}

}  // namespace nookwise
