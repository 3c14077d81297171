// The pixels of edits.
#include "tests/platform/controls/control_test.h"

#include <tavrikdisplay.h>

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

    static std::string textOf(HWND edit) {
        char text[64] = "";
        GetWindowTextA(edit, text, sizeof text);
        return text;
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

TEST_F(EditTest, WhatTheUserMarksIsInsertedByTheMiddleButton) {
    HWND from = addEdit(ES_AUTOHSCROLL, "marked by the user");
    HWND to = addEdit(ES_AUTOHSCROLL, "end");
    TavrikOfferSelection("line one\r\nline two");
    SendMessageA(from, EM_SETSEL, 0, 6);  // By the program.
    SendMessageA(to, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(0, 5));
    EXPECT_EQ(textOf(to), "line oneend");
    SendMessageA(from, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(4, 5));
    SendMessageA(from, WM_LBUTTONUP, 0, MAKELPARAM(4, 5));
    SendMessageA(to, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(kWidth - 4, 5));
    EXPECT_EQ(textOf(to), "line oneendmarked ");
    EXPECT_EQ(GetFocus(), to);
    SendMessageA(to, EM_SETREADONLY, TRUE, 0);
    SendMessageA(to, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(0, 5));
    EXPECT_EQ(textOf(to), "line oneendmarked ");
}

}  // namespace
