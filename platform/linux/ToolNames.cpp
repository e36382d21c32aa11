#include "platform/linux/ToolNames.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace nookwise {
namespace {

constexpr std::array<std::string_view, 12> captureTools{"flameshot",
                                                        "gnome-screenshot",
                                                        "grim",
                                                        "ksnip",
                                                        "maim",
                                                        "mate-screenshot",
                                                        "org.flameshot.flameshot",
                                                        "org.kde.spectacle",
                                                        "scrot",
                                                        "shutter",
                                                        "spectacle",
                                                        "xfce4-screenshooter"};

// Besides the capture tools. Some register under their shown name, some under their program's, some
// under their id.
constexpr std::array<std::string_view, 44> writers{
    "brave",
    "chrome",
    "chromium",
    "com.brave.browser",
    "com.github.micahflee.torbrowser-launcher",
    "com.google.chrome",
    "com.transmissionbt.transmission",
    "deluge",
    "epiphany",
    "falkon",
    "firefox",
    "fragments",
    "gnome shell",
    "gnome-shell",
    "google chrome",
    "google-chrome",
    "io.gitlab.librewolf-community",
    "kazam",
    "kget",
    "konqueror",
    "ktorrent",
    "librewolf",
    "microsoft edge",
    "microsoft-edge",
    "midori",
    "mozilla firefox",
    "msedge",
    "obs",
    "opera",
    "org.gnome.epiphany",
    "org.gnome.screenshot",
    "org.gnome.shell",
    "org.mozilla.firefox",
    "org.mozilla.thunderbird",
    "org.qbittorrent.qbittorrent",
    "qbittorrent",
    "qutebrowser",
    "seamonkey",
    "thunderbird",
    "tor browser",
    "transmission",
    "uget",
    "ungoogled-chromium",
    "vivaldi",
};

// Names of programs are compared without regard to case; they are plain ASCII.
std::string asciiLowercased(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

/// A byte beyond ASCII is part of some letter.
bool isLetter(char lower) {
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(lower) >= 0x80;
}

bool namesOneOf(std::span<const std::string_view> tools, std::string_view lower) {
    return std::any_of(tools.begin(), tools.end(), [&](std::string_view tool) {
        return lower.starts_with(tool) &&
               (lower.size() == tool.size() || !isLetter(lower[tool.size()]));
    });
}

}  // namespace

bool namesCaptureTool(std::string_view name) {
    return namesOneOf(captureTools, asciiLowercased(name));
}

bool namesWriter(std::string_view name) {
    const auto lower = asciiLowercased(name);
    return namesOneOf(writers, lower) || namesOneOf(captureTools, lower);
}

}  // namespace nookwise
