#include "platform/linux/ToolNames.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

struct Case {
    std::string_view name;
    bool isCaptureTool;
    bool isWriter;
};

TEST(ToolNames, areKnownInAnyCaseAndWithAVersion) {
    constexpr Case cases[] = {
        {"gnome-screenshot", true, true},
        {"Spectacle", true, true},
        {"FLAMESHOT 12.1", true, true},
        {"Flameshot12", true, true},
        {"shutter/0.99", true, true},
        {"ksnip", true, true},
        {"xfce4-screenshooter", true, true},
        {"scrot", true, true},
        {"maim", true, true},
        {"grim", true, true},
        {"org.kde.spectacle", true, true},
        {"grimoire", false, false},
        {"Shutterstock", false, false},
        {"grim\xc3\xa9", false, false},
        {"gri", false, false},
        {"", false, false},
        {"GNOME::ThumbnailFactory", false, false},
        {"Adobe ImageReady", false, false},
        {"GNOME Shell", false, true},
        {"gnome-shell", false, true},
        {"Firefox", false, true},
        {"firefox-esr", false, true},
        {"Firefox Developer Edition", false, true},
        {"org.mozilla.firefox", false, true},
        {"Google Chrome (unstable)", false, true},
        {"Chromium-browser", false, true},
        {"qBittorrent", false, true},
        {"transmission-gtk", false, true},
        {"OBS Studio", false, true},
        {"Obsidian", false, false},
        {"Image Viewer", false, false},
        {"gedit", false, false},
        {"LibreOffice 7.4", false, false},
        {"org.gnome.Nautilus", false, false},
        {"firefoxy", false, false},
    };
    for (const auto& [name, isCaptureTool, isWriter] : cases) {
        EXPECT_EQ(namesCaptureTool(name), isCaptureTool) << name;
        EXPECT_EQ(namesWriter(name), isWriter) << name;
    }
}

}  // namespace
}  // namespace nookwise
