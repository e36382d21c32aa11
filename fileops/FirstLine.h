// The first line of a text, as the name of a file.
#pragma once

#include "platform/FileUrl.h"
#include "platform/SharedBytes.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace nookwise {

/// The first line that holds at least four letters, as a name: from its first letter or digit on,
/// at most 50 characters, single spaces, without what a name cannot hold or show. None where no
/// line does.
std::optional<std::string> firstLine(std::string_view text);

/// Remembers the first line of each file's text for as long as the text stays the same.
class FirstLines {
  public:
    /// Valid until the next call.
    const std::optional<std::string>& of(const FileUrl& file, const SharedBytes& text);

  private:
    struct Known {
        SharedBytes text;
        std::optional<std::string> line;
    };

    std::unordered_map<FileUrl, Known> known_;
};

}  // namespace nookwise
