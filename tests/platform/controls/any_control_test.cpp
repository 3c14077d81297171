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
    SendMessageA(control, WM_KEYDOWN, VK_DOWN, 1);
    SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    for (const LPARAM point : {MAKELPARAM(5, 5), MAKELPARAM(-5, -5)}) {
        SendMessageA(control, CB_SHOWDROPDOWN, TRUE, 0);
        SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageA(list, WM_LBUTTONUP, 0, point);
    }
    SetWindowTextA(control, "set");
    SetFocus(parent);
    SendMessageA(control, CB_DELETESTRING, 0, 0);
}

TEST_F(AnyControlTest, MayBeDestroyedByWhoeverItNotifies) {
    const struct {
        const char* windowClass;
        DWORD style;
        UINT message;
        std::vector<UINT> codes;
    } kCases[] = {
        {"Button", BS_AUTOCHECKBOX | BS_NOTIFY, WM_COMMAND, {BN_SETFOCUS, BN_CLICKED, BN_KILLFOCUS}},
        {"Button", BS_OWNERDRAW, WM_DRAWITEM, {0}},
        {"Edit", ES_AUTOHSCROLL, WM_COMMAND, {EN_SETFOCUS, EN_MAXTEXT, EN_UPDATE, EN_CHANGE, EN_KILLFOCUS}},
        {"ComboBox", kEditableCombo, WM_COMMAND, {CBN_EDITUPDATE, CBN_EDITCHANGE, CBN_SELCHANGE, CBN_SELENDCANCEL}},
        {"ComboBox", kEditableCombo, WM_COMMAND, {CBN_SETFOCUS, CBN_DROPDOWN, CBN_CLOSEUP, CBN_KILLFOCUS}},
        {"ComboBox", kListCombo, WM_COMMAND, {CBN_SETFOCUS, CBN_DROPDOWN, CBN_CLOSEUP, CBN_KILLFOCUS}},
        {"ComboBox", kListCombo, WM_COMMAND, {CBN_SELCHANGE, CBN_SELENDOK, CBN_SELENDCANCEL}},
        {"ComboBox", kDrawnCombo, WM_DRAWITEM, {0}},
        {"ComboBox", kDrawnCombo, WM_DELETEITEM, {0}},
    };
    for (const auto& row : kCases) {
        for (const UINT code : row.codes) {
            HWND control = add(row.windowClass, "abcd", row.style, 120, 120);
            SendMessageA(control, EM_SETLIMITTEXT, 5, 0);
            SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("entry"));
            COMBOBOXINFO info{};
            info.cbSize = sizeof info;
            SendMessageA(control, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
            bool destroyed = false;
            hook_ = [&](UINT message, UINT sent) -> LRESULT {
                if (message == row.message && sent == code && !std::exchange(destroyed, true)) {
                    DestroyWindow(control);
                }
                return 0;
            };
            useInEveryWay(control, info.hwndList, parent_);
            hook_ = nullptr;
            EXPECT_TRUE(destroyed) << row.windowClass << ' ' << code;
            EXPECT_FALSE(IsWindow(control) || IsWindow(info.hwndList)) << row.windowClass << ' ' << code;
            EXPECT_EQ(GetCapture(), nullptr) << row.windowClass << ' ' << code;
        }
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

}  // namespace
