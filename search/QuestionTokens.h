// The words of a question.
#pragma once

#include <string_view>
#include <vector>

namespace nookwise {

/// What stands between spaces, commas and double quote marks, straight or curly. The views are into
/// `question`.
std::vector<std::string_view> questionTokens(std::string_view question);

}  // namespace nookwise
