// What the reader process is told to try, from inside, by the tests of its confinement.
#pragma once

#include "platform/linux/ReaderProtocol.h"

#include <cstdint>

namespace nookwise {

/// The passed file holds the path, or the number of the process, that is to be tried. The answer is
/// the errno as digits, "0" where the call worked.
enum class Probe : std::uint32_t {
    openForReading = 1000,
    openForWriting,
    openAnyhow,
    createFile,
    createFolder,
    removeFile,
    renameFile,
    changeMode,
    lookAt,
    /// The same by a call that is meant for open files.
    lookAtAsIfOpen,
    listFolder,
    execute,
    makeUnixSocket,
    makeInternetSocket,
    makeNetlinkSocket,
    makeSocketPair,
    connectSocket,
    bindTcpPort,
    forkProcess,
    signalProcess,
    traceProcess,
    readProcessMemory,
    makeCodeInMemory,
    turnMemoryIntoCode,
    makeNamespace,
    raiseLimit,
    makeMemoryFile,
    useIoUring,
    writeToPassedFile,
    truncatePassedFile,
    changeModeOfPassedFile,
    changeTimesOfPassedFile,
    tagPassedFile,
    reopenPassedFile,
    startThread,
    takeMuchMemory,
    takeSharedMemory,
    takeGrowingMemory,
    /// Never gives it back.
    keepSomeMemory,
    /// Says one byte, then never ends.
    loop,
    /// Says one byte, waits for one, then reads the file as a PDF.
    readPdfLater,
    throwSomething,
};

constexpr ReaderJob asJob(Probe probe) {
    return static_cast<ReaderJob>(probe);
}

}  // namespace nookwise
