// What a PNG picture says of the program that made it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// The values of the uncompressed "Software" texts before the picture's data, in order. `beginning`
/// is the first part of a file; a chunk that is cut off or out of order ends the reading, and so
/// does anything that is not PNG. Decodes and inflates nothing.
std::vector<std::string_view> pngSoftware(std::string_view beginning);

}  // namespace nookwise
