// What the user marks, which systems with an X server give to other programs.
#include "tests/platform/controls/control_test.h"

#include <tavrikdisplay.h>

namespace {

constexpr int kWidth = 100;

class EditTest : public ControlTest {
protected:
    HWND addEdit(const char* text) {
        HWND edit = add("Edit", text, ES_AUTOHSCROLL, kWidth, 20);
        SendMessageA(edit, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        return edit;
    }

    static std::string textOf(HWND edit) {
        char text[64] = "";
        GetWindowTextA(edit, text, sizeof text);
        return text;
    }
};

TEST_F(EditTest, WhatTheUserMarksIsInsertedByTheMiddleButton) {
    HWND from = addEdit("marked by the user");
    HWND to = addEdit("end");
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
