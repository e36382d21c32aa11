// What a reader process may take from the machine, and for how long it lives.
#pragma once

#include <cstddef>

namespace nookwise {

/// The process ends as soon as the one that started it has ended (and with it the other end of
/// `readerSocket`), also in the middle of a file. Call first.
void endWithParent();

/// Memory, stack and open files are limited; no file can be written, no memory image is left
/// behind, and other processes of the user cannot look inside. Descriptors above `lastDescriptor`
/// are closed.
void limitResources(int lastDescriptor);

/// Processor and disk go to everybody else first, and where memory runs out, this process is the
/// first to go. Cannot be taken back. Not possible any more once resources are limited.
void yieldToEverybody();

/// What the C library has taken from the system for the heap, in bytes: also what was freed, where
/// it cannot go back.
std::size_t heldMemory();

/// A process that holds more between two files should end. A quarter of what it may take, and
/// several times what it holds when all goes well.
inline constexpr std::size_t mostHeldMemory = std::size_t{256} << 20;

}  // namespace nookwise
