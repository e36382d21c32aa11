#include "platform/TextClasses.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using namespace std::string_literals;
using Class = CharacterClass;

struct Case {
    std::string character;
    Class expected;
};

class ClassOf : public testing::TestWithParam<Case> {};

TEST_P(ClassOf, isThatOfTheFirstCodePoint) {
    EXPECT_EQ(classOf(GetParam().character), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Letters, ClassOf,
                         testing::Values(Case{"a", Class::letter}, Case{"Ж", Class::letter},
                                         Case{"漢", Class::letter}, Case{"e\u0301", Class::letter},
                                         Case{"ª", Class::letter}, Case{"ก", Class::letter}));
INSTANTIATE_TEST_SUITE_P(Digits, ClassOf,
                         testing::Values(Case{"7", Class::digit}, Case{"٣", Class::digit},
                                         Case{"²", Class::digit}, Case{"½", Class::digit},
                                         Case{"Ⅳ", Class::digit},
                                         Case{"1\ufe0f\u20e3", Class::digit}));
INSTANTIATE_TEST_SUITE_P(Spaces, ClassOf,
                         testing::Values(Case{" ", Class::whiteSpace},
                                         Case{"\t", Class::whiteSpace},
                                         Case{"\u00a0", Class::whiteSpace},
                                         Case{"\u2003", Class::whiteSpace},
                                         Case{"\u3000", Class::whiteSpace}));
INSTANTIATE_TEST_SUITE_P(LineBreaks, ClassOf,
                         testing::Values(Case{"\n", Class::lineBreak}, Case{"\r", Class::lineBreak},
                                         Case{"\r\n", Class::lineBreak},
                                         Case{"\v", Class::lineBreak}, Case{"\f", Class::lineBreak},
                                         Case{"\u0085", Class::lineBreak},
                                         Case{"\u2028", Class::lineBreak},
                                         Case{"\u2029", Class::lineBreak}));
INSTANTIATE_TEST_SUITE_P(
    Others, ClassOf,
    testing::Values(Case{"\0"s, Class::control}, Case{"\x1b", Class::control},
                    Case{"\u0080", Class::control}, Case{"\u00ad", Class::invisible},
                    Case{"\u202e", Class::invisible}, Case{"\ufeff", Class::invisible},
                    Case{"\xff", Class::malformed}, Case{"\xe2\x82", Class::malformed},
                    Case{"", Class::malformed}, Case{"😀", Class::other}, Case{"—", Class::other},
                    Case{"/", Class::other}, Case{"\u0301", Class::other}));

}  // namespace
}  // namespace nookwise
