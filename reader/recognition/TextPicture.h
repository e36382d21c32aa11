// Prepares a picture for recognition: dark text on white, of the size that reads best.
#pragma once

#include "platform/TextReader.h"
#include "reader/recognition/Pictures.h"
#include "reader/recognition/Pix.h"

namespace nookwise {

/// A picture of mostly dark text on white, in the size of the file's or less.
struct TextPicture {
    PixPointer pix;
    /// Whether there may be light text on dark too. Looking for it takes more time.
    bool mayHoldLightText = false;
};

/// `picture` is at most recognitionSide(grade) long. Null where it is too small for text, or memory
/// does not suffice.
TextPicture textPicture(GreyPicture picture);

/// In pixels.
std::int32_t recognitionSide(RecognitionGrade grade);

/// In the size, and of the letters' width, in which the grade reads them.
TextPicture inReadingSize(const TextPicture& picture, RecognitionGrade grade);

/// In the size in which the script detector tells one letter from another.
PixPointer inDetectionSize(const TextPicture& picture);

/// By steps of 90 degrees clockwise.
TextPicture turned(const TextPicture& picture, int quarterTurns);

}  // namespace nookwise
