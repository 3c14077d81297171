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

}  // namespace
