#include "reader/recognition/LanguageTable.h"
#include "reader/recognition/Languages.h"

#include <set>

#include <gmock/gmock.h>

namespace nookwise {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::string>;

TEST(RecognitionLanguages, followTheUsersLocale) {
    struct Case {
        LocaleVariables variables;
        Names expected;
    };
    const std::vector<Case> cases{
        {{}, {}},
        {{.otherwise = "C"}, {}},
        {{.otherwise = "C.UTF-8"}, {}},
        {{.otherwise = "POSIX"}, {}},
        {{.otherwise = "en_GB.UTF-8"}, {"eng"}},
        {{.otherwise = "de_AT.UTF-8"}, {"deu"}},
        {{.otherwise = "de"}, {"deu"}},
        {{.otherwise = "pt_BR"}, {"por"}},
        {{.otherwise = "zh_CN.UTF-8"}, {"chi_sim"}},
        {{.otherwise = "zh_TW.UTF-8"}, {"chi_tra"}},
        {{.otherwise = "zh_HK"}, {"chi_tra"}},
        {{.otherwise = "sr_RS.UTF-8"}, {"srp"}},
        {{.otherwise = "sr_RS@latin"}, {"srp_latn"}},
        {{.otherwise = "sr_RS.UTF-8@latin"}, {"srp_latn"}},
        {{.otherwise = "uz_UZ@cyrillic"}, {"uzb_cyrl"}},
        {{.otherwise = "ca_ES@valencia"}, {"cat"}},
        {{.otherwise = "de_DE@euro"}, {"deu"}},
        {{.otherwise = "nb_NO.UTF-8"}, {"nor"}},
        {{.otherwise = "nn_NO"}, {"nor"}},
        {{.otherwise = "xx_YY.UTF-8"}, {}},
        {{.otherwise = "_@."}, {}},
        // The more general variables give way to the more particular.
        {{.messages = "fr_FR", .otherwise = "de_DE"}, {"fra"}},
        {{.all = "es_ES", .messages = "fr_FR", .otherwise = "de_DE"}, {"spa"}},
        {{.all = "C", .otherwise = "de_DE"}, {}},
        // The list comes before the locale, unless there is none.
        {{.languages = "sv:da:en", .otherwise = "nb_NO"}, {"swe", "dan", "eng", "nor"}},
        {{.languages = "de_DE:de:en", .otherwise = "de_DE.UTF-8"}, {"deu", "eng"}},
        {{.languages = "::de:", .otherwise = "en_US"}, {"deu", "eng"}},
        {{.languages = "de", .otherwise = "C.UTF-8"}, {}},
        {{.languages = "de"}, {}},
    };
    for (const auto& [variables, expected] : cases)
        EXPECT_EQ(preferredLanguages(variables), expected)
            << variables.languages << ' ' << variables.all << ' ' << variables.otherwise;
}

TEST(RecognitionLanguages, beginWithThoseThatAreInstalledAndEnglish) {
    const Names installed{"deu", "eng", "fra", "osd", "spa"};
    EXPECT_THAT(startingLanguages({}, installed), ElementsAre("eng"));
    EXPECT_THAT(startingLanguages({"deu"}, installed), ElementsAre("deu", "eng"));
    EXPECT_THAT(startingLanguages({"rus"}, installed), ElementsAre("eng"));
    EXPECT_THAT(startingLanguages({"eng", "deu"}, installed), ElementsAre("eng", "deu"));
    // English keeps its place among the three.
    EXPECT_THAT(startingLanguages({"deu", "fra", "spa"}, installed),
                ElementsAre("deu", "fra", "eng"));
}

TEST(RecognitionLanguages, beginWithWhateverThereIs) {
    EXPECT_THAT(startingLanguages({"deu"}, {"osd", "rus"}), ElementsAre("rus"));
    EXPECT_THAT(startingLanguages({"deu"}, {"Cyrillic", "osd"}), ElementsAre("Cyrillic"));
    EXPECT_THAT(startingLanguages({"deu"}, {"osd"}), IsEmpty());
    EXPECT_THAT(startingLanguages({"deu"}, {}), IsEmpty());
}

TEST(RecognitionLanguages, ofAScriptAreThePreferredOnesElseTheMostSpoken) {
    const Names installed{"bel", "bul", "eng", "osd", "rus", "srp", "ukr"};
    EXPECT_THAT(languagesOfScript("Cyrillic", {}, installed), ElementsAre("rus", "ukr", "bul"));
    EXPECT_THAT(languagesOfScript("Cyrillic", {"deu", "bul"}, installed), ElementsAre("bul"));
    EXPECT_THAT(languagesOfScript("Greek", {}, installed), IsEmpty());
    EXPECT_THAT(languagesOfScript("", {}, installed), IsEmpty());
    EXPECT_THAT(languagesOfScript("Japanese", {}, {"eng", "jpn"}), ElementsAre("jpn"));
    EXPECT_THAT(languagesOfScript("Han", {}, {"chi_tra", "chi_sim"}),
                ElementsAre("chi_sim", "chi_tra"));
}

TEST(RecognitionLanguages, ofAScriptAreTheScriptsOwnDataWhereInstalled) {
    const Names installed{"Cyrillic", "HanS", "Hangul", "rus", "ukr"};
    EXPECT_THAT(languagesOfScript("Cyrillic", {}, installed), ElementsAre("Cyrillic"));
    EXPECT_THAT(languagesOfScript("Cyrillic", {"ukr"}, installed), ElementsAre("ukr"));
    EXPECT_THAT(languagesOfScript("Han", {}, installed), ElementsAre("HanS"));
    EXPECT_THAT(languagesOfScript("Korean", {}, installed), ElementsAre("Hangul"));
}

TEST(RecognitionLanguages, knowTheirScripts) {
    EXPECT_TRUE(anyWrittenIn("Latin", {"rus", "eng"}));
    EXPECT_TRUE(anyWrittenIn("Cyrillic", {"Cyrillic"}));
    EXPECT_TRUE(anyWrittenIn("Korean", {"Hangul"}));
    EXPECT_FALSE(anyWrittenIn("Cyrillic", {"eng", "srp_latn"}));
    EXPECT_FALSE(anyWrittenIn("Latin", {}));
    EXPECT_FALSE(anyWrittenIn("Latin", {"osd", "unheard"}));
}

TEST(RecognitionLanguages, areListedOnce) {
    std::set<std::string_view> names;
    for (const auto& language : languageTable())
        EXPECT_TRUE(names.insert(language.name).second) << language.name;
}

}  // namespace
}  // namespace nookwise
