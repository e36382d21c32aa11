// Files whose text is known, and how much of it was read.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise::bench {

struct SampleText {
    std::string path;
    std::string text;
};

/// The pictures in a folder that have a NAME.txt beside them, in order of their names.
std::vector<SampleText> samplePictures(const std::filesystem::path& folder);

/// The PDF files in a folder, without their texts.
std::vector<SampleText> sampleDocuments(const std::filesystem::path& folder);

/// Draws pages of an interface, light and dark.
std::vector<SampleText> drawPictures(const std::filesystem::path& folder);

/// Writes PDF files of 1 to 20 pages.
std::vector<SampleText> writeDocuments(const std::filesystem::path& folder);

/// Words are runs of two or more Latin letters and digits in lower case. A word counts as often as
/// it stands in both texts.
class WordScore {
  public:
    void add(std::string_view expected, std::string_view read);

    /// In percent: of the expected words, those that were read.
    double recall() const { return share(expected_); }
    /// In percent: of the words that were read, those that were expected.
    double precision() const { return share(read_); }

  private:
    double share(std::size_t all) const;

    std::size_t expected_ = 0;
    std::size_t read_ = 0;
    std::size_t both_ = 0;
};

}  // namespace nookwise::bench
