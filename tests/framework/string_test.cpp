// CString and the numbers as text, without a window.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "framework/framework.h"
#include "framework/number_text.h"
#include "tests/framework/test_resource.h"

namespace {

std::string Std(const CString& text) {
    return text.GetString();
}

TEST(String, TrimsOnlyWhiteSpaceOfTheCLocale) {
    struct Case {
        const char* text;
        const char* left;
        const char* right;
        const char* both;
    };
    const Case cases[] = {
        {" \t\n\v\f\rab \t\n\v\f\r", "ab \t\n\v\f\r", " \t\n\v\f\rab", "ab"},
        {"\xA0 a b\xA0", "\xA0 a b\xA0", "\xA0 a b\xA0", "\xA0 a b\xA0"},
        {"   ", "", "", ""},
        {"", "", "", ""},
        {"\xE5", "\xE5", "\xE5", "\xE5"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Std(CString(c.text).TrimLeft()), c.left);
        EXPECT_EQ(Std(CString(c.text).TrimRight()), c.right);
        EXPECT_EQ(Std(CString(c.text).Trim()), c.both);
    }
}

TEST(String, ClipsPartsToTheText) {
    const CString text("norvasti");
    EXPECT_EQ(Std(text.Left(4)), "norv");
    EXPECT_EQ(Std(text.Left(-1)), "");
    EXPECT_EQ(Std(text.Left(99)), "norvasti");
    EXPECT_EQ(Std(text.Right(4)), "asti");
    EXPECT_EQ(Std(text.Right(99)), "norvasti");
    EXPECT_EQ(Std(text.Mid(2, 3)), "rva");
    EXPECT_EQ(Std(text.Mid(6, 9)), "ti");
    EXPECT_EQ(Std(text.Mid(99)), "");
    EXPECT_EQ(text.GetAt(8), '\0');
    EXPECT_EQ(text[0], 'n');
}

TEST(String, FindsInsertsAndRemoves) {
    CString text("P.C");
    EXPECT_EQ(text.Find('C'), 2);
    EXPECT_EQ(text.Find(".C", 1), 1);
    EXPECT_EQ(text.Find('P', 1), -1);
    EXPECT_EQ(text.Find('P', 99), -1);
    EXPECT_EQ(text.FindOneOf("xC."), 1);
    EXPECT_EQ(text.FindOneOf("x"), -1);
    EXPECT_EQ(text.ReverseFind('P'), 0);
    EXPECT_EQ(text.Insert(0, '$'), 4);
    EXPECT_EQ(text.Insert(99, "!"), 5);
    EXPECT_EQ(Std(text), "$P.C!");
    EXPECT_EQ(text.Remove('$'), 1);
    EXPECT_EQ(text.Replace('.', ','), 1);
    EXPECT_EQ(text.Delete(0, 2), 2);
    EXPECT_EQ(Std(text), "C!");
}

TEST(String, FormatsWithItselfAsAnArgument) {
    CString text("ab");
    text.Format("%s-%d,%3.1f", text.GetString(), 7, 2.5);
    EXPECT_EQ(Std(text), "ab-7,2.5");
    text = text.GetString() + 3;
    EXPECT_EQ(Std(text), "7,2.5");
    AfxFormatString2(text, "mellan %1 och %2: 100%", text, "b");
    EXPECT_EQ(Std(text), "mellan 7,2.5 och b: 100%");
}

TEST(String, BufferKeepsTextAndTakesNewLength) {
    CString text("abc");
    LPSTR buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, "abc");
    std::memcpy(buffer, "xyzuv", 6);
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 5);
    text.GetBuffer();
    text.ReleaseBuffer(2);
    EXPECT_EQ(Std(text), "xy");
}

TEST(String, ComparesBytesAndFoldsAsciiOnly) {
    EXPECT_EQ(CString("iec617").CompareNoCase("IEC617"), 0);
    EXPECT_NE(CString("\xE5").CompareNoCase("\xC5"), 0);
    EXPECT_TRUE(CString("a") < CString("b"));
    EXPECT_TRUE(CString("a") == "a" && "a" != CString("b"));
    EXPECT_TRUE(CString(static_cast<LPCSTR>(nullptr)).IsEmpty());
    EXPECT_EQ(Std(',' + CString("\xE4r") + ' ' + "ogiltigt!"), ",\xE4r ogiltigt!");
}

TEST(String, LoadsResourcesOfAnyLength) {
    CString text("before");
    EXPECT_FALSE(text.LoadString(IDS_MISSING));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(text.LoadString(IDS_NAME));
    EXPECT_EQ(Std(text), "Fel v\xE4rde");
    EXPECT_TRUE(text.LoadString(IDS_LONG));
    EXPECT_EQ(text.GetLength(), 310);
}

TEST(NumberText, WritesSignificantDigitsWithoutTrailingZeros) {
    EXPECT_EQ(Std(AfxNumberText(1.0, 15)), "1");
    EXPECT_EQ(Std(AfxNumberText(0.1 + 0.2, 15)), "0.3");
    EXPECT_EQ(Std(AfxNumberText(100000.0, 15)), "100000");
    EXPECT_EQ(Std(AfxNumberText(1e20, 15)), "1e+20");
    EXPECT_EQ(Std(AfxNumberText(-0.00001, 15)), "-1e-05");
    EXPECT_EQ(Std(AfxNumberText(static_cast<double>(9.9f), 6)), "9.9");
    EXPECT_EQ(Std(AfxNumberText(1234567, 6)), "1.23457e+06");
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
