// Small settings that outlive the process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// UI thread only. A setting that is missing, unreadable or of another type reads as none. A
/// failure to write is not reported; the value then lasts as long as the process.
class UserDefaults {
  public:
    virtual ~UserDefaults() = default;

    virtual std::optional<bool> boolean(std::string_view key) const = 0;
    virtual void setBoolean(std::string_view key, bool value) = 0;
    virtual std::optional<std::string> string(std::string_view key) const = 0;
    virtual void setString(std::string_view key, std::string_view value) = 0;
    virtual void removeAllWithPrefix(std::string_view prefix) = 0;
};

}  // namespace nookwise
