// CString and the numbers as text, without a window.
#include <gtest/gtest.h>

#include <string>

#include "framework/framework.h"
#include "framework/number_text.h"

namespace {

std::string Std(const CString& text) {
    return text.GetString();
}

TEST(String, TrimsOnlyWhiteSpaceOfTheCLocale) {
    EXPECT_EQ(Std(CString(" \t\n\v\f\rab \t\n\v\f\r").Trim()), "ab");
    EXPECT_EQ(Std(CString("\xA0 a b\xA0").Trim()), "\xA0 a b\xA0");
    EXPECT_EQ(Std(CString("   ").Trim()), "");
    EXPECT_EQ(Std(CString(" a ").TrimLeft()), "a ");
}

TEST(NumberText, ReadsAWholeNumberOrNothing) {
    struct Case {
        const char* text;
        bool isReal;
        bool isInteger;
        bool isUnsigned;
        double value;
    };
    const Case cases[] = {
        {"12", true, true, true, 12},      {" \t12\t ", true, true, true, 12},
        {"+5", true, true, true, 5},       {"-5", true, true, false, -5},
        {"0", true, true, true, 0},        {"00", true, true, true, 0},
        {"2.5", true, false, false, 2.5},  {".5", true, false, false, 0.5},
        {"1e3", true, false, false, 1000}, {"0.0", true, false, false, 0},
        {"", false, false, false, 0},      {" ", false, false, false, 0},
        {"abc", false, false, false, 0},   {"1,5", false, false, false, 0},
        {"12 3", false, false, false, 0},  {"+", false, false, false, 0},
        {"+-5", false, false, false, 0},   {".0", false, false, false, 0},
        {"-0", false, false, false, 0},    {"inf", false, false, false, 0},
        {"nan", false, false, false, 0},   {"1e999", false, false, false, 0},
        {"0x10", false, false, false, 0},  {"4294967295", true, false, true, 4294967295.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        double real = 99;
        int integer = 99;
        UINT positive = 99;
        EXPECT_EQ(AfxParseNumber(c.text, real) != FALSE, c.isReal);
        EXPECT_EQ(AfxParseNumber(c.text, integer) != FALSE, c.isInteger);
        EXPECT_EQ(AfxParseNumber(c.text, positive) != FALSE, c.isUnsigned);
        EXPECT_EQ(real, c.isReal ? c.value : 99);
        EXPECT_EQ(integer, c.isInteger ? static_cast<int>(c.value) : 99);
        EXPECT_EQ(positive, c.isUnsigned ? static_cast<UINT>(c.value) : 99);
    }
}

}  // namespace
