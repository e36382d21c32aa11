#include "tests/scan/DuplicateFixture.h"

#include <atomic>
#include <system_error>

namespace nookwise {
namespace {

/// Lets only a few files be open at once, as a process near its limit.
class FewOpenFiles : public FakeFileManager {
  public:
    explicit FewOpenFiles(int mostOpen) : mostOpen_(mostOpen) {}

    Result<std::unique_ptr<FileReader>> open(const FileUrl& url) const override {
        auto opened = FakeFileManager::open(url);
        if (!opened) return opened;
        auto counted = std::make_unique<CountedReader>(std::move(opened.value()), open_);
        if (open_ > mostOpen_) {
            return FileError{std::make_error_code(std::errc::too_many_files_open), url, "open"};
        }
        return std::unique_ptr<FileReader>(std::move(counted));
    }

  private:
    class CountedReader : public FileReader {
      public:
        CountedReader(std::unique_ptr<FileReader> inner, std::atomic<int>& open)
            : inner_(std::move(inner)), open_(open) {
            ++open_;
        }
        ~CountedReader() override { --open_; }
        CountedReader(const CountedReader&) = delete;
        CountedReader& operator=(const CountedReader&) = delete;

        Result<State> state() const override { return inner_->state(); }
        Result<std::size_t> read(std::span<std::byte> buffer) override {
            return inner_->read(buffer);
        }

      private:
        std::unique_ptr<FileReader> inner_;
        std::atomic<int>& open_;
    };

    const int mostOpen_;
    mutable std::atomic<int> open_{0};
};

class FewOpenFilesAtOnce : public testing::TestWithParam<int> {};

TEST_P(FewOpenFilesAtOnce, doNotHideCopies) {
    FewOpenFiles files(GetParam());
    std::vector<FileItem> candidates;
    for (int i = 10; i < 50; ++i) {
        const FileUrl url("/" + std::to_string(i) + ".pdf");
        auto contents = contentsOf('x', 600'000);
        if (i % 10 == 3) contents.back() = 'y';
        files.addFile(url.path(), {.contents = std::move(contents)});
        candidates.push_back({.url = url, .size = 600'000});
    }
    const auto found = findDuplicates(files, candidates, {});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].files.size(), 36u);
    EXPECT_EQ(found[1].files.size(), 4u);
}

INSTANTIATE_TEST_SUITE_P(Limits, FewOpenFilesAtOnce, testing::Values(2, 3, 16, 39, 40, 41));

}  // namespace
}  // namespace nookwise
