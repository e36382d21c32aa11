// The sections of the main window.
#pragma once

#include "model/HashCombine.h"
#include "model/ShelfKind.h"

#include <functional>
#include <string>
#include <variant>

namespace nookwise {

/// A plain section, one library shelf, or one scanned folder by the name under which the library
/// lists it.
class AppSection {
  public:
    enum class Plain {
        home,
        search,
        recent,
        screenshots,
        apps,
        split,
        sweep,
        duplicates,
        activity
    };

    static const AppSection home, search, recent, screenshots, apps, split, sweep, duplicates,
        activity;
    static AppSection shelf(ShelfKind kind) { return AppSection(kind); }
    static AppSection folder(std::string name) { return AppSection(std::move(name)); }

    const Plain* asPlain() const { return std::get_if<Plain>(&value_); }
    const ShelfKind* asShelf() const { return std::get_if<ShelfKind>(&value_); }
    const std::string* asFolder() const { return std::get_if<std::string>(&value_); }

    friend bool operator==(const AppSection&, const AppSection&) = default;

  private:
    friend struct std::hash<AppSection>;
    template <typename Value>
    explicit AppSection(Value value) : value_(std::move(value)) {}
    std::variant<Plain, ShelfKind, std::string> value_;
};

inline const AppSection AppSection::home{Plain::home};
inline const AppSection AppSection::search{Plain::search};
inline const AppSection AppSection::recent{Plain::recent};
inline const AppSection AppSection::screenshots{Plain::screenshots};
inline const AppSection AppSection::apps{Plain::apps};
inline const AppSection AppSection::split{Plain::split};
inline const AppSection AppSection::sweep{Plain::sweep};
inline const AppSection AppSection::duplicates{Plain::duplicates};
inline const AppSection AppSection::activity{Plain::activity};

}  // namespace nookwise

template <>
struct std::hash<nookwise::AppSection> {
    std::size_t operator()(const nookwise::AppSection& section) const noexcept {
        return nookwise::hashOf(section.value_);
    }
};
