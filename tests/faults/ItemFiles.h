// The file or the folder that something is done to.
#pragma once

#include "tests/faults/Scenario.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace nookwise {

struct ItemName {
    std::string stem;
    /// With its dot.
    std::string extension;

    std::string whole() const { return with(""); }
    /// As the application writes a number into a name.
    std::string with(std::string_view suffix) const {
        return stem + std::string(suffix) + extension;
    }
};

/// Odd ones: neither is UTF-8, and both hold what escaping could get wrong.
ItemName nameOf(Item item);

/// With times and permissions of its own.
void writeItemAt(const std::filesystem::path& path, Item item);

/// Makes the file and the folders above it.
void writeFile(const std::filesystem::path& path, std::string_view contents);

}  // namespace nookwise
