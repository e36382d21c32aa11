// A file's contents, made piece by piece while they are written.
#pragma once

#include <functional>
#include <string_view>

namespace nookwise {

/// Takes the next bytes. False when they cannot be written; nothing more is to be given then.
using ContentsSink = std::function<bool(std::string_view)>;

/// Gives all of the contents to the sink, on the thread that it is called on. False to have nothing
/// written after all.
using ContentsSource = std::function<bool(const ContentsSink&)>;

/// Contents that are there as a whole. The bytes must outlive it.
inline ContentsSource wholeContents(std::string_view bytes) {
    return [bytes](const ContentsSink& sink) { return sink(bytes); };
}

}  // namespace nookwise
