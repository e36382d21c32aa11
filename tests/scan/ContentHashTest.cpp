#include "scan/ContentHash.h"
#include "tests/scan/ThreeStages.h"
#include "tests/support/FakeFileManager.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr std::string_view emptyDigest =
    "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
constexpr std::string_view abcDigest =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

std::span<const std::byte> asBytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

struct Vector {
    std::string text;
    std::string_view digest;
};

class KnownDigest : public testing::TestWithParam<Vector> {};

TEST_P(KnownDigest, isThatOfTheStandard) {
    Sha256 digest;
    digest.update(asBytes(GetParam().text));
    EXPECT_EQ(digest.finish(), GetParam().digest);
    EXPECT_EQ(referenceSha256(GetParam().text), GetParam().digest);
}

INSTANTIATE_TEST_SUITE_P(
    Vectors, KnownDigest,
    testing::Values(Vector{"", emptyDigest}, Vector{"abc", abcDigest},
                    Vector{"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
                           "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
                    Vector{std::string(1'000'000, 'a'),
                           "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"}));

TEST(Sha256, isTheSameHoweverTheBytesArrive) {
    Sha256 digest;
    digest.update(asBytes("a"));
    digest.update(asBytes(""));
    digest.update(asBytes("bc"));
    EXPECT_EQ(digest.finish(), abcDigest);
}

TEST(Sha256, goesOnFromACopyOfItsState) {
    Sha256 digest;
    digest.update(asBytes("a"));
    Sha256 copy(digest);
    Sha256 assigned;
    assigned.update(asBytes("something else"));
    assigned = digest;
    digest.update(asBytes("something else"));
    copy.update(asBytes("bc"));
    assigned.update(asBytes("bc"));
    EXPECT_EQ(copy.finish(), abcDigest);
    EXPECT_EQ(assigned.finish(), abcDigest);
}

TEST(Sha256, movesItsState) {
    Sha256 digest;
    digest.update(asBytes("ab"));
    Sha256 moved(std::move(digest));
    Sha256 again;
    again = std::move(moved);
    again.update(asBytes("c"));
    EXPECT_EQ(again.finish(), abcDigest);
}

class Hash : public testing::Test {
  protected:
    std::optional<std::string> digestOf(std::optional<std::uint64_t> limit = std::nullopt) {
        return hash(files, FileUrl("/file"), limit, {});
    }

    FakeFileManager files;
};

TEST_F(Hash, isThatOfTheWholeFileWithoutALimit) {
    const std::string contents(3'000'001, 'x');
    files.addFile("/file", {.contents = contents});
    EXPECT_EQ(digestOf(), referenceSha256(contents));
}

TEST_F(Hash, isThatOfTheFirstBytesWithALimit) {
    const std::string contents = std::string(65'536, 'x') + std::string(65'536, 'y');
    files.addFile("/file", {.contents = contents});
    for (const std::size_t limit : {0u, 1u, 65'535u, 65'536u, 65'537u, 131'072u, 200'000u}) {
        EXPECT_EQ(digestOf(limit), referenceSha256(contents.substr(0, limit))) << limit;
    }
}

TEST_F(Hash, ofAnEmptyFileIsTheDigestOfNothing) {
    files.addFile("/file");
    EXPECT_EQ(digestOf(), emptyDigest);
}

TEST_F(Hash, readsAtMostAMebibyteAtATime) {
    files.addFile("/file", {.size = 5 * 1'048'576});
    int reads = 0;
    files.onOperation([&](const FakeOperation& operation) {
        reads += operation.kind == FakeOperation::Kind::read;
    });
    digestOf();
    EXPECT_GE(reads, 5);
}

TEST_F(Hash, isNoneForWhatCannotBeOpened) {
    EXPECT_EQ(digestOf(), std::nullopt);
    files.addFile("/file", {.contents = "abc"});
    files.makeUnreadable("/file");
    EXPECT_EQ(digestOf(), std::nullopt);
    files.addFolder("/folder");
    EXPECT_EQ(hash(files, FileUrl("/folder"), std::nullopt, {}), std::nullopt);
    files.addOther("/pipe");
    EXPECT_EQ(hash(files, FileUrl("/pipe"), std::nullopt, {}), std::nullopt);
}

TEST_F(Hash, isNoneAfterAStopRequestInTheMiddle) {
    files.addFile("/file", {.size = 4'000'000'000});
    std::stop_source stop;
    int reads = 0;
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::read && ++reads == 3) stop.request_stop();
    });
    EXPECT_EQ(hash(files, FileUrl("/file"), std::nullopt, stop.get_token()), std::nullopt);
    EXPECT_EQ(reads, 3);
}

}  // namespace
}  // namespace nookwise
