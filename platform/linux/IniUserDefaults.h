// Settings in an INI file.
#pragma once

#include "platform/UserDefaults.h"
#include "platform/linux/Environment.h"

#include <QSettings>

namespace nookwise {

/// The settings file of the application.
FileUrl userDefaultsFile(const BaseFolders& folders);

/// The file is created by the first setting, for its owner's eyes only, and written anew with each.
/// One that is not an INI file from beginning to end counts as empty; it is put aside, its name
/// followed by
/// ".broken", when the first setting is written.
class IniUserDefaults : public UserDefaults {
  public:
    explicit IniUserDefaults(const FileUrl& file);

    std::optional<bool> boolean(std::string_view key) const override;
    void setBoolean(std::string_view key, bool value) override;
    std::optional<std::string> string(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void removeAllWithPrefix(std::string_view prefix) override;

  private:
    void putBrokenFileAside();

    QSettings settings_;
    bool isBroken_ = false;
};

}  // namespace nookwise
