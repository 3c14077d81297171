// Buttons where the comparison of traces does not reach: pixels.
#include "tests/platform/controls/control_test.h"

namespace {

using ButtonTest = ControlTest;

TEST_F(ButtonTest, ShowsItsStateInTheMarkAndTheCaption) {
    const COLORREF black = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF shadow = GetSysColor(COLOR_3DSHADOW);
    constexpr int kMark = 13;
    for (const DWORD style : {DWORD{BS_AUTOCHECKBOX}, DWORD{BS_AUTORADIOBUTTON}}) {
        HWND button = add("Button", "Text", style, 90, 16);
        const Painted clear(button, 90, 16);
        SendMessageA(button, BM_SETCHECK, BST_CHECKED, 0);
        const Painted checked(button, 90, 16);
        SetWindowLongA(button, GWL_STYLE, GetWindowLongA(button, GWL_STYLE) | WS_DISABLED);
        const Painted disabled(button, 90, 16);
        EXPECT_LT(clear.count(black, 0, kMark), checked.count(black, 0, kMark));
        EXPECT_GT(checked.count(black, kMark, 90), 0);
        EXPECT_EQ(disabled.count(black, kMark, 90), 0) << "the caption is engraved";
        EXPECT_GT(disabled.count(shadow, kMark, 90), 0);
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, GroupBoxPaintsOnlyFrameAndCaption) {
    HWND group = add("Button", "Grupp", BS_GROUPBOX, 90, 60);
    const Painted picture(group, 90, 60);
    EXPECT_EQ(picture.at(45, 40), kGround);
    EXPECT_EQ(picture.at(0, 40), GetSysColor(COLOR_3DSHADOW));
    EXPECT_EQ(picture.at(1, 40), GetSysColor(COLOR_3DHIGHLIGHT));
    POINT inside = {45, 40};
    ClientToScreen(group, &inside);
    EXPECT_EQ(SendMessageA(group, WM_NCHITTEST, 0, MAKELPARAM(inside.x, inside.y)), HTTRANSPARENT);
}

}  // namespace
