#include "platform/linux/IniUserDefaults.h"
#include "platform/linux/RegularFile.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class IniDefaults : public ::testing::Test {
  protected:
    TemporaryFolder home_;
    FileUrl file_ = home_.url("config/Nookwise/Nookwise.ini");
    std::string path_ = home_.path("config/Nookwise/Nookwise.ini");
};

TEST_F(IniDefaults, areEmptyWithoutAFile) {
    const IniUserDefaults defaults(file_);
    EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt);
    EXPECT_EQ(defaults.string("onboarded"), std::nullopt);
}

TEST_F(IniDefaults, areNotWrittenByAsking) {
    {
        IniUserDefaults defaults(file_);
        (void)defaults.boolean("onboarded");
        defaults.removeAllWithPrefix("skipConfirm.");
    }
    EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(IniDefaults, outliveTheProcess) {
    {
        IniUserDefaults defaults(file_);
        defaults.setBoolean("onboarded", true);
        defaults.setBoolean("showInMenuBar", false);
        defaults.setString("folder", "/home/\xc3\x84 \xf0\x9f\x90\x88, \"b\";\\=%\n#@x\t");
        defaults.setString("empty", "");
    }
    const IniUserDefaults defaults(file_);
    EXPECT_EQ(defaults.boolean("onboarded"), true);
    EXPECT_EQ(defaults.boolean("showInMenuBar"), false);
    EXPECT_EQ(defaults.string("folder"), "/home/\xc3\x84 \xf0\x9f\x90\x88, \"b\";\\=%\n#@x\t");
    EXPECT_EQ(defaults.string("empty"), "");
}

TEST_F(IniDefaults, areOnDiskAtOnce) {
    IniUserDefaults defaults(file_);
    defaults.setBoolean("onboarded", true);
    const auto text = readSmallFile(file_, 10'000);
    ASSERT_TRUE(text);
    EXPECT_NE(text->find("onboarded=true"), std::string::npos) << *text;
}

TEST_F(IniDefaults, replaceWhatWasSetBefore) {
    IniUserDefaults defaults(file_);
    defaults.setBoolean("onboarded", true);
    defaults.setBoolean("onboarded", false);
    EXPECT_EQ(defaults.boolean("onboarded"), false);
    defaults.setString("onboarded", "perhaps");
    EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt);
    EXPECT_EQ(defaults.string("onboarded"), "perhaps");
}

TEST_F(IniDefaults, loseAllKeysOfAPrefixAndNoOthers) {
    {
        IniUserDefaults defaults(file_);
        for (const char* key :
             {"skipConfirm.Old installers", "skipConfirm.\xd0\xb0/b", "skipConfirm.",
              "skipConfirmed", "onboarded", "other/skipConfirm.x"}) {
            defaults.setBoolean(key, true);
        }
        EXPECT_EQ(defaults.boolean("skipConfirm.Old installers"), true);
        EXPECT_EQ(defaults.boolean("skipConfirm.\xd0\xb0/b"), true);
        defaults.removeAllWithPrefix("skipConfirm.");
    }
    const IniUserDefaults defaults(file_);
    for (const char* key :
         {"skipConfirm.Old installers", "skipConfirm.\xd0\xb0/b", "skipConfirm."}) {
        EXPECT_EQ(defaults.boolean(key), std::nullopt) << key;
    }
    for (const char* key : {"skipConfirmed", "onboarded", "other/skipConfirm.x"}) {
        EXPECT_EQ(defaults.boolean(key), true) << key;
    }
}

TEST_F(IniDefaults, readAnotherTypeAsNone) {
    home_.write("config/Nookwise/Nookwise.ini",
                "[General]\nword=perhaps\nnumber=1\nupper=TRUE\nlist=a, b\nnothing=\n"
                "bytes=@ByteArray(true)\nunknown=@Variant(\\0\\0\\0\\x7f)\ntext=true\n");
    const IniUserDefaults defaults(file_);
    for (const char* key : {"word", "number", "upper", "list", "nothing", "bytes", "unknown"}) {
        EXPECT_EQ(defaults.boolean(key), std::nullopt) << key;
    }
    for (const char* key : {"list", "bytes", "unknown"}) {
        EXPECT_EQ(defaults.string(key), std::nullopt) << key;
    }
    EXPECT_EQ(defaults.boolean("text"), true);
}

TEST_F(IniDefaults, leaveATornFileAsItIsUntilSomethingIsSetAndThenPutItAside) {
    const std::string torn = "[General]\nonboarded=true\nskipConf";
    home_.write("config/Nookwise/Nookwise.ini", torn);
    const auto contents = [&](const char* name) {
        std::ostringstream text;
        text << std::ifstream(home_.path(name), std::ios::binary).rdbuf();
        return text.str();
    };
    IniUserDefaults defaults(file_);
    EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt);
    defaults.removeAllWithPrefix("skipConfirm.");
    EXPECT_EQ(contents("config/Nookwise/Nookwise.ini"), torn);
    defaults.setBoolean("showInMenuBar", true);
    EXPECT_EQ(contents("config/Nookwise/Nookwise.ini.broken"), torn);
    EXPECT_EQ(defaults.boolean("showInMenuBar"), true);
    EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt);
}

TEST_F(IniDefaults, leaveATornFileAsItIsWhenNothingIsEverSet) {
    const std::string torn = "[General]\nonboarded=true\nskipConf";
    home_.write("config/Nookwise/Nookwise.ini", torn);
    EXPECT_EQ(IniUserDefaults(file_).boolean("onboarded"), std::nullopt);
    std::ostringstream text;
    text << std::ifstream(home_.path("config/Nookwise/Nookwise.ini"), std::ios::binary).rdbuf();
    EXPECT_EQ(text.str(), torn);
}

TEST_F(IniDefaults, areEmptyWhenTheFileIsTorn) {
    const std::string files[] = {
        "[General]\nonboarded=true\nskipConf",
        "[General]\nonboarded=true\n[Oth",
        "onboarded",
        std::string(2000, '\xff'),
        std::string(2000, '\0'),
        "[General]\nonboarded=true\n" + std::string("\x7f"
                                                    "ELF\x02\n",
                                                    6),
    };
    for (const auto& contents : files) {
        home_.write("config/Nookwise/Nookwise.ini", contents);
        {
            IniUserDefaults defaults(file_);
            EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt) << contents.substr(0, 60);
            defaults.setBoolean("showInMenuBar", false);
            EXPECT_EQ(defaults.boolean("showInMenuBar"), false);
        }
        const IniUserDefaults again(file_);
        EXPECT_EQ(again.boolean("showInMenuBar"), false) << contents.substr(0, 60);
        EXPECT_EQ(again.boolean("onboarded"), std::nullopt) << contents.substr(0, 60);
    }
}

TEST_F(IniDefaults, areForTheirOwnersEyesOnly) {
    const auto mask = ::umask(022);
    {
        IniUserDefaults defaults(file_);
        defaults.setBoolean("onboarded", true);
        defaults.setBoolean("showInMenuBar", true);
    }
    ::umask(mask);
    EXPECT_EQ(std::filesystem::status(path_).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(IniDefaults, lastAsLongAsTheProcessWhereTheyCannotBeWritten) {
    home_.makeFolder("closed");
    ASSERT_EQ(::chmod(home_.path("closed").c_str(), 0555), 0);
    const OrdinaryUser user;
    IniUserDefaults defaults(home_.url("closed/Nookwise/Nookwise.ini"));
    defaults.setBoolean("onboarded", true);
    EXPECT_EQ(defaults.boolean("onboarded"), true);
    EXPECT_FALSE(std::filesystem::exists(home_.path("closed/Nookwise")));
}

TEST_F(IniDefaults, lastAsLongAsTheProcessWhereNoFileIs) {
    home_.makeFolder("config/Nookwise");
    home_.makePipe("config/Nookwise/Nookwise.ini");
    home_.makeFolder("config/Other/Nookwise.ini");
    for (const auto& file : {file_, home_.url("config/Other/Nookwise.ini")}) {
        IniUserDefaults defaults(file);
        EXPECT_EQ(defaults.boolean("onboarded"), std::nullopt);
        defaults.setBoolean("onboarded", true);
        EXPECT_EQ(defaults.boolean("onboarded"), true);
    }
    EXPECT_TRUE(std::filesystem::is_fifo(path_));
}

TEST(UserDefaultsFile, liesWithTheUsersSettings) {
    BaseFolders base;
    base.configHome = FileUrl("/home/ada/.config");
    EXPECT_EQ(userDefaultsFile(base), FileUrl("/home/ada/.config/Nookwise/Nookwise.ini"));
}

}  // namespace
}  // namespace nookwise
