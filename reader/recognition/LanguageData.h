// Where the data of the languages lies.
#pragma once

#include "reader/recognition/Recogniser.h"

#include <memory>
#include <string>
#include <vector>

namespace nookwise {

/// As Recogniser::create(). TESSDATA_PREFIX counts where it is the absolute path of a folder with
/// data that can be loaded; else it is removed from the environment, and the system's data counts.
/// For a process with one thread.
std::unique_ptr<Recogniser> createRecogniser();

/// The files, or the folders of the system, from which the recogniser loads a language when a
/// picture asks for it. Call after the former.
std::vector<std::string> languagePaths();

}  // namespace nookwise
