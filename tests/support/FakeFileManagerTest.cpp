#include "tests/support/FakeFileManager.h"

#include <algorithm>
#include <array>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class FakeFiles : public testing::Test {
  protected:
    std::vector<std::string> enumerated(std::string_view root, const EnumerationRules& rules = {},
                                        const std::stop_token& stop = {}) {
        std::vector<std::string> paths;
        const auto found = [&](FoundFile&& file) { paths.emplace_back(file.url.path()); };
        succeeded = static_cast<bool>(files.enumerate(FileUrl(root), rules, found, stop));
        return paths;
    }

    std::string contentsOf(std::string_view path) {
        const auto reader = files.open(FileUrl(path));
        std::string contents;
        std::array<std::byte, 7> buffer{};
        for (;;) {
            const auto read = reader.value()->read(buffer);
            if (read.value() == 0) return contents;
            contents.append(reinterpret_cast<const char*>(buffer.data()), read.value());
        }
    }

    FakeFileManager files;
    bool succeeded = false;
};

using Paths = std::vector<std::string>;

TEST_F(FakeFiles, enumerateFolderByFolderInTheOrderOfBytes) {
    for (const auto* path :
         {"/r/b/z", "/r/a", "/r/b/a/x", "/r/b.txt", "/r/\xff", "/r/B", "/r/.hidden", "/r/.f/x"}) {
        files.addFile(path);
    }
    files.addLink("/r/link", "/r/b");
    files.addOther("/r/pipe");
    files.addPackage("/r/p.app");
    files.addFile("/r/p.app/inside");
    EXPECT_EQ(enumerated("/r"),
              (Paths{"/r/B", "/r/a", "/r/b/a/x", "/r/b/z", "/r/b.txt", "/r/p.app", "/r/\xff"}));
    EXPECT_TRUE(succeeded);
}

TEST_F(FakeFiles, askTheRulesAboutFoldersBelowTheRootOnly) {
    files.addFile("/r/a/1");
    files.addFile("/r/b/.mark");
    files.addFile("/r/b/2");
    files.addFile("/r/c/3");
    files.addFile("/r/.mark");
    Paths asked;
    const EnumerationRules rules{.skipsFolder =
                                     [&](const FileUrl& folder) {
                                         asked.emplace_back(folder.path());
                                         return folder == FileUrl("/r/a");
                                     },
                                 .skipsFolderHolding =
                                     [](std::span<const std::string_view> names) {
                                         return std::find(names.begin(), names.end(), ".mark") !=
                                                names.end();
                                     }};
    EXPECT_EQ(enumerated("/r", rules), (Paths{"/r/c/3"}));
    EXPECT_EQ(asked, (Paths{"/r/a", "/r/b", "/r/c"}));
}

TEST_F(FakeFiles, followARootThatIsALinkAndFailForOneThatIsNoFolder) {
    files.addFile("/data/a");
    files.addLink("/link", "/data");
    EXPECT_EQ(enumerated("/link"), (Paths{"/link/a"}));
    EXPECT_TRUE(enumerated("/data/a").empty());
    EXPECT_FALSE(succeeded);
    enumerated("/nowhere");
    EXPECT_FALSE(succeeded);
    files.makeUnreadable("/data");
    EXPECT_TRUE(enumerated("/data").empty());
    EXPECT_FALSE(succeeded);
}

TEST_F(FakeFiles, stopAtOnce) {
    for (const auto* path : {"/r/a", "/r/b/c", "/r/d"}) files.addFile(path);
    std::stop_source stop;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.url == FileUrl("/r/b/c")) stop.request_stop();
    });
    EXPECT_EQ(enumerated("/r", {}, stop.get_token()), (Paths{"/r/a"}));
    EXPECT_TRUE(succeeded);
}

TEST_F(FakeFiles, listWhatIsDirectlyInAFolder) {
    files.addFile("/r/b", {.contents = "abc"});
    files.addFile("/r/a/x");
    files.addFile("/r/.hidden");
    files.addOther("/r/c");
    const auto listed = files.list(FileUrl("/r"), {});
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed.value().size(), 3u);
    EXPECT_EQ(listed.value()[0].attributes.type, FileType::folder);
    EXPECT_EQ(listed.value()[1].url, FileUrl("/r/b"));
    EXPECT_EQ(listed.value()[1].attributes.fileSize, 3);
    EXPECT_EQ(listed.value()[2].attributes.type, FileType::other);
    EXPECT_EQ(files.list(FileUrl("/nowhere"), {}).error().code,
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(files.list(FileUrl("/r/b"), {}).error().code, std::errc::not_a_directory);
}

TEST_F(FakeFiles, listPackagesWithoutTheirSizes) {
    files.addPackage("/r/a.app", {.size = 5, .allocated = 8, .added = Date{Seconds{1}}});
    const auto listed = files.list(FileUrl("/r"), {});
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed.value().size(), 1u);
    EXPECT_EQ(listed.value()[0].attributes,
              (FileAttributes{.type = FileType::package, .added = Date{Seconds{1}}}));
    EXPECT_EQ(files.attributes(FileUrl("/r/a.app")).value().allocatedSize, 8);
}

TEST_F(FakeFiles, failToListAfterAStopRequest) {
    files.addFile("/r/a");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(files.list(FileUrl("/r"), stop.get_token()).error().code,
              std::errc::operation_canceled);
}

TEST_F(FakeFiles, resolveEveryLinkOnAPath) {
    files.addFile("/data/deep/a");
    files.addLink("/one", "/data");
    files.addLink("/data/two", "deep");
    files.addLink("/loop", "/loop");
    EXPECT_EQ(files.resolved(FileUrl("/one/two/a")).value(), FileUrl("/data/deep/a"));
    EXPECT_EQ(files.resolved(FileUrl("/")).value(), FileUrl("/"));
    EXPECT_FALSE(files.resolved(FileUrl("/loop")));
    EXPECT_FALSE(files.resolved(FileUrl("/one/three")));
    EXPECT_EQ(files.attributes(FileUrl("/one")).value().type, FileType::other);
    EXPECT_EQ(files.attributes(FileUrl("/one/deep")).value().type, FileType::folder);
}

TEST_F(FakeFiles, readContentsAndTheZerosBehindThem) {
    files.addFile("/a", {.contents = "0123456789abcdef"});
    EXPECT_EQ(contentsOf("/a"), "0123456789abcdef");
    files.addFile("/b", {.contents = "abc", .size = 20});
    EXPECT_EQ(contentsOf("/b"), "abc" + std::string(17, '\0'));
    EXPECT_EQ(files.attributes(FileUrl("/b")).value().allocatedSize, 20);
    files.addFile("/c");
    EXPECT_EQ(contentsOf("/c"), "");
}

TEST_F(FakeFiles, openOnlyRegularReadableFiles) {
    files.addFolder("/folder");
    files.addPackage("/package");
    files.addOther("/pipe");
    files.addFile("/file");
    files.addLink("/link", "/file");
    EXPECT_TRUE(files.open(FileUrl("/file")));
    for (const auto* path : {"/folder", "/package", "/pipe", "/link", "/nowhere"}) {
        EXPECT_FALSE(files.open(FileUrl(path))) << path;
    }
    files.makeUnreadable("/file");
    EXPECT_EQ(files.open(FileUrl("/file")).error().code, std::errc::permission_denied);
}

TEST_F(FakeFiles, countHardLinksButNotBindMounts) {
    files.addFile("/a", {.contents = "x"});
    files.addHardLink("/b", "/a");
    files.addBindMount("/c", "/a");
    files.addFile("/d", {.contents = "x"});
    const auto state = [&](const char* path) {
        return files.open(FileUrl(path)).value()->state().value();
    };
    EXPECT_EQ(state("/a").linkCount, 2u);
    EXPECT_EQ(state("/b"), state("/a"));
    EXPECT_EQ(state("/c"), state("/a"));
    EXPECT_NE(state("/d").identity, state("/a").identity);
}

TEST_F(FakeFiles, showChangesToReadersThatAreOpenAlready) {
    files.addFile("/a", {.contents = "0123456789"});
    const auto opened = files.open(FileUrl("/a"));
    const auto before = opened.value()->state().value();
    files.setContents("/a", "0123");
    EXPECT_NE(opened.value()->state().value(), before);
    std::array<std::byte, 8> buffer{};
    EXPECT_EQ(opened.value()->read(buffer).value(), 4u);
    files.remove("/a");
    EXPECT_EQ(opened.value()->state().value().size, 4);
}

TEST_F(FakeFiles, announceEveryOperationBeforeItTakesEffect) {
    files.addFile("/r/a", {.contents = "abc"});
    std::vector<std::pair<int, FakeOperation::Kind>> seen;
    files.onOperation([&](const FakeOperation& operation) {
        seen.emplace_back(operation.number, operation.kind);
        if (operation.kind == FakeOperation::Kind::entry) files.remove("/r/a");
    });
    EXPECT_TRUE(enumerated("/r").empty());
    EXPECT_FALSE(files.open(FileUrl("/r/a")));
    using enum FakeOperation::Kind;
    EXPECT_EQ(seen, (std::vector<std::pair<int, FakeOperation::Kind>>{
                        {1, enumerate}, {2, entry}, {3, open}}));
    EXPECT_EQ(files.operations(), 3);
}

TEST_F(FakeFiles, giveTheVolumeFiguresTheyWereTold) {
    files.setVolumeFigures(VolumeFigures{.availableBytes = 1, .totalBytes = 2});
    EXPECT_EQ(files.volumeFigures(FileUrl("/")).value().availableBytes, 1);
    files.setVolumeFigures(std::nullopt);
    EXPECT_FALSE(files.volumeFigures(FileUrl("/")));
}

}  // namespace
}  // namespace nookwise
