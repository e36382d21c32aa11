#include "tests/search/IndexJsonText.h"

namespace nookwise {
namespace {

using namespace std::string_literals;

TEST(IndexJson, takesNoOtherEscape) {
    for (const auto* const text :
         {R"("\x")", R"("\u12")", R"("\u12g4")", R"("\U0041")", R"("\ud83d")", R"("\ud83dx")",
          R"("\ud83d\n")", R"("\ud83d\u0041")", R"("\ud83d\ud83d")", R"("\ude00")", R"("\")",
          R"("\u+123")"})
        EXPECT_EQ(textOf(text), "(bad)") << text;
}

TEST(IndexJson, takesNoStringThatIsNoUtf8OrHoldsControls) {
    for (const auto& text :
         {"\"\xff\""s, "\"\xc3\""s, "\"\xc0\x80\""s, "\"\xed\xa0\x80\""s, "\"\xf4\x90\x80\x80\""s,
          "\"a\nb\""s, "\"\0\""s, "\"\x1f\""s, "\"12345678\t12345678\""s, "'a'"s, "a"s, "\"a"s})
        EXPECT_EQ(textOf(text), "(bad)") << testing::PrintToString(text);
    EXPECT_FALSE(readFrom("{\"/\xff\":{\"mtime\":1,\"text\":\"\"}}"));
    EXPECT_FALSE(takesMembers("\"\xff\":1"));
    EXPECT_FALSE(takesMembers("\"x\":\"\xff\""));
}

TEST(IndexJson, takesNoOtherNumbers) {
    for (const auto& number : {"01"s,
                               "+1"s,
                               "-"s,
                               "."s,
                               ".5"s,
                               "1."s,
                               "1.e2"s,
                               "1e"s,
                               "1e+"s,
                               "1e+-2"s,
                               "1e--2"s,
                               "--1"s,
                               "0x10"s,
                               "NaN"s,
                               "nan"s,
                               "Infinity"s,
                               "-inf"s,
                               "1e999"s,
                               "-1e999"s,
                               "1e-999"s,
                               "1,5"s,
                               "\"1\""s,
                               "null"s,
                               "true"s,
                               "[]"s,
                               ""s,
                               "1 2"s,
                               "0"s + std::string(500, '0'),
                               std::string(500, '1'),
                               "1."s + std::string(1'000'000, '1')})
        EXPECT_EQ(timeOf(number), "(bad)") << number.substr(0, 40);
}

TEST(IndexJson, takesNoMemberThatIsNoJson) {
    for (const auto* const members : {R"("x")",
                                      R"("x":)",
                                      R"("x":,)",
                                      R"("x":nul)",
                                      R"("x":True)",
                                      R"("x":[1,])",
                                      R"("x":[,1])",
                                      R"("x":[1 2])",
                                      R"("x":{"a"})",
                                      R"("x":{"a":1,})",
                                      R"("x":{a:1})",
                                      R"("x":{1:1})",
                                      R"("x":[1})",
                                      R"("x":{"a":1])",
                                      R"("x":]")",
                                      R"(x:1)",
                                      R"("x":01)",
                                      R"("source":1)",
                                      R"("source":nul)",
                                      R"("source":[])",
                                      R"("source":nullx)",
                                      R"("text":null)",
                                      R"("text":1)",
                                      R"("mtime":"1")",
                                      ",",
                                      R"("x":1,,"y":1)"})
        EXPECT_FALSE(takesMembers(members)) << members;
}

TEST(IndexJson, isNothingOfAnotherShape) {
    for (const auto& json : {""s,
                             " "s,
                             "null"s,
                             "[]"s,
                             "\"\""s,
                             "0"s,
                             "{"s,
                             "}"s,
                             "{]"s,
                             "[{}]"s,
                             "{}}"s,
                             "{},"s,
                             "{} x"s,
                             "{}\0"s,
                             "\xef\xbb\xbf{}"s,
                             "{\"/a\"}"s,
                             "{\"/a\":}"s,
                             "{\"/a\":null}"s,
                             "{\"/a\":[]}"s,
                             "{\"/a\":\"text\"}"s,
                             "{\"/a\":{}}"s,
                             "{\"/a\":{\"mtime\":1}}"s,
                             "{\"/a\":{\"text\":\"\"}}"s,
                             "{\"/a\":{\"mtime\":1,\"text\":\"\"},}"s,
                             "{\"/a\":{\"mtime\":1,\"text\":\"\",}}"s,
                             "{,}"s,
                             "{\"/a\"{\"mtime\":1,\"text\":\"\"}}"s,
                             "{\"/a\":{\"mtime\":1 \"text\":\"\"}}"s,
                             "/* */{}"s,
                             "{\"\\u002\":{}}"s})
        EXPECT_FALSE(readFrom(json)) << testing::PrintToString(json);
}

TEST(IndexJson, isNothingWhenTornAnywhere) {
    const auto whole =
        written({{FileUrl("/a\xff"), indexEntry(1'790'000'000.25, "Ä \"x\"\n\x01 😀", {})},
                 {FileUrl("/b"), indexEntry(-1e300, "", SharedBytes("Google Drive"))}});
    ASSERT_TRUE(readFrom(whole));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(readFrom(whole.substr(0, length))) << length;
}

TEST(IndexJson, withOneByteChangedIsNothingOrAnotherIndex) {
    const auto whole = written({{FileUrl("/a"), indexEntry(1, "ab\n", SharedBytes("s"))}});
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const char byte : "{}[]:,\"\\ nu09-.eE\n\x80\xc3"s + '\0') {
            auto changed = whole;
            changed[i] = byte;
            const auto entries = readFrom(changed);
            if (!entries) continue;
            const std::vector<IndexedFile> files(entries->begin(), entries->end());
            EXPECT_EQ(readFrom(written(files)), entries) << changed;
        }
    }
}

TEST(IndexJson, endsWhereItWasSaidToEnd) {
    GivenBytes grown("{}", "{}", 1'000);
    EXPECT_EQ(indexFromJson(grown, 2), IndexEntries());
    GivenBytes torn(R"({"/a":{"mtime":1,"text":"x"}})");
    EXPECT_FALSE(indexFromJson(torn, torn.size() - 1));
    GivenBytes shorter("{}");
    EXPECT_EQ(indexFromJson(shorter, 1'000), IndexEntries());
}

TEST(IndexJson, takesNoEndlessNesting) {
    const auto nested = [](std::size_t depth) {
        return "\"x\":" + std::string(depth, '[') + std::string(depth, ']');
    };
    EXPECT_TRUE(takesMembers(nested(512)));
    EXPECT_FALSE(takesMembers(nested(513)));
}

constexpr std::uint64_t gigabyte = 1'000'000'000;

/// How many bytes are read of a gigabyte before it is seen to be no index.
std::uint64_t bytesReadOf(std::string beginning, std::string repeated) {
    GivenBytes file(std::move(beginning), std::move(repeated), gigabyte);
    EXPECT_FALSE(indexFromJson(file, file.size()));
    return file.position();
}

TEST(IndexJson, isSoonSeenNotToBeIn) {
    constexpr std::uint64_t little = 2 << 20U;
    EXPECT_LE(bytesReadOf("", "\0"s), little);
    EXPECT_LE(bytesReadOf("", "\x8f\x13garbage"), little);
    EXPECT_LE(bytesReadOf("", "["), little);
    EXPECT_LE(bytesReadOf("", "{\"\":"), little);
    EXPECT_LE(bytesReadOf("[", "{\"/a\":{\"mtime\":1,\"text\":\"x\"}},"), little);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"x\":", "["), little);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"x\":", "{\"y\":"), little);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"mtime\":", "1"), little);
}

TEST(IndexJson, hasNoStringOrNumberThatNeverEnds) {
    constexpr std::uint64_t most = longestIndexedText + (2 << 20U);
    EXPECT_LE(bytesReadOf("{\"", "x"), most);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"text\":\"", "x"), most);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"y\":\"", "xyzzy"), most);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"text\":\"", "\\n"), 2 * most);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"mtime\":1e", "0"), most);
    EXPECT_LE(bytesReadOf("{\"/a\":{\"mtime\":0.", "0"), most);
}

TEST(IndexJson, needsLittleMemoryForMuchThatSaysNothing) {
    GivenBytes spaces("", " ", gigabyte / 100);
    EXPECT_FALSE(indexFromJson(spaces, spaces.size()));
    EXPECT_EQ(spaces.position(), spaces.size());
    GivenBytes again("{\"/a\":{\"mtime\":1,\"text\":\"x\"}", ",\"/a\":{\"mtime\":2,\"text\":\"\"}",
                     gigabyte / 100);
    EXPECT_FALSE(indexFromJson(again, again.size()));
    EXPECT_EQ(again.position(), again.size());
}

}  // namespace
}  // namespace nookwise
