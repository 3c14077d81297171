// What controls of every class have to stand, where the comparison of traces does not reach.
#include "tests/platform/controls/control_test.h"

#include <commctrl.h>

namespace {

using AnyControlTest = ControlTest;

constexpr DWORD kEditableCombo = CBS_DROPDOWN | WS_VSCROLL;
constexpr DWORD kListCombo = CBS_DROPDOWNLIST | WS_VSCROLL;
constexpr DWORD kDrawnCombo = kListCombo | CBS_OWNERDRAWFIXED;

void CALLBACK pressEnter(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    PostMessageA(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
}

// Messages that a class does not know do it no harm.
void useInEveryWay(HWND control, HWND list, HWND parent) {
    SetFocus(control);
    for (const char key : {'x', 'y', '\x1A'}) {
        SendMessageA(GetFocus(), WM_CHAR, static_cast<WPARAM>(key), 1);
    }
    SendMessageA(control, BM_CLICK, 0, 0);
    for (const UINT key : {VK_DOWN, VK_RIGHT}) {
        SendMessageA(control, WM_KEYDOWN, key, 1);
        SendMessageA(control, WM_KEYUP, key, 1);
    }
    for (const int x : {13, 120}) {
        SendMessageA(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 12));
        SendMessageA(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(60, 12));
        SendMessageA(control, WM_LBUTTONUP, 0, MAKELPARAM(60, 12));
    }
    SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    for (const LPARAM point : {MAKELPARAM(5, 5), MAKELPARAM(-5, -5)}) {
        SendMessageA(control, CB_SHOWDROPDOWN, TRUE, 0);
        SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageA(list, WM_LBUTTONUP, 0, point);
    }
    SetWindowTextA(control, "set");
    UpdateWindow(control);
    SetFocus(parent);
    SendMessageA(control, CB_DELETESTRING, 0, 0);
}

TEST_F(AnyControlTest, MayBeDestroyedWheneverItTells) {
    const struct {
        const char* windowClass;
        DWORD style;
        int leastTold;
    } kCases[] = {
        {"Button", BS_AUTOCHECKBOX | BS_NOTIFY, 5},
        {"Button", BS_OWNERDRAW, 10},
        {"Edit", ES_AUTOHSCROLL, 10},
        {"ComboBox", kEditableCombo, 15},
        {"ComboBox", kListCombo, 15},
        {"ComboBox", kDrawnCombo, 15},
        {TRACKBAR_CLASSA, TBS_BOTH | TBS_NOTICKS, 10},
    };
    for (const auto& row : kCases) {
        int moment = 0;
        for (bool destroyed = true; destroyed; ++moment) {
            SCOPED_TRACE(row.windowClass + std::string(" ") + std::to_string(row.style) + ": " +
                         std::to_string(moment));
            HWND control = add(row.windowClass, "abcd", row.style, 146, 120);
            SendMessageA(control, EM_SETLIMITTEXT, 5, 0);
            SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("entry"));
            COMBOBOXINFO info{};
            info.cbSize = sizeof info;
            SendMessageA(control, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
            int told = 0;
            hook_ = [&](UINT, UINT) -> LRESULT {
                if (told++ == moment) {
                    DestroyWindow(control);
                }
                return 0;
            };
            useInEveryWay(control, info.hwndList, parent_);
            hook_ = nullptr;
            destroyed = told > moment;
            EXPECT_NE(destroyed, IsWindow(control) != FALSE);
            DestroyWindow(control);
            EXPECT_FALSE(IsWindow(info.hwndList));
            EXPECT_EQ(GetCapture(), nullptr);
        }
        EXPECT_GT(moment, row.leastTold) << row.windowClass << ' ' << row.style;
    }
}

// The field that a press leaves brings up a message box, which gets the release.
TEST_F(AnyControlTest, LetsGoOfAPressThatLedToAMessageBox) {
    const std::pair<const char*, DWORD> kCases[] = {
        {"Button", BS_PUSHBUTTON}, {"Button", BS_AUTOCHECKBOX},  {"Button", BS_AUTORADIOBUTTON},
        {"Edit", ES_AUTOHSCROLL},  {"ComboBox", kEditableCombo}, {"ComboBox", kListCombo},
        {"ListBox", LBS_NOTIFY},   {TRACKBAR_CLASSA, TBS_BOTH},  {WC_LISTVIEWA, LVS_REPORT}};
    for (const bool isRefused : {true, false}) {
        for (const auto& [windowClass, style] : kCases) {
            HWND field = add("Edit", "wrong", 0, 90, 24);
            HWND control = add(windowClass, "", style | WS_TABSTOP, 90, 24);
            SendMessageA(control, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("entry"));
            SetFocus(field);
            int boxes = 0;
            hook_ = [&](UINT, UINT code) -> LRESULT {
                if (code == EN_KILLFOCUS && boxes++ == 0) {
                    PostMessageA(control, WM_LBUTTONUP, 0, MAKELPARAM(-500, -500));
                    SetTimer(nullptr, 0, 10, pressEnter);
                    MessageBoxA(parent_, "wrong", "field", MB_OK);
                    if (isRefused) {
                        SetFocus(field);
                    }
                }
                return 0;
            };
            SendMessageA(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
            EXPECT_GT(boxes, 0);
            EXPECT_FALSE(SendMessageA(control, BM_GETSTATE, 0, 0) & BST_PUSHED) << windowClass << ' ' << style;
            EXPECT_EQ(GetCapture(), nullptr) << windowClass << ' ' << style << ": the next press would be lost";
            hook_ = nullptr;
            DestroyWindow(control);
            DestroyWindow(field);
        }
    }
}

TEST_F(AnyControlTest, LooksDisabledAsSoonAsItsStyleSaysSo) {
    const std::pair<const char*, DWORD> kCases[] = {
        {"Edit", ES_AUTOHSCROLL}, {"ComboBox", kEditableCombo}, {"ComboBox", kListCombo}};
    for (const auto& [windowClass, style] : kCases) {
        HWND control = add(windowClass, "text", style, 120, 20);
        SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("text"));
        SendMessageA(control, CB_SETCURSEL, 0, 0);
        HWND shown = style == kEditableCombo ? GetWindow(control, GW_CHILD) : control;
        RECT client;
        GetClientRect(shown, &client);
        const Painted enabled(shown, client.right, client.bottom);
        SetWindowLongA(control, GWL_STYLE, GetWindowLongA(control, GWL_STYLE) | static_cast<LONG>(WS_DISABLED));
        const Painted disabled(shown, client.right, client.bottom);
        EXPECT_EQ(enabled.at(client.right - 30, 6), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(disabled.at(client.right - 30, 6), GetSysColor(COLOR_BTNFACE));
        EXPECT_GT(disabled.count(GetSysColor(COLOR_GRAYTEXT), 0, client.right - 30), 0);
        EXPECT_EQ(enabled.count(kGround, 0, client.right) + disabled.count(kGround, 0, client.right), 0)
            << "part of the field is not painted";
    }
}

TEST_F(AnyControlTest, ShowsTheStateOfAButtonInTheMarkAndTheCaption) {
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

}  // namespace
