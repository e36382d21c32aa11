#include "ui/split/FileListMime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FileList, namesEachFileOnALineOfItsOwn) {
    EXPECT_EQ(fileList({FileUrl("/home/user/a b.txt"), FileUrl("/tmp/50%.zip")}),
              "file:///home/user/a%20b.txt\r\nfile:///tmp/50%25.zip\r\n");
}

TEST(FileList, readsBackWhatItWrites) {
    const std::vector<FileUrl> files{FileUrl("/tmp/bad\xff\xfe.zip"), FileUrl("/tmp/two\nlines"),
                                     FileUrl("/tmp/#1 %41.txt"), FileUrl("/tmp/Gl\xc3\xbchwein"),
                                     FileUrl("/tmp/ends with a space ")};
    EXPECT_EQ(filesIn(fileList(files)), files);
}

TEST(FileList, passesByWhatIsNoLocalFile) {
    const QByteArray list =
        "# from elsewhere\r\n"
        "https://example.org/a.zip\r\n"
        "file://server/share/a.zip\r\n"
        "file:relative\r\n"
        "file:///tmp/half%4\r\n"
        "\r\n"
        "file:///tmp/../home/climbs.zip\r\n"
        "file:///tmp/%2e%2e\r\n"
        "file:///tmp/..here.zip\r\n"
        "/tmp/no-address.zip\r\n";
    EXPECT_THAT(filesIn(list), ElementsAre(FileUrl("/tmp/..here.zip")));
}

TEST(FileList, takesLinesAsOtherProgramsEndThem) {
    const auto read = [](const char* text, qsizetype size) {
        return filesIn(QByteArray(text, size));
    };
    EXPECT_THAT(read("file:///a\nfile:///b", 19), ElementsAre(FileUrl("/a"), FileUrl("/b")));
    EXPECT_THAT(read("file:///a\r\n\0", 12), ElementsAre(FileUrl("/a")));
    EXPECT_THAT(read("file://localhost/a%2fb\r\n", 24), ElementsAre(FileUrl("/a/b")));
    EXPECT_THAT(read("", 0), IsEmpty());
}

TEST(FileList, namesAFileOnce) {
    EXPECT_THAT(filesIn(QByteArray("file:///a/b\r\nfile:///a/./b\r\nfile:///a//b/\r\n")),
                ElementsAre(FileUrl("/a/b")));
}

TEST(FilesOnTheirWay, areReadByteByByte) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"),
                 "file:///tmp/bad%FF.zip\r\nfile:///tmp/%2525\r\n");
    EXPECT_THAT(filesIn(data), ElementsAre(FileUrl("/tmp/bad\xff.zip"), FileUrl("/tmp/%25")));
}

TEST(FilesOnTheirWay, areHandedOnByteByByte) {
    const FileListMime data({FileUrl("/tmp/bad\xff.zip")});
    EXPECT_EQ(data.formats(), QStringList{QStringLiteral("text/uri-list")});
    EXPECT_EQ(data.data(QStringLiteral("text/uri-list")), "file:///tmp/bad%FF.zip\r\n");
    EXPECT_FALSE(data.hasFormat(QStringLiteral("text/plain")));
    EXPECT_THAT(filesIn(data), ElementsAre(FileUrl("/tmp/bad\xff.zip")));
}

TEST(FilesOnTheirWay, areNoneWhereSomethingElseIs) {
    QMimeData data;
    data.setText(QStringLiteral("file:///tmp/a.zip"));
    EXPECT_THAT(filesIn(data), IsEmpty());
}

}  // namespace
}  // namespace nookwise
