#include "platform/resources/code_page.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(CodePage, OwnCharactersAreThoseOfTheCodePage) {
    EXPECT_EQ(codePageToUtf8("\xE5\xE4\xF6 \x80 \x93\x94 \x8A"), "åäö € “” Š");
    EXPECT_EQ(utf16ToCodePage(u"\u2026\u0178", Unmapped::Drop), "\x85\x9F");
}

TEST(CodePage, CharactersOutsideAreDroppedOrMarked) {
    EXPECT_EQ(utf8ToCodePage("a→b☃c", Unmapped::Drop), "abc");
    EXPECT_EQ(utf8ToCodePage("a→b☃c", Unmapped::QuestionMark), "a?b?c");
    EXPECT_EQ(utf16ToCodePage(u"a\U0001F600b", Unmapped::QuestionMark), "a??b");
}

TEST(CodePage, UpperCaseKnowsTheLettersOutsideAscii) {
    std::string text = "az\xE5\xE4\xF6\xFF\x9A\xF7\xDF{";
    for (char& c : text) {
        c = codePageUpper(c);
    }
    EXPECT_EQ(text, "AZ\xC5\xC4\xD6\x9F\x8A\xF7\xDF{");
}

}  // namespace
}  // namespace platform
