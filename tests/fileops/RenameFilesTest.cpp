#include "fileops/RenameFiles.h"
#include "platform/Text.h"
#include "tests/support/FakeFileManager.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Move = ActivityEntry::Move;
using Moves = std::vector<Move>;

RenameRow row(std::string_view path, std::string newName, std::int64_t size = 1) {
    return {
        .file = {.url = FileUrl(path), .size = size}, .newName = std::move(newName), .note = {}};
}

Move moved(std::string_view from, std::string_view to, std::int64_t size = 1) {
    return {.original = FileUrl(from), .inTrash = FileUrl(to), .size = size};
}

class RenamingFiles : public testing::Test {
  protected:
    Renamed rename(const std::vector<RenameRow>& rows) {
        return renameFiles(files, rows, [this](std::size_t done) { told.push_back(done); });
    }
    void add(std::string_view path) { files.addFile(path, {.contents = std::string(path)}); }

    FakeFileManager files;
    std::vector<std::size_t> told;
};

TEST_F(RenamingFiles, tellsWhereTheyAreNow) {
    add("/one/a.pdf");
    add("/two/b.pdf");
    const auto renamed = rename({row("/one/a.pdf", "A.pdf", 7), row("/two/b.pdf", "B.pdf", 9)});
    EXPECT_EQ(renamed.moves,
              (Moves{moved("/one/a.pdf", "/one/A.pdf", 7), moved("/two/b.pdf", "/two/B.pdf", 9)}));
    EXPECT_EQ(renamed.failed, 0u);
    EXPECT_EQ(files.contents("/one/A.pdf"), "/one/a.pdf");
    EXPECT_FALSE(files.exists(FileUrl("/one/a.pdf")));
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1}));
}

TEST_F(RenamingFiles, passesByWhatHasItsName) {
    add("/a.pdf");
    const auto renamed = rename({row("/a.pdf", "a.pdf"), row("/gone.pdf", "gone.pdf")});
    EXPECT_TRUE(renamed.moves.empty());
    EXPECT_EQ(renamed.failed, 0u);
    EXPECT_TRUE(files.exists(FileUrl("/a.pdf")));
}

TEST_F(RenamingFiles, numbersATakenName) {
    add("/a.pdf");
    add("/Invoice.pdf");
    add("/Invoice (2).pdf");
    EXPECT_EQ(rename({row("/a.pdf", "Invoice.pdf")}).moves,
              Moves{moved("/a.pdf", "/Invoice (3).pdf")});
    EXPECT_EQ(files.contents("/Invoice.pdf"), "/Invoice.pdf");
    EXPECT_EQ(files.contents("/Invoice (2).pdf"), "/Invoice (2).pdf");
}

TEST_F(RenamingFiles, goesOnAfterAFailure) {
    add("/locked/a.pdf");
    add("/b.pdf");
    files.forbidChanges("/locked");
    const auto renamed = rename(
        {row("/locked/a.pdf", "A.pdf"), row("/gone.pdf", "Gone.pdf"), row("/b.pdf", "B.pdf")});
    EXPECT_EQ(renamed.moves, Moves{moved("/b.pdf", "/B.pdf")});
    EXPECT_EQ(renamed.failed, 2u);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1, 2}));
}

TEST_F(RenamingFiles, followsANameThatIsTakenAtTheLastMoment) {
    add("/a.pdf");
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::move && !files.exists(FileUrl("/Invoice.pdf")))
            files.addFile("/Invoice.pdf", {.contents = "other"});
    });
    EXPECT_EQ(rename({row("/a.pdf", "Invoice.pdf")}).moves,
              Moves{moved("/a.pdf", "/Invoice (2).pdf")});
    EXPECT_EQ(files.contents("/Invoice.pdf"), "other");
}

TEST_F(RenamingFiles, changesNamesOneAfterTheOther) {
    add("/a.pdf");
    add("/b.pdf");
    const auto renamed = rename({row("/a.pdf", "b.pdf"), row("/b.pdf", "a.pdf")});
    EXPECT_EQ(renamed.moves, (Moves{moved("/a.pdf", "/b (2).pdf"), moved("/b.pdf", "/a.pdf")}));
    EXPECT_EQ(files.contents("/b (2).pdf"), "/a.pdf");
    EXPECT_EQ(files.contents("/a.pdf"), "/b.pdf");
}

TEST_F(RenamingFiles, takesNoFileForAnotherThatWentMeanwhile) {
    add("/a.pdf");
    const auto renamed = rename({row("/a.pdf", "gone.pdf"), row("/gone.pdf", "c.pdf")});
    EXPECT_EQ(renamed.moves, Moves{moved("/a.pdf", "/gone.pdf")});
    EXPECT_EQ(renamed.failed, 1u);
    EXPECT_EQ(files.contents("/gone.pdf"), "/a.pdf");
}

TEST_F(RenamingFiles, givesNoPlaceTwice) {
    add("/a.pdf");
    add("/b.pdf");
    // Somebody else takes the first file away as soon as it has its name.
    const auto takeAway = [&](std::size_t done) {
        if (done == 1) files.remove("/Invoice.pdf");
    };
    const std::vector rows{row("/a.pdf", "Invoice.pdf"), row("/b.pdf", "Invoice.pdf")};
    const auto renamed = renameFiles(files, rows, takeAway);
    EXPECT_EQ(renamed.moves, Moves{moved("/a.pdf", "/Invoice.pdf")});
    EXPECT_EQ(renamed.failed, 1u);
    EXPECT_EQ(files.contents("/b.pdf"), "/b.pdf");
}

TEST_F(RenamingFiles, renamesAFileOnceThatIsGivenTwice) {
    add("/a.pdf");
    const auto renamed = rename({row("/a.pdf", "A.pdf"), row("/a.pdf", "B.pdf")});
    EXPECT_EQ(renamed.moves, Moves{moved("/a.pdf", "/A.pdf")});
    EXPECT_EQ(renamed.failed, 1u);
}

TEST_F(RenamingFiles, takesPackagesWithWhatIsInside) {
    files.addPackage("/report.pages");
    files.addFile("/report.pages/index.xml", {.contents = "inside"});
    EXPECT_EQ(rename({row("/report.pages", "Fernhill.pages")}).moves,
              Moves{moved("/report.pages", "/Fernhill.pages")});
    EXPECT_EQ(files.contents("/Fernhill.pages/index.xml"), "inside");
}

TEST_F(RenamingFiles, takesNamesThatAreNotText) {
    add("/\xff.p\xfe");
    EXPECT_EQ(rename({row("/\xff.p\xfe", "Invoice.p\xfe")}).moves,
              Moves{moved("/\xff.p\xfe", "/Invoice.p\xfe")});
}

TEST_F(RenamingFiles, changesTheCaseAlone) {
    add("/invoice.pdf");
    EXPECT_EQ(rename({row("/invoice.pdf", "Invoice.pdf")}).moves,
              Moves{moved("/invoice.pdf", "/Invoice.pdf")});
}

/// Names that differ in case alone are the same.
class CaselessFiles : public FakeFileManager {
  public:
    bool exists(const FileUrl& url) const override {
        return FakeFileManager::exists(url) || !actual(url).empty();
    }
    using FileManager::move;
    Result<std::monostate> move(const FileUrl& from, const FileUrl& to,
                                const CopyWatch& watch) override {
        if (exists(to)) return FileError{std::make_error_code(std::errc::file_exists), to, "move"};
        return FakeFileManager::move(from, to, watch);
    }

  private:
    FileUrl actual(const FileUrl& url) const {
        const auto entries = list(url.parent(), {});
        for (const auto& entry : entries.value()) {
            if (lowercased(entry.url.path()) == lowercased(url.path())) return entry.url;
        }
        return {};
    }
};

class RenamingWhereCaseDoesNotCount : public testing::Test {
  protected:
    Moves rename(std::string_view path, std::string newName) {
        return renameFiles(files, std::vector{row(path, std::move(newName))}, [](std::size_t) {})
            .moves;
    }

    CaselessFiles files;
};

TEST_F(RenamingWhereCaseDoesNotCount, changesTheCaseAlone) {
    files.addFile("/folder/invoice.pdf", {.contents = "mine"});
    EXPECT_EQ(rename("/folder/invoice.pdf", "Invoice.pdf"),
              Moves{moved("/folder/invoice.pdf", "/folder/Invoice.pdf")});
    EXPECT_EQ(files.contents("/folder/Invoice.pdf"), "mine");
    EXPECT_EQ(files.list(FileUrl("/folder"), {}).value().size(), 1u);
}

TEST_F(RenamingWhereCaseDoesNotCount, leavesAnotherFileAlone) {
    files.addFile("/folder/a.pdf", {.contents = "mine"});
    files.addFile("/folder/INVOICE.pdf", {.contents = "other"});
    EXPECT_EQ(rename("/folder/a.pdf", "Invoice.pdf"),
              Moves{moved("/folder/a.pdf", "/folder/Invoice (2).pdf")});
    EXPECT_EQ(files.contents("/folder/INVOICE.pdf"), "other");
}

TEST_F(RenamingWhereCaseDoesNotCount, tellsWhereTheFileIsWhenTheLastStepFails) {
    files.addFile("/folder/invoice.pdf", {.contents = "mine"});
    files.onOperation([&](const FakeOperation& operation) {
        const bool isSecondStep = operation.kind == FakeOperation::Kind::move &&
                                  operation.url == FileUrl("/folder/Invoice (2).pdf");
        if (isSecondStep) files.forbidChanges("/folder");
    });
    EXPECT_EQ(rename("/folder/invoice.pdf", "Invoice.pdf"),
              Moves{moved("/folder/invoice.pdf", "/folder/Invoice (2).pdf")});
    EXPECT_EQ(files.contents("/folder/Invoice (2).pdf"), "mine");
}

}  // namespace
}  // namespace nookwise
