// The end of a move or copy that the application's end comes upon.
#pragma once

#include "app/AppStore.h"

namespace nookwise {

/// Ends a running move or copy, inside a file too, and lets the application go on until it has:
/// what was moved belongs in the log. To be called when the event loop has returned.
void endTransfer(AppStore& store);

}  // namespace nookwise
