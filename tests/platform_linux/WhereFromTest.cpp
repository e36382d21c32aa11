#include "platform/linux/LinuxMetadata.h"
#include "tests/support/TemporaryFolder.h"

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <sys/xattr.h>

namespace nookwise {
namespace {

using namespace std::string_literals;
using Addresses = std::vector<std::string>;

constexpr const char* originName = "user.xdg.origin.url";
constexpr const char* referrerName = "user.xdg.referrer.url";

class WhereFrom : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!set(originName, "x")) GTEST_SKIP() << "the file system keeps no extended attributes";
        ::removexattr(path().c_str(), originName);
    }

    std::string path() const { return std::string(file_.path()); }
    bool set(const char* name, const std::string& value) {
        return ::setxattr(path().c_str(), name, value.data(), value.size(), 0) == 0;
    }

    TemporaryFolder home_;
    FileUrl file_ = home_.write("caf\xe9\n.zip", "bytes");
    LinuxMetadata metadata_{baseFolders([this](const char* name) {
        return std::string_view(name) == "HOME" ? std::string(home_.url().path()) : std::string();
    })};
};

TEST_F(WhereFrom, isNothingForMostFiles) {
    EXPECT_EQ(metadata_.whereFrom(file_), Addresses());
    EXPECT_EQ(metadata_.whereFrom(home_.url("missing")), Addresses());
    EXPECT_EQ(metadata_.whereFrom(home_.makePipe("pipe")), Addresses());
    EXPECT_EQ(metadata_.whereFrom(FileUrl("/" + std::string(10'000, 'a'))), Addresses());
    EXPECT_EQ(metadata_.whereFrom(FileUrl()), Addresses());
}

TEST_F(WhereFrom, isTheAddressAndThenThePageThatLedThere) {
    ASSERT_TRUE(set(referrerName, "https://mail.example.org/inbox"));
    EXPECT_EQ(metadata_.whereFrom(file_), Addresses{"https://mail.example.org/inbox"});
    ASSERT_TRUE(set(originName, "https://cdn.example.net/a.zip"));
    EXPECT_EQ(metadata_.whereFrom(file_),
              (Addresses{"https://cdn.example.net/a.zip", "https://mail.example.org/inbox"}));
}

TEST_F(WhereFrom, leavesOutWhatIsNoText) {
    for (const auto& value :
         {""s, "https://\xff\xfe.example"s, "https://a\0b"s, "https://a\xc3"s}) {
        ASSERT_TRUE(set(originName, value));
        ASSERT_TRUE(set(referrerName, "https://b\xc3\xa9.example"));
        EXPECT_EQ(metadata_.whereFrom(file_), Addresses{"https://b\xc3\xa9.example"});
    }
}

TEST_F(WhereFrom, keepsALongAddressWhole) {
    const std::string address = "https://example.org/" + std::string(3'000, 'a');
    ASSERT_TRUE(set(originName, address));
    EXPECT_EQ(metadata_.whereFrom(file_), Addresses{address});
}

TEST_F(WhereFrom, isNothingForALinkToADownload) {
    ASSERT_TRUE(set(originName, "https://example.org/a.zip"));
    std::filesystem::create_symlink(path(), home_.path("link"));
    EXPECT_EQ(metadata_.whereFrom(home_.url("link")), Addresses());
}

TEST_F(WhereFrom, endsWithTheDesktopsOwnNote) {
    ASSERT_TRUE(set(originName, "https://example.org/a.zip"));
    GFile* file = g_file_new_for_path(path().c_str());
    const bool isNoted =
        g_file_set_attribute_string(file, "metadata::download-uri", "https://example.org/b.zip",
                                    G_FILE_QUERY_INFO_NONE, nullptr, nullptr);
    g_object_unref(file);
    if (!isNoted) GTEST_SKIP() << "GVfs is not running";
    EXPECT_EQ(metadata_.whereFrom(file_),
              (Addresses{"https://example.org/a.zip", "https://example.org/b.zip"}));
}

}  // namespace
}  // namespace nookwise
