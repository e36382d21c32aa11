#include "platform/FileUrl.h"

#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

struct NameParts {
    std::string_view name;
    std::string_view stem;
    std::string_view extension;
};

class NamePartsOf : public testing::TestWithParam<NameParts> {};

TEST_P(NamePartsOf, splitsAtTheLastDot) {
    const auto& [name, stem, extension] = GetParam();
    EXPECT_EQ(stemOf(name), stem);
    EXPECT_EQ(extensionOf(name), extension);
    const auto url = FileUrl("/folder").append(name);
    EXPECT_EQ(url.lastPathComponent(), name);
    EXPECT_EQ(url.stem(), stem);
    EXPECT_EQ(url.pathExtension(), extension);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NamePartsOf,
    testing::Values(NameParts{"report.pdf", "report", "pdf"},
                    NameParts{"report.PDF", "report", "PDF"},
                    NameParts{"archive.tar.gz", "archive.tar", "gz"},
                    NameParts{"Blue Kite Setup 1.2.dmg", "Blue Kite Setup 1.2", "dmg"},
                    NameParts{"README", "README", ""}, NameParts{".profile", ".profile", ""},
                    NameParts{".profile.txt", ".profile", "txt"},
                    NameParts{"ends with a dot.", "ends with a dot.", ""},
                    NameParts{"\xff\xfe.j\xffpg", "\xff\xfe", "j\xffpg"},
                    NameParts{"new\nline.p\nng", "new\nline", "p\nng"}));

TEST(ExtensionOf, aFolderWithADotLendsItsFilesNoExtension) {
    EXPECT_EQ(FileUrl("/folder.app/README").pathExtension(), "");
}

TEST(FileUrl, isEmptyUnlessGivenAPath) {
    EXPECT_TRUE(FileUrl().empty());
    EXPECT_EQ(FileUrl().path(), "");
    EXPECT_FALSE(FileUrl("/").empty());
}

TEST(FileUrl, dropsTrailingSlashesOnly) {
    EXPECT_EQ(FileUrl("/a/b///").path(), "/a/b");
    EXPECT_EQ(FileUrl("/").path(), "/");
    EXPECT_EQ(FileUrl("///").path(), "/");
    EXPECT_EQ(FileUrl("/a//b/./c/..").path(), "/a//b/./c/..");
}

TEST(FileUrl, theRootFolderIsItsOwnNameAndParent) {
    const FileUrl root("/");
    EXPECT_EQ(root.lastPathComponent(), "/");
    EXPECT_EQ(root.parent(), root);
    EXPECT_EQ(root.append("a").path(), "/a");
    EXPECT_EQ(root.append("a").parent(), root);
}

TEST(FileUrl, appendingAndTakingTheParentAreInverse) {
    const FileUrl folder("/home/user");
    const auto child = folder.append("a.pdf");
    EXPECT_EQ(child.path(), "/home/user/a.pdf");
    EXPECT_EQ(child.parent(), folder);
    EXPECT_EQ(child.parentPath(), "/home/user");
}

TEST(FileUrl, holdsNamesOf255BytesAndPathsLongerThanPathMax) {
    const std::string name(255, 'n');
    FileUrl url("/");
    for (int depth = 0; depth < 2'000; ++depth) url = url.append(name);
    EXPECT_EQ(url.path().size(), 2'000u * 256u);
    EXPECT_EQ(url.lastPathComponent(), name);
    for (int depth = 0; depth < 2'000; ++depth) url = url.parent();
    EXPECT_EQ(url, FileUrl("/"));
}

struct Standardizing {
    std::string_view path;
    std::string_view standardized;
};

class StandardizedPath : public testing::TestWithParam<Standardizing> {};

TEST_P(StandardizedPath, hasNoDotsAndNoDoubledSlashes) {
    EXPECT_EQ(FileUrl(GetParam().path).standardized().path(), GetParam().standardized);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, StandardizedPath,
    testing::Values(Standardizing{"/a/b", "/a/b"}, Standardizing{"/a/b/", "/a/b"},
                    Standardizing{"//a///b", "/a/b"}, Standardizing{"/a/./b/.", "/a/b"},
                    Standardizing{"/a/../b", "/b"}, Standardizing{"/a/b/..", "/a"},
                    Standardizing{"/..", "/"}, Standardizing{"/../../a", "/a"},
                    Standardizing{"/", "/"}, Standardizing{"/a/...", "/a/..."},
                    Standardizing{"/.a/..b", "/.a/..b"}, Standardizing{"/\xff/../\xfe", "/\xfe"}));

TEST(FileUrl, liesWithinAFolderOnlyAtAWholeComponent) {
    const FileUrl folder("/home/user");
    EXPECT_TRUE(folder.isWithin(folder));
    EXPECT_TRUE(FileUrl("/home/user/a").isWithin(folder));
    EXPECT_TRUE(FileUrl("/home/user/a/b").isWithin(folder));
    EXPECT_FALSE(FileUrl("/home/user2").isWithin(folder));
    EXPECT_FALSE(FileUrl("/home").isWithin(folder));
    EXPECT_TRUE(folder.isWithin(FileUrl("/")));
    EXPECT_TRUE(FileUrl("/").isWithin(FileUrl("/")));
}

TEST(FileUrl, comparesByteByByteWithoutFoldingAnything) {
    EXPECT_EQ(FileUrl("/a"), FileUrl("/a/"));
    EXPECT_NE(FileUrl("/a"), FileUrl("/A"));
    EXPECT_NE(FileUrl("/\xc3\xa9"), FileUrl("/e\xcc\x81"));
    EXPECT_LT(FileUrl("/a"), FileUrl("/b"));
    EXPECT_LT(FileUrl("/z"), FileUrl("/\xff"));
}

TEST(FileUrl, equalUrlsHashAlike) {
    const std::unordered_set<FileUrl> set{FileUrl("/a"), FileUrl("/\xff")};
    EXPECT_TRUE(set.contains(FileUrl("/a/")));
    EXPECT_TRUE(set.contains(FileUrl("/").append("\xff")));
    EXPECT_FALSE(set.contains(FileUrl("/b")));
}

TEST(FileUrl, copiesShareTheirBytes) {
    const FileUrl url("/some/path");
    const auto copy = url;
    EXPECT_EQ(copy.path().data(), url.path().data());
}

TEST(UrlString, leavesOrdinaryPathsReadable) {
    EXPECT_EQ(FileUrl("/home/user/a-b_c.d~e").urlString(), "file:///home/user/a-b_c.d~e");
}

TEST(UrlString, escapesInUpperCase) {
    EXPECT_EQ(FileUrl("/50% off/a b?c#d").urlString(), "file:///50%25%20off/a%20b%3Fc%23d");
    EXPECT_EQ(FileUrl("/\xc3\xa9\xff\n").urlString(), "file:///%C3%A9%FF%0A");
}

TEST(UrlString, holdsNothingButPrintableAscii) {
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    for (const char c : FileUrl(everyByte).urlString()) {
        EXPECT_GT(c, ' ');
        EXPECT_LT(c, '\x7f');
    }
}

TEST(UrlString, everyByteThatANameCanHoldComesBack) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte == '/') continue;
        const auto url = FileUrl("/folder").append(std::string(1, static_cast<char>(byte)));
        EXPECT_EQ(FileUrl::fromUrlString(url.urlString()), url) << "byte " << byte;
    }
}

TEST(UrlString, aNameThatLooksEscapedComesBackAsItWas) {
    const FileUrl url("/50%20off");
    EXPECT_EQ(url.urlString(), "file:///50%2520off");
    EXPECT_EQ(FileUrl::fromUrlString("file:///50%2520off"), url);
}

struct Reading {
    std::string_view text;
    std::optional<std::string_view> path;
};

class ReadingUrlStrings : public testing::TestWithParam<Reading> {};

TEST_P(ReadingUrlStrings, takesEveryEscapingOfALocalPathAndNothingElse) {
    const auto url = FileUrl::fromUrlString(GetParam().text);
    ASSERT_EQ(url.has_value(), GetParam().path.has_value());
    EXPECT_EQ(url.value_or(FileUrl()).path(), GetParam().path.value_or(""));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReadingUrlStrings,
    testing::Values(Reading{"file:///a/b", "/a/b"}, Reading{"file:///a/", "/a"},
                    Reading{"file:///", "/"}, Reading{"file://localhost/a", "/a"},
                    Reading{"file:///%61%2f%2Fb", "/a//b"}, Reading{"file:///%c3%A9", "/\xc3\xa9"},
                    Reading{"file:///%FF", "/\xff"}, Reading{"", std::nullopt},
                    Reading{"/a", std::nullopt}, Reading{"file:a", std::nullopt},
                    Reading{"file://", std::nullopt}, Reading{"file://host/a", std::nullopt},
                    Reading{"file://localhostess/a", std::nullopt},
                    Reading{"http:///a", std::nullopt}, Reading{"file:///a%", std::nullopt},
                    Reading{"file:///a%4", std::nullopt}, Reading{"file:///a%4g", std::nullopt},
                    Reading{"file:///a%-1", std::nullopt}, Reading{"file:///a%00b", std::nullopt},
                    Reading{std::string_view("file:///a\0b", 11), std::nullopt}));

}  // namespace
}  // namespace nookwise
