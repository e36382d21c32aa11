#include "platform/linux/Environment.h"

#include <map>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

BaseFolders foldersWith(const std::map<std::string, std::string>& variables) {
    return baseFolders([&](const char* name) {
        const auto entry = variables.find(name);
        return entry == variables.end() ? std::string() : entry->second;
    });
}

TEST(BaseFolders, areTheUsualOnesWithoutFurtherSettings) {
    const auto folders = foldersWith({{"HOME", "/home/ada"}});
    EXPECT_EQ(folders.home, FileUrl("/home/ada"));
    EXPECT_EQ(folders.configHome, FileUrl("/home/ada/.config"));
    EXPECT_EQ(folders.dataHome, FileUrl("/home/ada/.local/share"));
    EXPECT_EQ(folders.dataFolders,
              (std::vector{FileUrl("/usr/local/share"), FileUrl("/usr/share")}));
}

TEST(BaseFolders, followTheEnvironment) {
    const auto folders = foldersWith({{"HOME", "/home/ada/"},
                                      {"XDG_CONFIG_HOME", "/etc/ada"},
                                      {"XDG_DATA_HOME", "/srv/ada"},
                                      {"XDG_DATA_DIRS", "/opt/share/:/usr/share"}});
    EXPECT_EQ(folders.home, FileUrl("/home/ada"));
    EXPECT_EQ(folders.configHome, FileUrl("/etc/ada"));
    EXPECT_EQ(folders.dataHome, FileUrl("/srv/ada"));
    EXPECT_EQ(folders.dataFolders, (std::vector{FileUrl("/opt/share"), FileUrl("/usr/share")}));
}

TEST(BaseFolders, takeARelativePathForNotSet) {
    const auto folders = foldersWith({{"HOME", "/home/ada"},
                                      {"XDG_CONFIG_HOME", "settings"},
                                      {"XDG_DATA_HOME", "~/data"},
                                      {"XDG_DATA_DIRS", "share::./share:/opt/share:"}});
    EXPECT_EQ(folders.configHome, FileUrl("/home/ada/.config"));
    EXPECT_EQ(folders.dataHome, FileUrl("/home/ada/.local/share"));
    EXPECT_EQ(folders.dataFolders, std::vector{FileUrl("/opt/share")});
}

TEST(BaseFolders, askTheAccountForAHomeThatTheEnvironmentLacks) {
    for (const std::string home : {"", "home/ada"}) {
        const auto folders = foldersWith({{"HOME", home}});
        EXPECT_TRUE(folders.home.path().starts_with('/')) << home;
        EXPECT_NE(folders.home, FileUrl("/")) << home;
    }
}

}  // namespace
}  // namespace nookwise
