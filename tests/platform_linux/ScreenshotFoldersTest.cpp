#include "platform/linux/GLibPointer.h"
#include "platform/linux/LinuxUserFolders.h"
#include "platform/linux/ScreenshotFolders.h"
#include "tests/support/TemporaryFolder.h"

#include <clocale>
#include <cstdint>
#include <memory>

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <libintl.h>

namespace nookwise {
namespace {

class ScreenshotFolders : public ::testing::Test {
  protected:
    LinuxUserFolders folders() const {
        return LinuxUserFolders([this](const char* name) {
            return std::string_view(name) == "HOME" ? std::string(home_.url().path())
                                                    : std::string();
        });
    }
    FileUrl config() const { return home_.url(".config"); }
    void writeSpectacle(std::string_view text) { home_.write(".config/spectaclerc", text); }
    void writeFlameshot(std::string_view text) {
        home_.write(".config/flameshot/flameshot.ini", text);
    }
    std::optional<FileUrl> spectacle() const {
        return spectacleScreenshotFolder(config(), home_.url());
    }
    std::optional<FileUrl> flameshot() const { return flameshotScreenshotFolder(config()); }

    TemporaryFolder home_;
};

TEST_F(ScreenshotFolders, areNoneByThemselves) {
    EXPECT_EQ(spectacle(), std::nullopt);
    EXPECT_EQ(flameshot(), std::nullopt);
    EXPECT_EQ(folders().screenshots(), std::nullopt);
}

TEST_F(ScreenshotFolders, areSpectaclesOfAnyVersion) {
    writeSpectacle(
        "[General]\nlaunchAction=x\n\n[Save]\ndefaultSaveLocation=file:///srv/my%20shots/\n");
    EXPECT_EQ(spectacle(), FileUrl("/srv/my shots"));
    writeSpectacle(
        "[ImageSave]\nimageSaveLocation=file:///srv/new/\n[Save]\ndefaultSaveLocation=file:///srv/"
        "old/\n");
    EXPECT_EQ(spectacle(), FileUrl("/srv/new"));
    writeSpectacle("[Save]\ndefaultSaveLocation[$e]=file://$HOME/Bilder,%20mehr\n");
    EXPECT_EQ(spectacle(), home_.url("Bilder, mehr"));
    writeSpectacle("[ImageSave]\r\nimageSaveLocation = /srv/plain \r\n");
    EXPECT_EQ(spectacle(), FileUrl("/srv/plain"));
}

TEST_F(ScreenshotFolders, areNotSpectaclesWhereItSetsNone) {
    const std::string_view settings[] = {
        "",
        "[Save]\n",
        "[Save]\ndefaultSaveLocation=\n",
        "[Save]\ndefaultSaveLocation=relative/folder\n",
        "[Save]\ndefaultSaveLocation=smb://server/share\n",
        "[Save]\ndefaultSaveLocation=file:///srv/%zz\n",
        "[Save]\ndefaultSaveLocation=file://$HOME/a\n[Other]\n",
        "[Other]\ndefaultSaveLocation=file:///srv/a\n",
        "[Save][Sub]\ndefaultSaveLocation=file:///srv/a\n",
        "defaultSaveLocation=file:///srv/a\n",
        "[Save\ndefaultSaveLocation=file:///srv/a\n",
        "[Save]\n#defaultSaveLocation=file:///srv/a\n",
        "\xff\xfe\x00\x01",
    };
    for (const auto text : settings) {
        writeSpectacle(text);
        EXPECT_EQ(spectacle(), std::nullopt) << text;
    }
}

TEST_F(ScreenshotFolders, areFlameshots) {
    writeFlameshot("[General]\nsavePath=/srv/shots\n");
    EXPECT_EQ(flameshot(), FileUrl("/srv/shots"));
    writeFlameshot("[General]\nsavePath=\"/srv/a, b\"\n");
    EXPECT_EQ(flameshot(), FileUrl("/srv/a, b"));
    writeFlameshot("[General]\nsavePath=/srv/Ger\xc3\xa4te\n");
    EXPECT_EQ(flameshot(), FileUrl("/srv/Ger\xc3\xa4te"));
}

TEST_F(ScreenshotFolders, areNotFlameshotsWhereItSetsNone) {
    const std::string_view settings[] = {
        "",
        "[General]\n",
        "[General]\nsavePath=\n",
        "[General]\nsavePath=relative\n",
        "[General]\nsavePath=/a, /b\n",
        "[Other]\nsavePath=/srv/shots\n",
        "[General]\nsavePath=@ByteArray(/a)\n",
        "\xff\xfe\x01[",
    };
    for (const auto text : settings) {
        writeFlameshot(text);
        EXPECT_EQ(flameshot(), std::nullopt) << text;
    }
}

TEST_F(ScreenshotFolders, doNotWaitForPipesInTheSettingsPlace) {
    home_.makeFolder(".config/flameshot");
    home_.makePipe(".config/flameshot/flameshot.ini");
    home_.makePipe(".config/spectaclerc");
    EXPECT_EQ(spectacle(), std::nullopt);
    EXPECT_EQ(flameshot(), std::nullopt);
}

TEST_F(ScreenshotFolders, mustExistToBeTheUsers) {
    home_.makeFolder("Pictures/Screenshots");
    EXPECT_EQ(folders().screenshots(), home_.url("Pictures/Screenshots"));
    writeFlameshot("[General]\nsavePath=" + home_.path("shots") + "\n");
    writeSpectacle("[Save]\ndefaultSaveLocation=file://" + home_.path("captures") + "\n");
    EXPECT_EQ(folders().screenshots(), home_.url("Pictures/Screenshots"));
    home_.makeFolder("shots");
    EXPECT_EQ(folders().screenshots(), home_.url("shots"));
    home_.write("captures", "a file, no folder");
    EXPECT_EQ(folders().screenshots(), home_.url("shots"));
    std::filesystem::remove(home_.path("captures"));
    home_.makeFolder("captures");
    EXPECT_EQ(folders().screenshots(), home_.url("captures"));
}

TEST_F(ScreenshotFolders, lieInThePicturesFolderOfTheUsersChoice) {
    home_.write(".config/user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    home_.makeFolder("Pictures/Screenshots");
    EXPECT_EQ(folders().screenshots(), std::nullopt);
    home_.makeFolder("Bilder/Screenshots");
    EXPECT_EQ(folders().screenshots(), home_.url("Bilder/Screenshots"));
}

/// A catalogue of messages as msgfmt makes it: the heading, which names the encoding, and one
/// message.
std::string messageCatalogue(const std::string& original, const std::string& translation) {
    const std::string heading = "Content-Type: text/plain; charset=UTF-8\n";
    std::string bytes;
    const auto number = [&](std::size_t value) {
        const auto word = static_cast<std::uint32_t>(value);
        bytes.append(reinterpret_cast<const char*>(&word), sizeof word);
    };
    constexpr std::size_t texts = 28 + 4 * 8;
    for (const std::size_t value : {std::size_t{0x950412de}, std::size_t{0}, std::size_t{2},
                                    std::size_t{28}, std::size_t{44}, std::size_t{0}, texts}) {
        number(value);
    }
    std::size_t offset = texts;
    for (const auto* text : {&heading, &original, &heading, &translation}) {
        const std::size_t length = text == &heading && offset == texts ? 0 : text->size();
        number(length);
        number(offset);
        offset += length + 1;
    }
    bytes += '\0';
    for (const auto* text : {&original, &heading, &translation}) {
        bytes += *text;
        bytes += '\0';
    }
    return bytes;
}

TEST_F(ScreenshotFolders, areNamedInTheUsersLanguage) {
    if (std::setlocale(LC_MESSAGES, "C.UTF-8") == nullptr)
        GTEST_SKIP() << "no locale to translate in";
    home_.write("locale/xx/LC_MESSAGES/gnome-shell.mo",
                messageCatalogue("Screenshots", "Bildschirmfotos \xc3\xa4"));
    const std::string encoding = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    ::setenv("LANGUAGE", "xx", 1);
    ::bindtextdomain("gnome-shell", home_.path("locale").c_str());
    EXPECT_EQ(screenshotsFolderName(), "Bildschirmfotos \xc3\xa4");
    home_.makeFolder("Pictures/Screenshots");
    EXPECT_EQ(folders().screenshots(), home_.url("Pictures/Screenshots"));
    home_.makeFolder("Pictures/Bildschirmfotos \xc3\xa4");
    EXPECT_EQ(folders().screenshots(), home_.url("Pictures/Bildschirmfotos \xc3\xa4"));
    ::unsetenv("LANGUAGE");
    ::bindtextdomain("gnome-shell", "/usr/share/locale");
    std::setlocale(LC_MESSAGES, "C");
    std::setlocale(LC_CTYPE, encoding.c_str());
    EXPECT_EQ(screenshotsFolderName(), "Screenshots");
}

using SchemaSource =
    std::unique_ptr<GSettingsSchemaSource, GLibRelease<g_settings_schema_source_unref>>;

class GnomeScreenshotFolder : public ScreenshotFolders {
  protected:
    /// Installs a description of the program's settings. Null when this machine cannot.
    SchemaSource install(const std::string& schema) {
        home_.write("schemas/a.gschema.xml", "<schemalist>" + schema + "</schemalist>");
        const std::string folder = home_.path("schemas");
        char program[] = "glib-compile-schemas";
        std::string argument = folder;
        char* arguments[] = {program, argument.data(), nullptr};
        g_spawn_sync(nullptr, arguments, nullptr, G_SPAWN_SEARCH_PATH, nullptr, nullptr, nullptr,
                     nullptr, nullptr, nullptr);
        return SchemaSource(
            g_settings_schema_source_new_from_directory(folder.c_str(), nullptr, TRUE, nullptr));
    }

    static std::string schemaWith(const std::string& attributes, const std::string& key) {
        return R"(<schema id="org.gnome.gnome-screenshot" )" + attributes + ">" + key + "</schema>";
    }

    static constexpr const char* atPath = R"(path="/org/gnome/gnome-screenshot/")";
    static constexpr const char* folderKey =
        R"(<key name="auto-save-directory" type="s"><default>''</default></key>)";
};

TEST_F(GnomeScreenshotFolder, isWhatTheUserHasSet) {
    const auto source = install(schemaWith(atPath, folderKey));
    if (!source) GTEST_SKIP() << "glib-compile-schemas is not installed";
    EXPECT_EQ(gnomeScreenshotFolder(source.get(), home_.url()), std::nullopt);

    using Schema = std::unique_ptr<GSettingsSchema, GLibRelease<g_settings_schema_unref>>;
    const Schema schema(
        g_settings_schema_source_lookup(source.get(), "org.gnome.gnome-screenshot", FALSE));
    const GLibObject<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    struct Case {
        const char* value = nullptr;
        std::optional<FileUrl> expected;
    };
    const Case cases[] = {
        {"file:///srv/my%20shots", FileUrl("/srv/my shots")},
        {"/srv/shots/", FileUrl("/srv/shots")},
        {"~/shots", home_.url("shots")},
        {"~", home_.url()},
        {"~ada/shots", std::nullopt},
        {"smb://server/share", std::nullopt},
        {"shots", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [value, expected] : cases) {
        ASSERT_TRUE(g_settings_set_string(settings.get(), "auto-save-directory", value));
        EXPECT_EQ(gnomeScreenshotFolder(source.get(), home_.url()), expected) << value;
    }
}

TEST_F(GnomeScreenshotFolder, isNoneWhereTheProgramIsNotInstalled) {
    EXPECT_EQ(gnomeScreenshotFolder(nullptr, home_.url()), std::nullopt);
    const auto source = install(R"(<schema id="org.example.other" path="/org/example/"/>)");
    if (!source) GTEST_SKIP() << "glib-compile-schemas is not installed";
    EXPECT_EQ(gnomeScreenshotFolder(source.get(), home_.url()), std::nullopt);
}

TEST_F(GnomeScreenshotFolder, isNoneWhereTheSettingsAreOthers) {
    const std::string schemas[] = {
        schemaWith(atPath,
                   R"(<key name="auto-save-directory" type="b"><default>true</default></key>)"),
        schemaWith(atPath, R"(<key name="other" type="s"><default>''</default></key>)"),
        schemaWith("", folderKey),
    };
    for (const auto& schema : schemas) {
        const auto source = install(schema);
        if (!source) GTEST_SKIP() << "glib-compile-schemas is not installed";
        EXPECT_EQ(gnomeScreenshotFolder(source.get(), home_.url()), std::nullopt) << schema;
    }
}

}  // namespace
}  // namespace nookwise
