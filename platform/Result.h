// A value, or the reason why there is none.
#pragma once

#include "platform/FileUrl.h"

#include <string>
#include <system_error>
#include <utility>
#include <variant>

namespace nookwise {

/// Why an operation on a file failed. `code` is of the generic category and compares with
/// std::errc.
struct FileError {
    std::error_code code;
    FileUrl url;
    /// What was being done, for a person: "open", "read", "list".
    std::string operation;
};

/// Used where a caller can act on the reason. Reading the side that is not there is a bug (std::get
/// throws).
template <typename T>
class [[nodiscard]] Result {
  public:
    Result(T value) : state_(std::move(value)) {}
    Result(FileError error) : state_(std::move(error)) {}

    explicit operator bool() const noexcept { return state_.index() == 0; }
    T& value() { return std::get<0>(state_); }
    const T& value() const { return std::get<0>(state_); }
    const FileError& error() const { return std::get<1>(state_); }

  private:
    std::variant<T, FileError> state_;
};

}  // namespace nookwise
