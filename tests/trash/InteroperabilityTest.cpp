// Other programs and ours on the same Trash.
#include "platform/linux/PercentEscapes.h"
#include "tests/trash/Command.h"
#include "tests/trash/TrashHome.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::vector<std::string> utf8Names{"plain.txt",
                                         "50%20off 100%",
                                         "two words",
                                         "new\nline",
                                         "'single' \"double\" \\back",
                                         "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8D\x8F",
                                         "[Trash Info]",
                                         "-n;a=b#c?d&e+f",
                                         std::string(255, 'l')};
/// trash-cli can name no such file.
const std::string notUtf8 = "not \xFF\xFE utf-8";

/// Removes what was moved out of the Trash by rename, as putting back does.
void putBack(const TrashHome& home, const FileUrl& place, const FileUrl& to) {
    fs::rename(fs::path(place.path()), fs::path(to.path()));
    home.trash.forget(place);
}

class TrashCli : public testing::Test {
  protected:
    void SetUp() override {
        for (const auto* program : {"trash-list", "trash-put", "trash-restore"})
            if (!isInstalled(program)) GTEST_SKIP() << program << " is not installed";
    }

    static std::string list(const TrashHome& home) {
        return runIn(home.folder, {"trash-list"}).output;
    }
};

TEST_F(TrashCli, listsAndRestoresWhatWeTrash) {
    for (const auto& name : utf8Names) {
        const TrashHome home;
        const auto file = home.folder.write("Documents/" + name, name);
        ASSERT_TRUE(home.trash.trash(file));
        EXPECT_THAT(list(home), HasSubstr(std::string(file.path()) + "\n"));
        const auto restored =
            runIn(home.folder, {"trash-restore", home.folder.path("Documents")}, "0\n");
        EXPECT_EQ(restored.exitCode, 0) << restored.output;
        EXPECT_EQ(contentsOf(file.path()), name) << restored.output;
        EXPECT_THAT(home.names(), IsEmpty());
        EXPECT_THAT(home.infos(), IsEmpty());
    }
}

TEST_F(TrashCli, restoresFoldersAndLinks) {
    const TrashHome home;
    home.folder.write("a/folder/file", "bytes");
    home.folder.makeFolder("b");
    fs::create_symlink("nowhere", home.folder.path("b/link"));
    ASSERT_TRUE(home.trash.trash(home.folder.url("a/folder")));
    ASSERT_TRUE(home.trash.trash(home.folder.url("b/link")));
    EXPECT_EQ(runIn(home.folder, {"trash-restore", home.folder.path("a")}, "0\n").exitCode, 0);
    EXPECT_EQ(runIn(home.folder, {"trash-restore", home.folder.path("b")}, "0\n").exitCode, 0);
    EXPECT_EQ(contentsOf(home.folder.path("a/folder/file")), "bytes");
    EXPECT_EQ(fs::read_symlink(home.folder.path("b/link")), "nowhere");
}

TEST_F(TrashCli, listsNothingThatWePutBack) {
    const TrashHome home;
    const auto file = home.folder.write("file", "bytes");
    const auto place = home.trash.trash(file);
    ASSERT_TRUE(place);
    putBack(home, place.value(), file);
    EXPECT_THAT(list(home), Not(HasSubstr(file.path())));
}

TEST_F(TrashCli, trashesBesideUs) {
    const TrashHome home;
    const auto path = home.folder.path("same name.txt");
    const auto file = home.folder.write("same name.txt", "theirs");
    ASSERT_EQ(runIn(home.folder, {"trash-put", path}).exitCode, 0);
    ASSERT_EQ(home.names().size(), 1U);
    const auto theirs = home.url.append("files").append(home.names().front());
    home.folder.write("same name.txt", "ours");
    const auto ours = home.trash.trash(file);
    ASSERT_TRUE(ours);
    home.folder.write("same name.txt", "theirs again");
    ASSERT_EQ(runIn(home.folder, {"trash-put", path}).exitCode, 0);
    EXPECT_EQ(contentsOf(theirs.path()), "theirs");
    EXPECT_EQ(contentsOf(ours.value().path()), "ours");
    EXPECT_EQ(home.names().size(), 3U);
    EXPECT_EQ(home.infos().size(), 3U);
}

TEST_F(TrashCli, keepsItsOrphansAndLosesWhatWePutBackForIt) {
    const TrashHome home;
    const auto file = home.folder.write("file", "bytes");
    ASSERT_EQ(runIn(home.folder, {"trash-put", home.folder.path("file")}).exitCode, 0);
    const auto theirs = home.url.append("files").append("file");
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("file.trashinfo"));
    fs::rename(fs::path(theirs.path()), fs::path(file.path()));
    Trash(home.url).removeLeftovers({});
    EXPECT_THAT(home.infos(), ElementsAre("file.trashinfo"));
    home.trash.forget(theirs);
    EXPECT_THAT(home.infos(), IsEmpty());
}

class Gio : public testing::Test {
  protected:
    void SetUp() override {
        for (const auto* program : {"gio", "dbus-run-session"})
            if (!isInstalled(program)) GTEST_SKIP() << program << " is not installed";
        if (list(home).exitCode != 0) GTEST_SKIP() << "the daemons of GVfs do not run here";
    }

    static CommandResult inSession(const TrashHome& home, std::vector<std::string> command) {
        std::vector<std::string> whole{"dbus-run-session", "--"};
        whole.insert(whole.end(), command.begin(), command.end());
        return runIn(home.folder, whole);
    }
    static CommandResult list(const TrashHome& home) {
        return inSession(home, {"gio", "trash", "--list"});
    }
    static CommandResult put(const TrashHome& home, const std::string& name) {
        return inSession(home, {"gio", "trash", home.folder.path(name)});
    }

    TrashHome home;
};

TEST_F(Gio, listsWhatWeTrash) {
    auto names = utf8Names;
    names.push_back(notUtf8);
    for (const auto& name : names)
        ASSERT_TRUE(home.trash.trash(home.folder.write("Documents/" + name, name)));
    const auto listed = list(home).output;
    // It writes bytes that are not printable ASCII, and backslashes, as \xHH.
    for (const auto* name :
         {"plain.txt", "50%20off 100%", "two words", "new\\x0aline",
          "'single' \"double\" \\x5cback", "\\xc3\\xa4\\xe2\\x82\\xac\\xf0\\x9f\\x8d\\x8f",
          "[Trash Info]", "-n;a=b#c?d&e+f", "not \\xff\\xfe utf-8"})
        EXPECT_THAT(listed, HasSubstr(home.folder.path("Documents/") + name + "\n"));
    EXPECT_THAT(listed, HasSubstr(home.folder.path("Documents/" + std::string(255, 'l')) + "\n"));
}

TEST_F(Gio, restoresWhatWeTrash) {
    // Other names it restores in the form in which it lists them, those it trashed itself too.
    const std::vector<std::string> names{"plain.txt",    "50%20off 100%",  "'a' \"b\"",
                                         "[Trash Info]", "-n;a=b#c?d&e+f", std::string(255, 'l')};
    std::vector<std::string> restoring{"gio", "trash", "--restore"};
    for (const auto& name : names) {
        const auto place = home.trash.trash(home.folder.write("Documents/" + name, name));
        ASSERT_TRUE(place);
        restoring.push_back("trash:///" + percentEscaped(place.value().lastPathComponent()));
    }
    const auto restored = inSession(home, restoring);
    EXPECT_EQ(restored.exitCode, 0) << restored.output;
    for (const auto& name : names)
        EXPECT_EQ(contentsOf(home.folder.path("Documents/" + name)), name);
    EXPECT_THAT(home.names(), IsEmpty());
    EXPECT_THAT(home.infos(), IsEmpty());
}

TEST_F(Gio, listsNothingThatWePutBack) {
    const auto file = home.folder.write("file", "bytes");
    const auto place = home.trash.trash(file);
    ASSERT_TRUE(place);
    ASSERT_THAT(list(home).output, HasSubstr(file.path()));
    putBack(home, place.value(), file);
    EXPECT_THAT(list(home).output, Not(HasSubstr(file.path())));
}

TEST_F(Gio, trashesBesideUs) {
    for (const auto& name : {std::string("same name.txt"), notUtf8}) {
        const auto file = home.folder.write(name, "theirs");
        if (const auto theirs = put(home, name); theirs.exitCode != 0)
            GTEST_SKIP() << "it does not trash from here: " << theirs.output;
        home.folder.write(name, "ours");
        const auto ours = home.trash.trash(file);
        ASSERT_TRUE(ours);
        EXPECT_EQ(contentsOf(ours.value().path()), "ours");
        home.folder.write(name, "theirs again");
        EXPECT_EQ(put(home, name).exitCode, 0);
        EXPECT_EQ(contentsOf(ours.value().path()), "ours");
    }
    EXPECT_EQ(home.names().size(), 6U);
    EXPECT_EQ(home.infos().size(), 6U);
    Trash(home.url).removeLeftovers({});
    EXPECT_EQ(home.names().size(), 6U);
    EXPECT_EQ(home.infos().size(), 6U);
}

}  // namespace
}  // namespace nookwise
