// An absolute path as a value.
#pragma once

#include "platform/SharedBytes.h"

#include <compare>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// The part of a file name after its last dot, without the dot. Empty when there is no dot, when
/// the only dot comes first (".profile") and when nothing follows it.
std::string_view extensionOf(std::string_view fileName);

/// The file name without its extension and the dot before it.
std::string_view stemOf(std::string_view fileName);

/// Raw bytes: a Linux name need not be UTF-8 and a path may be longer than PATH_MAX. Compared and
/// hashed byte by byte; copies share their bytes. A default-constructed value is empty and names no
/// file.
class FileUrl {
  public:
    FileUrl() = default;

    /// `path` is absolute. Trailing slashes are dropped; nothing else is changed.
    explicit FileUrl(std::string_view path);

    std::string_view path() const noexcept { return path_.view(); }
    bool empty() const noexcept { return path_.view().empty(); }

    /// "/" for the root folder.
    std::string_view lastPathComponent() const noexcept;
    std::string_view pathExtension() const noexcept { return extensionOf(lastPathComponent()); }
    std::string_view stem() const noexcept { return stemOf(lastPathComponent()); }

    /// The path of the parent folder; "/" is its own parent.
    std::string_view parentPath() const noexcept;
    FileUrl parent() const { return FileUrl(parentPath()); }

    /// This folder's child of the given name.
    FileUrl append(std::string_view name) const;

    /// The same path without ".", ".." and doubled slashes. Purely textual: links are not looked
    /// at.
    FileUrl standardized() const;

    /// True when this is `folder` itself or lies anywhere below it. Textual.
    bool isWithin(const FileUrl& folder) const noexcept;

    /// "file:///…" with every byte outside the URL path characters written as %XX (upper-case).
    std::string urlString() const;

    /// Reads what `urlString` writes, and any other escaping of the same bytes. None for another
    /// scheme, a remote host, a relative path, a malformed escape or a NUL.
    static std::optional<FileUrl> fromUrlString(std::string_view text);

    friend bool operator==(const FileUrl&, const FileUrl&) = default;
    friend std::strong_ordering operator<=>(const FileUrl&, const FileUrl&) = default;

  private:
    explicit FileUrl(SharedBytes path) : path_(std::move(path)) {}
    SharedBytes path_;
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::FileUrl> {
    std::size_t operator()(const nookwise::FileUrl& url) const noexcept {
        return std::hash<std::string_view>{}(url.path());
    }
};
