// The field checks and the sheet, without pages.
#include <gtest/gtest.h>

#include <tuple>

#include "core/field_messages.h"
#include "core/sheet/projdescr.h"
#include "tests/support/box_answerer.h"

namespace {

constexpr char kFaultyField[] = "Felaktigt textf\xE4lt";
constexpr char kEmpty[] = "Textstr\xE4ngen kan inte vara tom!";
constexpr char kIsInvalid[] = "\xE4r ogiltigt!";
constexpr char kMinimum[] = "Minsta v\xE4rde \xE4r 0.1 !";
constexpr char kWrongValue[] = "Fel v\xE4rde";

std::string Invalid(char character) {
    return character + std::string(kIsInvalid);
}

using Boxes = std::vector<BoxSeen>;

// A top-level window with two edits, the second of which has the focus.
class Checks : public testing::Test {
protected:
    void SetUp() override {
        m_window =
            CreateWindowExA(0, "Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
        m_edit = MakeEdit();
        m_other = MakeEdit();
        ::SetFocus(m_other);
    }
    void TearDown() override { DestroyWindow(m_window); }

    HWND MakeEdit() {
        return CreateWindowExA(0, "Edit", "12345", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 90, 20, m_window,
                               nullptr, nullptr, nullptr);
    }
    std::pair<DWORD, DWORD> Selection() const {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageA(m_edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }

    HWND m_window = nullptr;
    HWND m_edit = nullptr;
    HWND m_other = nullptr;
    BoxAnswerer m_boxes;
    projdescr m_sheet{"caption", nullptr, 0};
};

using TextCheck = int (CSettingsSheet::*)(CString&, CWnd*, LPCSTR, int);

TEST_F(Checks, TextFieldReportsAndGivesTheFocusBack) {
    struct Case {
        TextCheck check;
        const char* text;
        int required;
        int result;
        const char* textAfter;
        std::string message;
        bool selects;
    };
    constexpr TextCheck kSelecting = &CSettingsSheet::CheckTextField;
    constexpr TextCheck kPlain = &CSettingsSheet::CheckTextFieldNoSelect;
    const Case cases[] = {
        {kSelecting, "  x y  ", 1, 1, "x y", "", false},
        {kSelecting, "  x  ", 0, 1, "  x  ", "", false},
        {kSelecting, "", 0, 1, "", "", false},
        {kSelecting, "   ", 1, 0, "", kEmpty, false},
        {kSelecting, "a\"b;", 1, 0, "a\"b;", Invalid('"'), true},
        {kSelecting, "a;b\"", 0, 0, "a;b\"", Invalid(';'), true},
        {kPlain, " \t", 1, 0, "", kEmpty, false},
        {kPlain, "a;b", 1, 0, "a;b", Invalid(';'), false},
        {kPlain, " ok ", 1, 1, "ok", "", false},
        {kPlain, " ok ", 0, 1, " ok ", "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        for (const bool withControl : {true, false}) {
            ::SetFocus(m_other);
            SendMessageA(m_edit, EM_SETSEL, 1, 1);
            CString text = c.text;
            CWnd* control = withControl ? CWnd::FromHandle(m_edit) : nullptr;
            EXPECT_EQ((m_sheet.*c.check)(text, control, "\";", c.required), c.result);
            EXPECT_STREQ(text, c.textAfter);
            EXPECT_EQ(m_boxes.Take(), c.result != 0 ? Boxes{} : (Boxes{{kFaultyField, c.message, nullptr}}));
            EXPECT_EQ(GetFocus() == m_edit, c.result == 0 && withControl);
            const bool selected = c.selects && withControl;
            EXPECT_EQ(Selection(), (selected ? std::pair<DWORD, DWORD>(0, 5) : std::pair<DWORD, DWORD>(1, 1)));
        }
    }
}

// By itself a box comes up over the middle of its owner.
TEST_F(Checks, BoxLeavesItsFieldInSight) {
    MoveWindow(m_window, 300, 200, 200, 100, FALSE);
    for (const POINT at : {POINT{60, 40}, POINT{0, 0}, POINT{110, 80}}) {
        MoveWindow(m_edit, at.x, at.y, 90, 20, FALSE);
        bool isSeen = false;
        m_boxes.BeforeAnswer([&] {
            RECT box{};
            RECT field{};
            RECT common{};
            GetWindowRect(GetActiveWindow(), &box);
            GetWindowRect(m_edit, &field);
            isSeen = GetActiveWindow() != m_window && !IntersectRect(&common, &box, &field);
        });
        EXPECT_EQ(CheckNumber(CWnd::FromHandle(m_window), "x", CWnd::FromHandle(m_edit)), 0);
        EXPECT_TRUE(isSeen) << at.x << ',' << at.y;
    }
}

TEST_F(Checks, NumberFieldAcceptsDigitsAndPointsFromATenthOn) {
    struct Case {
        const char* text;
        const char* caption;  // Null when accepted.
        std::string message;
    };
    const std::string kManyNines(400, '9');
    const std::string kTiny = "0." + std::string(400, '0') + "1";
    const Case cases[] = {
        {"0.1", nullptr, ""},
        {"2.5", nullptr, ""},
        {"1.2.3", nullptr, ""},
        {".5", nullptr, ""},
        {"007", nullptr, ""},
        {kManyNines.c_str(), nullptr, ""},
        {"12,5", kFaultyField, Invalid(',')},
        {"-1", kFaultyField, Invalid('-')},
        {" 1", kFaultyField, Invalid(' ')},
        {"1e3", kFaultyField, Invalid('e')},
        {"", kFaultyField, kEmpty},
        {"0.05", kWrongValue, kMinimum},
        {"0", kWrongValue, kMinimum},
        {".", kWrongValue, kMinimum},
        {"..5", kWrongValue, kMinimum},
        {kTiny.c_str(), kWrongValue, kMinimum},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        ::SetFocus(m_other);
        const bool accepted = c.caption == nullptr;
        EXPECT_EQ(m_sheet.CheckNumberField(c.text, CWnd::FromHandle(m_edit)), accepted ? 1 : 0);
        EXPECT_EQ(m_boxes.Take(), accepted ? Boxes{} : (Boxes{{c.caption, c.message, nullptr}}));
        EXPECT_EQ(GetFocus(), accepted ? m_other : m_edit);
    }
}

TEST(Sheet, GivesTheApplicationNameBack) {
    for (const char* name : {"", "tavrik", "A name that is longer than the sheet's"}) {
        CWinApp* application = AfxGetApp();
        std::free(application->m_pszAppName);
        application->m_pszAppName = strdup(name);
        {
            const projdescr sheet("caption", nullptr, 0);
            EXPECT_STREQ(application->m_pszAppName, kWrongValue);
            EXPECT_STREQ(sheet.GetRuntimeClass()->m_lpszClassName, "projdescr");
        }
        EXPECT_STREQ(application->m_pszAppName, name);
    }
}

TEST(Sheet, PutMirrorsThreeKeysWhateverTheStoreAndMergeNone) {
    projdescr sheet("caption", nullptr, 0);
    CMdb store;
    sheet.PutSetting(&store, "DRW_MODE", "2x");
    sheet.PutSetting(&store, "BET_PREFIX", "3");
    sheet.PutSetting(&store, "COORD_BET", "4");
    sheet.PutSetting(&store, "drw_mode", "9");
    const auto mirrored = [&] { return std::tuple(sheet.m_nDrwMode, sheet.m_nBetPrefix, sheet.m_nCoordBet); };
    EXPECT_EQ(mirrored(), std::tuple(2, 3, 4));
    CMdb other;
    sheet.PutSetting(&other, "DRW_MODE", "0");
    EXPECT_EQ(mirrored(), std::tuple(0, 3, 4));
    sheet.m_bEditable = 0;
    sheet.m_pHostSettings = &store;
    sheet.PutSetting(&sheet.m_workSettings, "DRW_MODE", "0");
    sheet.MergeSettings(&other, &store);
    EXPECT_TRUE(sheet.CommitSettings());
    EXPECT_EQ(CSettingsSheet::GetSettingNumber(&store, "DRW_MODE"), 2) << "a read-only sheet merges nothing";
    sheet.m_bEditable = 1;
    sheet.MergeSettings(&store, &other);
    EXPECT_EQ(CSettingsSheet::GetSettingNumber(&other, "DRW_MODE"), 2);
    EXPECT_EQ(mirrored(), std::tuple(0, 3, 4));
}

}  // namespace
