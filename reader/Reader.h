// A reader process from its start to its end.
#pragma once

#include "reader/Answer.h"

#include <string_view>

namespace nookwise {

/// What is taken to be missing: an errno, or 0 where the reader is to find out.
struct MissingAbilities {
    int fileSystemError = 0;
    int systemCallsError = 0;
    int recognitionError = 0;
};

struct ReaderSetup {
    /// Of readerRole.
    std::string_view role;
    MissingAbilities missing;
    /// Is asked for jobs that are not among ReaderJob. May be empty.
    Work otherWork;
};

/// Loads what the role needs, and sees that it works; closes itself in; greets; serves until the
/// other end of `readerSocket` is closed. Exits without a greeting where it could not do its work:
/// then the application learns nothing about files, which is better than that they say nothing.
/// That includes being confined in at least one way, but not having a language to recognise.
[[noreturn]] void runReader(const ReaderSetup& setup);

}  // namespace nookwise
