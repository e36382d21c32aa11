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

/// What is larger lies by itself.
constexpr std::size_t largestInSequence = 131'072;
/// More texts of this size than one piece of memory holds.
constexpr std::size_t severalPieces = 5'000'000;

std::vector<std::string> manyTexts(std::size_t size) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i * size < severalPieces; ++i) {
        texts.push_back(std::to_string(i));
        texts.back().resize(size, static_cast<char>('a' + i % 26));
    }
    return texts;
}

TEST(SharedBytesInSequence, keepBytesOfAnySize) {
    for (const auto size :
         {std::size_t{0}, std::size_t{1}, std::size_t{7}, std::size_t{8}, largestInSequence - 1,
          largestInSequence, largestInSequence + 1, severalPieces}) {
        std::string text(size, 'x');
        if (size > 0) text.back() = '\0';
        const auto bytes = SharedBytes::inSequence(text);
        EXPECT_EQ(bytes.view(), text) << size;
        EXPECT_EQ(bytes, SharedBytes(text)) << size;
    }
}

TEST(SharedBytesInSequence, lieOneAfterTheOther) {
    for (const auto size : {std::size_t{100}, std::size_t{1'000}, largestInSequence}) {
        const auto texts = manyTexts(size);
        std::vector<SharedBytes> all;
        for (const auto& text : texts) all.push_back(SharedBytes::inSequence(text));
        std::size_t neighbours = 0;
        for (std::size_t i = 0; i < all.size(); ++i) {
            ASSERT_EQ(all[i].view(), texts[i]);
            if (i == 0) continue;
            const auto distance = all[i].address() - all[i - 1].address();
            neighbours += distance > size && distance < size + 32;
        }
        // All but those at the beginning of a piece; a few pieces hold them.
        EXPECT_GE(neighbours + 6, all.size()) << size;
        EXPECT_LT(neighbours, all.size());
    }
}

TEST(SharedBytesInSequence, outliveThoseMadeBeforeAndAfterThem) {
    const auto texts = manyTexts(1'000);
    std::vector<SharedBytes> kept;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto made = SharedBytes::inSequence(texts[i]);
        if (i % 500 == 3) kept.push_back(made);
    }
    for (std::size_t i = 0; i < kept.size(); ++i) EXPECT_EQ(kept[i].view(), texts[i * 500 + 3]);
}

TEST(SharedBytesInSequence, areCopiedMovedAndComparedLikeOthers) {
    auto first = SharedBytes::inSequence("kite");
    const auto copy = first;
    EXPECT_EQ(copy.view().data(), first.view().data());
    const auto moved = std::move(first);
    EXPECT_EQ(moved.view(), "kite");
    EXPECT_EQ(first.view(), "");  // NOLINT(bugprone-use-after-move): that is what is tested
    const SharedBytes ordinary("kite");
    EXPECT_EQ(moved, ordinary);
    EXPECT_EQ(std::hash<SharedBytes>{}(moved), std::hash<SharedBytes>{}(ordinary));
    EXPECT_LT(moved, SharedBytes("kites"));
    EXPECT_GT(moved, SharedBytes::inSequence("kit"));
    first = ordinary;
    first = moved;
    first = SharedBytes("another");
    EXPECT_EQ(copy.view(), "kite");
}

TEST(SharedBytesInSequence, areMadeAndEndedBySeveralThreadsAtOnce) {
    std::vector<std::vector<SharedBytes>> kept(4);
    const auto textOf = [](std::size_t thread, int round) {
        return std::to_string(thread) + std::string(static_cast<std::size_t>(round % 3'000), 'x');
    };
    {
        std::vector<std::jthread> threads;
        for (std::size_t thread = 0; thread < kept.size(); ++thread) {
            threads.emplace_back([&, thread] {
                for (int round = 0; round < 3'000; ++round) {
                    const auto made = SharedBytes::inSequence(textOf(thread, round));
                    const auto copy = made;
                    if (round % 100 == 7) kept[thread].push_back(copy);
                }
            });
        }
    }
    for (std::size_t thread = 0; thread < kept.size(); ++thread) {
        ASSERT_EQ(kept[thread].size(), 30U);
        for (int i = 0; i < 30; ++i) {
            EXPECT_EQ(kept[thread][static_cast<std::size_t>(i)].view(),
                      textOf(thread, i * 100 + 7));
        }
    }
}

}  // namespace
}  // namespace nookwise
