#include "platform/linux/ScreenshotFolders.h"

#include "platform/linux/GLibPointer.h"
#include "platform/linux/RegularFile.h"

#include <QFile>
#include <QSettings>
#include <array>
#include <memory>
#include <string_view>

#include <libintl.h>

namespace nookwise {
namespace {

constexpr std::size_t longestSettings = 1024 * 1024;

using SettingsSchema = std::unique_ptr<GSettingsSchema, GLibRelease<g_settings_schema_unref>>;

/// A URL, a path from the home folder ("~/Pictures"), or an absolute path.
std::optional<FileUrl> folderOf(std::string_view text, const FileUrl& home) {
    if (text.find('\0') != std::string_view::npos) return std::nullopt;
    if (text == "~" || text.starts_with("~/")) {
        return FileUrl(std::string(home.path()) + std::string(text.substr(1))).standardized();
    }
    if (text.starts_with('/')) return FileUrl(text).standardized();
    const auto url = FileUrl::fromUrlString(text);
    return url ? std::optional(url->standardized()) : std::nullopt;
}

/// Opening settings that are not described, or not as expected, would end the program.
bool describes(GSettingsSchema* schema, const char* key) {
    if (schema == nullptr || g_settings_schema_get_path(schema) == nullptr) return false;
    if (!g_settings_schema_has_key(schema, key)) return false;
    const std::unique_ptr<GSettingsSchemaKey, GLibRelease<g_settings_schema_key_unref>> described(
        g_settings_schema_get_key(schema, key));
    return g_variant_type_equal(g_settings_schema_key_get_value_type(described.get()),
                                G_VARIANT_TYPE_STRING);
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct Assignment {
    std::string_view key;
    /// What may follow the key: "[$e]" lets variables stand in the value.
    std::string_view mark;
    std::string_view value;
};

std::optional<Assignment> assignmentIn(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const auto name = trimmed(line.substr(0, equals));
    const auto bracket = std::min(name.find('['), name.size());
    return Assignment{name.substr(0, bracket), name.substr(bracket),
                      trimmed(line.substr(equals + 1))};
}

std::string withHome(std::string_view value, const FileUrl& home) {
    std::string text(value);
    for (const std::string_view variable : {"${HOME}", "$HOME"}) {
        const auto at = text.find(variable);
        if (at != std::string::npos) text.replace(at, variable.size(), home.path());
    }
    return text;
}

/// The value of a key in a KDE settings file.
std::optional<std::string> kdeSetting(std::string_view text, std::string_view group,
                                      std::string_view key, const FileUrl& home) {
    const std::string heading = '[' + std::string(group) + ']';
    bool isInGroup = false;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = trimmed(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        if (line.starts_with('[')) isInGroup = line == heading;
        const auto assignment = isInGroup ? assignmentIn(line) : std::nullopt;
        if (!assignment || assignment->key != key) continue;
        const bool mayNameVariables = assignment->mark.find("$e") != std::string_view::npos;
        return mayNameVariables ? withHome(assignment->value, home)
                                : std::string(assignment->value);
    }
    return std::nullopt;
}

}  // namespace

std::optional<FileUrl> gnomeScreenshotFolder(_GSettingsSchemaSource* installed,
                                             const FileUrl& home) {
    constexpr const char* key = "auto-save-directory";
    if (installed == nullptr) return std::nullopt;
    const SettingsSchema schema(
        g_settings_schema_source_lookup(installed, "org.gnome.gnome-screenshot", TRUE));
    if (!describes(schema.get(), key)) return std::nullopt;
    const GLibObject<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    const GLibString folder(g_settings_get_string(settings.get(), key));
    return folderOf(folder.get(), home);
}

std::optional<FileUrl> spectacleScreenshotFolder(const FileUrl& configHome, const FileUrl& home) {
    const auto text = readSmallFile(configHome.append("spectaclerc"), longestSettings);
    if (!text) return std::nullopt;
    struct Place {
        std::string_view group;
        std::string_view key;
    };
    // Newer versions keep pictures and recordings apart.
    constexpr std::array<Place, 2> places{
        {{"ImageSave", "imageSaveLocation"}, {"Save", "defaultSaveLocation"}}};
    for (const auto& place : places) {
        const auto value = kdeSetting(*text, place.group, place.key, home);
        auto folder = value ? folderOf(*value, home) : std::nullopt;
        if (folder) return folder;
    }
    return std::nullopt;
}

std::optional<FileUrl> flameshotScreenshotFolder(const FileUrl& configHome) {
    const auto file = configHome.append("flameshot").append("flameshot.ini");
    // QSettings would wait at a pipe.
    if (!RegularFile::open(file)) return std::nullopt;
    const auto path = file.path();
    const QSettings settings(
        QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size()))),
        QSettings::IniFormat);
    const auto folder = settings.value(QStringLiteral("savePath"));
    if (folder.typeId() != QMetaType::QString) return std::nullopt;
    const auto bytes = QFile::encodeName(folder.toString()).toStdString();
    return bytes.starts_with('/') ? folderOf(bytes, FileUrl()) : std::nullopt;
}

std::string screenshotsFolderName() {
    constexpr const char* desktop = "gnome-shell";
    ::bind_textdomain_codeset(desktop, "UTF-8");
    return ::dgettext(desktop, "Screenshots");
}

}  // namespace nookwise
