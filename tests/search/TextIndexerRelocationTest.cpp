#include "tests/search/IndexerFixture.h"

namespace nookwise {
namespace {

class TextIndexerRelocation : public TextIndexerTest {
  protected:
    TextIndexerRelocation() {
        reader.setPdf("/d/a.pdf", "Terms");
        reader.setPdf("/d/b.pdf", "Notes");
        run({fileAt("/d/a.pdf", 100'000, 1), fileAt("/d/b.pdf", 100'000, 2)});
        told.clear();
        readBefore = reader.calls().size();
    }

    void relocate(std::initializer_list<std::pair<std::string_view, std::string_view>> places) {
        std::unordered_map<FileUrl, FileUrl> moved;
        for (const auto& [from, to] : places) moved.emplace(from, to);
        indexer->relocate(moved);
    }
    /// What is known of a file without reading it.
    std::string known(std::string_view path, double mtime) {
        const std::vector<FileItem> items{fileAt(path, 100'000, mtime)};
        const auto entries = indexer->cached(items);
        return entries.empty() ? "(none)" : std::string(entries.begin()->second.text.view());
    }

    std::size_t readBefore = 0;
};

TEST_F(TextIndexerRelocation, keepsWhatWasReadFromBeingReadAgain) {
    relocate({{"/d/a.pdf", "/e/a (2).pdf"}});
    EXPECT_EQ(known("/e/a (2).pdf", 1), "Terms");
    EXPECT_EQ(known("/d/a.pdf", 1), "(none)");
    run({fileAt("/e/a (2).pdf", 100'000, 1), fileAt("/d/b.pdf", 100'000, 2)});
    EXPECT_EQ(reader.calls().size(), readBefore);
}

TEST_F(TextIndexerRelocation, isThereAfterANewStart) {
    relocate({{"/d/a.pdf", "/e/a.pdf"}});
    restart();
    EXPECT_EQ(known("/e/a.pdf", 1), "Terms");
    EXPECT_EQ(known("/d/a.pdf", 1), "(none)");
}

TEST_F(TextIndexerRelocation, mayBeTheFirstThingThatNeedsTheIndexFile) {
    restart();
    relocate({{"/d/a.pdf", "/e/a.pdf"}});
    EXPECT_EQ(known("/e/a.pdf", 1), "Terms");
}

TEST_F(TextIndexerRelocation, letsFilesChangePlaces) {
    relocate({{"/d/a.pdf", "/d/b.pdf"}, {"/d/b.pdf", "/d/a.pdf"}});
    EXPECT_EQ(known("/d/b.pdf", 1), "Terms");
    EXPECT_EQ(known("/d/a.pdf", 2), "Notes");
}

TEST_F(TextIndexerRelocation, forgetsWhatStoodAtTheNewPlace) {
    relocate({{"/d/a.pdf", "/d/b.pdf"}});
    EXPECT_EQ(known("/d/b.pdf", 1), "Terms");
    EXPECT_EQ(known("/d/b.pdf", 2), "(none)");
}

TEST_F(TextIndexerRelocation, ofFilesThatWereNeverReadWritesNothing) {
    int saves = 0;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::replaceContents) ++saves;
    });
    relocate({{"/d/c.pdf", "/e/c.pdf"}, {"/d/a.pdf", "/d/a.pdf"}});
    EXPECT_EQ(saves, 0);
    EXPECT_EQ(known("/d/a.pdf", 1), "Terms");
}

}  // namespace
}  // namespace nookwise
