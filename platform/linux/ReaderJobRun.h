// One file, one reader process.
#pragma once

#include "platform/linux/CallStop.h"
#include "platform/linux/ReaderLimits.h"
#include "platform/linux/ReaderProcess.h"
#include "platform/linux/ReaderProtocol.h"

#include <string>

namespace nookwise {

struct ReaderJobResult {
    enum class Kind {
        answered,
        /// The file is to blame: the process died of it, took too long or said what cannot be.
        failed,
        /// Nothing was learnt about the file: somebody else ended the process, or the system could
        /// not hand the file over.
        lost,
        stopped,
    };
    Kind kind = Kind::failed;
    /// Only of an answer, and then fit for the request: sides and lengths are as the protocol says.
    ReaderReply reply;
    std::string bytes;
};

/// Hands the file over and waits for the answer. After anything but an answer the process is no
/// longer fit for use.
ReaderJobResult runReaderJob(const ReaderProcess& process, const ReaderRequest& request, int file,
                             const ReaderJobLimits& limits, const CallStop& stop);

}  // namespace nookwise
