// A home of files with texts in three languages, and what people ask about it. The same at every
// run.
#pragma once

#include "model/FileItem.h"
#include "model/TextsByUrl.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace nookwise::bench {

/// Words as often as they are in writing: the second half as often as the first, and so on.
class SampleLanguage {
  public:
    SampleLanguage();

    /// Some 1,120 bytes on average; one in ten says nothing.
    std::string text();
    std::string fileName(std::size_t number);
    /// A word that few texts hold, or none.
    std::string rareWord();
    std::string frequentWord();

    std::mt19937& random() { return random_; }

  private:
    enum class Alphabet { latin, umlauts, cyrillic };

    const std::string& word(Alphabet alphabet);
    std::vector<std::string> vocabulary(Alphabet alphabet);

    std::mt19937 random_{7};
    std::vector<std::vector<std::string>> vocabularies_;
    /// Numbers of words, drawn beforehand.
    std::vector<std::uint32_t> draws_;
};

struct SampleHome {
    /// With `count` files.
    SampleHome(SampleLanguage& language, std::size_t count, const FileUrl& home);

    std::vector<FileItem> files;
    TextsByUrl texts;
    TextsByUrl lowerTexts;
    TextsByUrl sources;
    double textBytes = 0;
};

constexpr Date sampleNow{Seconds{1'790'000'000}};

/// 200 of them: words frequent, rare and short, several at once, and all kinds of filters.
std::vector<std::string> sampleQuestions(SampleLanguage& language);

}  // namespace nookwise::bench
