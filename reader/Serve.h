// The reader's side of the conversation with the application.
#pragma once

#include "reader/Answer.h"

namespace nookwise {

enum class ServeEnd {
    /// The application closed its end between two requests.
    closed,
    /// It said what makes no sense, passed no file, or went away in the middle.
    broken,
    /// The work threw. The libraries do so where memory runs out, and may have kept what they had.
    thrown,
    /// Too little of its memory is left for the next file.
    full,
};

/// Tells the application that the process is ready. False when it has gone.
bool greet(int socket, const ReaderGreeting& greeting);

/// Answers requests one by one until the application ends the conversation or the process should
/// end.
ServeEnd serve(int socket, const Work& work);

}  // namespace nookwise
