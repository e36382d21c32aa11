// What a reader process found in a file.
#pragma once

#include "platform/TextReader.h"
#include "platform/linux/ReaderProtocol.h"
#include "reader/PassedFile.h"

#include <functional>
#include <string>

namespace nookwise {

/// The fields of a ReaderReply and the bytes that follow it. Empty when the file gives nothing.
struct Answer {
    PixelSize size;
    std::string bytes;
};

/// Does the job on the file. May throw, which ends the process.
using Work = std::function<Answer(const ReaderRequest&, PassedFile&)>;

}  // namespace nookwise
