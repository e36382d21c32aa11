#include "app/HoldingFolders.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class Holding : public testing::Test {
  protected:
    void add(std::string_view path) {
        urls_.push_back(std::make_unique<FileUrl>(path));
        folders_.add(*urls_.back());
    }
    /// The path of the folder that holds `path`, or "".
    std::string of(std::string_view path) {
        const auto* folder = folders_.holding(path);
        return folder == nullptr ? "" : std::string(folder->path());
    }

    bool isFound(std::string_view path) const { return folders_.find(path) != nullptr; }

  private:
    std::vector<std::unique_ptr<FileUrl>> urls_;
    HoldingFolders folders_;
};

TEST_F(Holding, noFolderHoldsNothing) {
    EXPECT_EQ(of("/a/b"), "");
}

TEST_F(Holding, isFoundAtAnyDepth) {
    add("/home/a");
    EXPECT_EQ(of("/home/a/x"), "/home/a");
    EXPECT_EQ(of("/home/a/x/y/z"), "/home/a");
    EXPECT_EQ(of("/home/b/x"), "");
}

TEST_F(Holding, isNotSaidOfTheFolderItselfNorOfWhatIsAboveIt) {
    add("/home/a");
    EXPECT_EQ(of("/home/a"), "");
    EXPECT_EQ(of("/home"), "");
    EXPECT_EQ(of("/home/x"), "");
}

TEST_F(Holding, findsAFolderByItsPath) {
    add("/home/a");
    EXPECT_TRUE(isFound("/home/a"));
    EXPECT_FALSE(isFound("/home/b"));
    EXPECT_FALSE(isFound("/home/a/x"));
    EXPECT_FALSE(isFound("/"));
}

TEST_F(Holding, takesWholeNamesOnly) {
    add("/a/b");
    EXPECT_EQ(of("/a/bc"), "");
    EXPECT_EQ(of("/a/bc/d"), "");
    EXPECT_EQ(of("/a/b/c"), "/a/b");
}

TEST_F(Holding, isTheInnermost) {
    add("/a");
    add("/a/b/c");
    EXPECT_EQ(of("/a/b/c/x"), "/a/b/c");
    EXPECT_EQ(of("/a/b/x"), "/a");
    EXPECT_EQ(of("/a/b/c"), "/a");
}

TEST_F(Holding, tellsFoldersOfOneBeginningApart) {
    add("/home/Downloads");
    add("/home/Documents");
    EXPECT_EQ(of("/home/Do/x"), "");
    EXPECT_EQ(of("/home/Documents/x"), "/home/Documents");
    EXPECT_EQ(of("/home/Downloads/y"), "/home/Downloads");
    EXPECT_EQ(of("/home/Desktop/y"), "");
}

TEST_F(Holding, takesNamesOfAnyBytes) {
    add("/a/\xff\xfe");
    EXPECT_EQ(of("/a/\xff\xfe/x"), "/a/\xff\xfe");
    EXPECT_EQ(of("/a/\xff/x"), "");
}

}  // namespace
}  // namespace nookwise
