// Settings that last as long as the test.
#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <variant>

namespace nookwise {

class FakeUserDefaults : public UserDefaults {
  public:
    std::optional<bool> boolean(std::string_view key) const override { return value<bool>(key); }
    void setBoolean(std::string_view key, bool value) override {
        values_.insert_or_assign(std::string(key), value);
    }
    std::optional<std::string> string(std::string_view key) const override {
        return value<std::string>(key);
    }
    void setString(std::string_view key, std::string_view value) override {
        values_.insert_or_assign(std::string(key), std::string(value));
    }
    void removeAllWithPrefix(std::string_view prefix) override {
        std::erase_if(values_, [&](const auto& entry) { return entry.first.starts_with(prefix); });
    }

  private:
    template <typename T>
    std::optional<T> value(std::string_view key) const {
        const auto entry = values_.find(key);
        if (entry == values_.end()) return std::nullopt;
        const auto* held = std::get_if<T>(&entry->second);
        return held == nullptr ? std::nullopt : std::optional<T>(*held);
    }

    std::map<std::string, std::variant<bool, std::string>, std::less<>> values_;
};

}  // namespace nookwise
