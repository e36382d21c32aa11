// What a reader process may take from the machine, and for how long it lives.
#pragma once

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

}  // namespace nookwise
