// Recognises the text in pictures.
#pragma once

#include "platform/TextReader.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace nookwise {

/// Used by one thread.
class Recogniser {
  public:
    /// Loads the languages to begin with: those of the user's locale that are installed, and
    /// English. Null where no language is installed.
    static std::unique_ptr<Recogniser> create();
    virtual ~Recogniser() = default;

    /// As TextReader::ocr. `file` is the whole picture file.
    virtual std::string text(std::span<const std::byte> file, RecognitionGrade grade) = 0;
};

}  // namespace nookwise
