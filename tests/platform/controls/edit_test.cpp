// The pixels of edits.
#include "tests/platform/controls/control_test.h"

namespace {

constexpr int kWidth = 100;
constexpr int kHeight = 20;

class EditTest : public ControlTest {
protected:
    HWND addEdit(DWORD style, const char* text = "text") {
        HWND edit = add("Edit", text, style, kWidth, kHeight);
        SendMessageA(edit, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        return edit;
    }
    static void type(HWND edit, const char* text) {
        for (; *text; ++text) {
            SendMessageA(edit, WM_CHAR, static_cast<BYTE>(*text), 1);
        }
    }
};

TEST_F(EditTest, ShowsTheSelectionOnlyWithTheFocusUnlessToldOtherwise) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    for (const DWORD style : {DWORD{ES_AUTOHSCROLL}, DWORD{ES_AUTOHSCROLL | ES_NOHIDESEL}}) {
        HWND edit = addEdit(style);
        SendMessageA(edit, EM_SETSEL, 0, -1);
        const bool shown = Painted(edit, kWidth, kHeight).count(highlight, 0, kWidth) > 0;
        EXPECT_EQ(shown, (style & ES_NOHIDESEL) != 0);
        SetFocus(edit);
        EXPECT_GT(Painted(edit, kWidth, kHeight).count(highlight, 0, kWidth), 0);
    }
}

TEST_F(EditTest, RepaintsFromTheTypedCharacterOn) {
    HWND edit = addEdit(ES_AUTOHSCROLL, "some text");
    SetFocus(edit);
    SendMessageA(edit, EM_SETSEL, 7, 7);
    UpdateWindow(edit);
    type(edit, "x");
    const int seventh = LOWORD(SendMessageA(edit, EM_POSFROMCHAR, 6, 0));
    RECT update{};
    ASSERT_TRUE(GetUpdateRect(edit, &update, FALSE));
    EXPECT_GT(update.left, seventh);
    EXPECT_LT(update.bottom - update.top, kHeight);
}

}  // namespace
