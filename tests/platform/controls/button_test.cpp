// Buttons where the comparison of traces does not reach: pixels and lost releases.
#include "tests/platform/controls/control_test.h"

namespace {

using ButtonTest = ControlTest;

TEST_F(ButtonTest, ComesUpWhenTheReleaseWentElsewhere) {
    HWND button = add("Button", "Text", BS_PUSHBUTTON | BS_NOTIFY, 90, 24);
    hook_ = [&](UINT, UINT code) -> LRESULT {
        if (code == BN_SETFOCUS) {
            ReleaseCapture();  // As a message box does that opens on the way.
        }
        return 0;
    };
    SendMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_TRUE(SendMessageA(button, BM_GETSTATE, 0, 0) & BST_PUSHED);
    SendMessageA(button, WM_MOUSEMOVE, 0, MAKELPARAM(6, 5));
    EXPECT_FALSE(SendMessageA(button, BM_GETSTATE, 0, 0) & BST_PUSHED);
    EXPECT_EQ(codes_, (std::vector<UINT>{BN_SETFOCUS}));
}

TEST_F(ButtonTest, IsNotPressedWhenTheFocusIsTakenBack) {
    HWND field = add("Edit", "Text", 0, 90, 24);
    HWND button = add("Button", "Text", BS_AUTOCHECKBOX, 90, 24);
    SetFocus(field);
    hook_ = [&](UINT, UINT code) -> LRESULT {
        if (code == EN_KILLFOCUS) {
            SendMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));  // The release comes while a message box is up.
            SetFocus(field);
        }
        return 0;
    };
    SendMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_FALSE(SendMessageA(button, BM_GETSTATE, 0, 0) & BST_PUSHED);
    EXPECT_EQ(GetCapture(), nullptr) << "the next press would be lost";
    hook_ = nullptr;
}

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
