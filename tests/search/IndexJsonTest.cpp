#include "tests/search/IndexJsonText.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;

std::optional<SharedBytes> named(const char* name) {
    return SharedBytes(name);
}

TEST(IndexJson, isAnObjectByPath) {
    EXPECT_EQ(written({{FileUrl("/home/a.pdf"), indexEntry(1.5, "Some \"text\"", named("Gmail"))},
                       {FileUrl("/home/b.zip"), indexEntry(0, "", std::nullopt)}}),
              R"({"/home/a.pdf":{"mtime":1.5,"text":"Some \"text\"","source":"Gmail"},)"
              R"("/home/b.zip":{"mtime":0,"text":""}})");
    EXPECT_EQ(written({}), "{}");
}

TEST(IndexJson, isReadInAnyOrderAndWithAnySpace) {
    const auto entries = readFrom(
        " {\n\t\"/a\" : { \"source\" : \"Slack\" , \"text\":\"Ab\",\r\n"
        "\"mtime\" : -1.25e2 } , \"/b\":{\"text\":\"\",\"mtime\":0}} \n");
    EXPECT_EQ(entries, (IndexEntries{{FileUrl("/a"), indexEntry(-125, "Ab", named("Slack"))},
                                     {FileUrl("/b"), indexEntry(0, "", std::nullopt)}}));
    EXPECT_EQ(readFrom("{}"), IndexEntries());
}

TEST(IndexJson, hasTheLowerCaseMadeAnew) {
    const auto entries = readFrom(R"({"/a":{"mtime":1,"text":"ÄB"},"/b":{"mtime":1,"text":"c"}})");
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->at(FileUrl("/a")).lowerText.view(), "äb");
    const auto& same = entries->at(FileUrl("/b"));
    EXPECT_EQ(same.lowerText.view().data(), same.text.view().data());
}

TEST(IndexJson, sharesTheBytesOfEqualSources) {
    const auto entries = readFrom(R"({"/a":{"mtime":1,"text":"","source":"Slack"},)"
                                  R"("/b":{"mtime":1,"text":"","source":"Slack"}})");
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->at(FileUrl("/a")).source->view().data(),
              entries->at(FileUrl("/b")).source->view().data());
}

std::vector<IndexedFile> oddFiles() {
    std::string controls;
    for (char c = 0; c < 0x20; ++c) controls += c;
    std::string longText;
    for (int i = 0; i < 400'000; ++i) longText += "line \\ " + std::to_string(i) + "\n";
    return {{FileUrl("/controls" + controls), indexEntry(1, controls + "\x7f", std::nullopt)},
            {FileUrl("/\"quoted\"\\"), indexEntry(2, "\"\\/\"\"", named("a\"b"))},
            {FileUrl("/not\xffutf-8"), indexEntry(3, "x", std::nullopt)},
            {FileUrl("/%41\xc3"), indexEntry(3, "y", std::nullopt)},
            {FileUrl("/日本語/😀"), indexEntry(4, "日本語 😀 \u2028 \uFEFF \uFFFF", named("ü"))},
            {FileUrl("/long"), indexEntry(5, longText, std::nullopt)},
            {FileUrl("/"), indexEntry(6, "", named(""))},
            {FileUrl("/file:/a"), indexEntry(7, "\0"s, std::nullopt)}};
}

TEST(IndexJson, bringsBackAllTexts) {
    const auto files = oddFiles();
    EXPECT_EQ(readFrom(written(files)), IndexEntries(files.begin(), files.end()));
}

TEST(IndexJson, bringsBackEveryTimeExactly) {
    std::vector<double> times{0.0,
                              -0.0,
                              0.1,
                              1'790'000'000.123456789,
                              -62'135'596'800,
                              9'007'199'254'740'993.0,
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::lowest(),
                              std::numeric_limits<double>::min(),
                              std::numeric_limits<double>::denorm_min()};
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> anyTime(0, 4e9);
    for (int i = 0; i < 10'000; ++i) times.push_back(anyTime(random));
    std::vector<IndexedFile> files;
    for (std::size_t i = 0; i < times.size(); ++i)
        files.emplace_back(FileUrl("/" + std::to_string(i)), indexEntry(times[i], "", {}));
    const auto entries = readFrom(written(files));
    ASSERT_TRUE(entries);
    for (const auto& [url, entry] : files) {
        EXPECT_EQ(entries->at(url).mtime, entry.mtime);
        EXPECT_EQ(std::signbit(entries->at(url).mtime), std::signbit(entry.mtime));
    }
}

TEST(IndexJson, leavesOutWhatCouldNotBeReadBack) {
    const std::string longest(longestIndexedText, 'x');
    const auto infinity = std::numeric_limits<double>::infinity();
    const std::vector<IndexedFile> files{
        {FileUrl("/a"), indexEntry(infinity, "", std::nullopt)},
        {FileUrl("/b"), indexEntry(std::nan(""), "", std::nullopt)},
        {FileUrl("/c"), {.mtime = 1, .text = SharedBytes(longest + "x")}},
        {FileUrl("/d"), indexEntry(1, longest, std::nullopt)}};
    const auto entries = readFrom(written(files));
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 1u);
    EXPECT_EQ(entries->at(FileUrl("/d")).text.view().size(), longest.size());
    EXPECT_EQ(written({files.front()}), "{}");
}

TEST(IndexJson, isGivenInLargePiecesAndEndsWithTheSink) {
    const std::vector<IndexedFile> files(
        10, {FileUrl("/a"), indexEntry(1, std::string(1'000'000, 'x'), std::nullopt)});
    std::size_t pieces = 0;
    const auto count = [&](std::string_view bytes) {
        EXPECT_LE(bytes.size(), 1'000'000u);
        return ++pieces > 0;
    };
    ASSERT_TRUE(writeTo(count, files));
    EXPECT_GT(pieces, 10u);
    EXPECT_LT(pieces, 200u);
    for (std::size_t room = 0; room < pieces; ++room) {
        std::size_t given = 0;
        EXPECT_FALSE(writeTo([&](std::string_view) { return given++ < room; }, files));
        EXPECT_EQ(given, room + 1);
    }
}

TEST(IndexJson, tellsAtOnceThatTheSinkTakesNoMore) {
    const ContentsSink full = [](std::string_view) { return false; };
    IndexJsonWriter writer(full);
    const auto entry = indexEntry(1, std::string(1'000'000, 'x'), std::nullopt);
    EXPECT_FALSE(writer.add(FileUrl("/a"), entry));
    EXPECT_FALSE(writer.add(FileUrl("/b"), indexEntry(1, "", std::nullopt)));
    EXPECT_FALSE(writer.finish());
}

TEST(IndexJson, takesEveryEscape) {
    EXPECT_EQ(textOf(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(textOf(R"("\u0000\u0041\u00e9\u20AC\uD83D\uDE00\uffff")"), "\0Aé€😀\uFFFF"s);
    EXPECT_EQ(textOf("\"\x7f\""), "\x7f");
}

TEST(IndexJson, takesNumbersAsJsonWritesThem) {
    EXPECT_EQ(timeOf("0"), "0.000000");
    EXPECT_EQ(timeOf("-0"), "-0.000000");
    EXPECT_EQ(timeOf("12"), "12.000000");
    EXPECT_EQ(timeOf("-1.5"), "-1.500000");
    EXPECT_EQ(timeOf("1e2"), "100.000000");
    EXPECT_EQ(timeOf("1E+2"), "100.000000");
    EXPECT_EQ(timeOf("125e-1"), "12.500000");
    EXPECT_EQ(timeOf("0.5000000000000000000000000000000000000000000000000000001"), "0.500000");
}

TEST(IndexJson, passesByMembersOfOtherNames) {
    for (const auto* const members :
         {R"("x":1)", R"("x":"y")", R"("x":null)", R"("x":true)", R"("x":false)", R"("x":[])",
          R"("x":{})", R"("x":[1,[2,{"y":[]}],"z"])", R"("x":{"text":[],"mtime":{"a":{}}})",
          R"("":0,"x":0,"x":0)", R"("source":null)", R"("source":"Slack","source":null)",
          R"("text":"other")", R"("mtime":7,"mtime":1)"})
        EXPECT_TRUE(takesMembers(members)) << members;
}

TEST(IndexJson, takesTheLastOfEqualNames) {
    EXPECT_EQ(readFrom(R"({"/a":{"mtime":1,"text":"x","source":"s"},"/a":{"mtime":2,"text":"y"}})"),
              (IndexEntries{{FileUrl("/a"), indexEntry(2, "y", std::nullopt)}}));
}

TEST(IndexJson, takesManyFiles) {
    std::vector<IndexedFile> files;
    for (int i = 0; i < 12'345; ++i) {
        // Every path comes three times.
        files.emplace_back(FileUrl("/" + std::to_string(i % 4'115)),
                           indexEntry(i, "Text " + std::to_string(i), std::nullopt));
    }
    const auto json = written(files);
    const auto entries = readFrom(json);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 4'115u);
    for (std::size_t i = 8'230; i < files.size(); ++i)
        EXPECT_EQ(entries->at(files[i].first), files[i].second);
    EXPECT_FALSE(readFrom(json.substr(0, json.size() - 1)));
    EXPECT_FALSE(readFrom(json.substr(0, json.size() / 2)));
}

TEST(IndexJson, passesByNamesThatAreNoPath) {
    for (const auto* const name : {"", "a/b", "file:", "file:///%zz", "http://a/b", "file://b/c"})
        EXPECT_EQ(readFrom("{\""s + name + R"(":{"mtime":1,"text":"x"}})"), IndexEntries()) << name;
    EXPECT_FALSE(readFrom(R"({"a":{"mtime":1}})"));
}

TEST(IndexJson, isTheSameWhereverTheBufferEnds) {
    const std::string member = R"("/\u00e4\"":{"mtime":-1.5e+3,"text":"ä\ud83d\ude00\\","x":[{}]})";
    // The buffer's end falls on each byte of it in turn.
    for (std::size_t before = 0; before <= member.size(); ++before) {
        const std::string space((std::size_t{64} << 10U) - 1 - before, ' ');
        EXPECT_EQ(readFrom("{" + space + member + "}"),
                  (IndexEntries{{FileUrl("/ä\""), indexEntry(-1500, "ä😀\\", std::nullopt)}}))
            << before;
    }
}

}  // namespace
}  // namespace nookwise
