#include "platform/SharedBytes.h"

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(SharedBytes, keepsAnyBytes) {
    const std::string bytes("a\0\xff\n", 4);
    EXPECT_EQ(SharedBytes(bytes).view(), bytes);
}

TEST(SharedBytes, withoutBytesIsEqualToADefaultOne) {
    EXPECT_EQ(SharedBytes(""), SharedBytes());
    EXPECT_EQ(SharedBytes({"", ""}), SharedBytes());
    EXPECT_EQ(SharedBytes().view(), "");
}

TEST(SharedBytes, joinsParts) {
    EXPECT_EQ(SharedBytes({"ab", "cd"}).view(), "abcd");
    EXPECT_EQ(SharedBytes({"ab", ""}).view(), "ab");
    EXPECT_EQ(SharedBytes({"", "cd"}).view(), "cd");
    EXPECT_EQ(SharedBytes({"ab", "cd", "", "e"}).view(), "abcde");
}

TEST(SharedBytes, isOnePointerWide) {
    EXPECT_EQ(sizeof(SharedBytes), sizeof(void*));
}

TEST(SharedBytes, copiesShareOneAllocation) {
    const SharedBytes original("bytes");
    SharedBytes copy;
    copy = original;
    EXPECT_EQ(copy.view().data(), original.view().data());
}

TEST(SharedBytes, copiesOutliveTheOriginal) {
    SharedBytes copy;
    {
        const SharedBytes original("bytes that are long enough to live on the heap");
        copy = original;
    }
    EXPECT_EQ(copy.view(), "bytes that are long enough to live on the heap");
}

TEST(SharedBytes, movingLeavesNothingBehind) {
    SharedBytes original("bytes");
    const SharedBytes moved(std::move(original));
    EXPECT_EQ(moved.view(), "bytes");
    EXPECT_EQ(original.view(), "");  // NOLINT(bugprone-use-after-move): that is what is tested
}

TEST(SharedBytes, assigningItToItselfKeepsIt) {
    SharedBytes bytes("bytes");
    const auto& same = bytes;
    bytes = same;
    EXPECT_EQ(bytes.view(), "bytes");
}

TEST(SharedBytes, comparesAsUnsignedBytes) {
    EXPECT_LT(SharedBytes("a"), SharedBytes("b"));
    EXPECT_LT(SharedBytes("a"), SharedBytes("aa"));
    EXPECT_LT(SharedBytes("z"), SharedBytes("\x80"));
    EXPECT_EQ(SharedBytes("same"), SharedBytes("same"));
}

TEST(SharedBytes, equalBytesHashAlike) {
    EXPECT_EQ(std::hash<SharedBytes>{}(SharedBytes("same")),
              std::hash<SharedBytes>{}(SharedBytes({"sa", "me"})));
}

TEST(SharedBytes, isCopiedAndDestroyedBySeveralThreadsAtOnce) {
    const std::string text(100, 'x');
    const SharedBytes shared(text);
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([copy = shared, &text] {
            for (int round = 0; round < 10'000; ++round) {
                const auto another = copy;
                ASSERT_EQ(another.view().size(), text.size());
            }
        });
    }
    threads.clear();
    EXPECT_EQ(shared.view(), text);
}

}  // namespace
}  // namespace nookwise
