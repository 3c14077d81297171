// Lists and combo boxes where the comparison of traces does not reach: the scroll bar and the place of the open list.
#include "tests/platform/controls/control_test.h"

namespace {

class ListTest : public ControlTest {
protected:
    static constexpr int kWidth = 120;

    HWND addList(DWORD style, int entries) {
        HWND list = add("ListBox", "", style | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, kWidth, 100);
        fill(list, LB_ADDSTRING, entries);
        return list;
    }
    HWND addCombo(DWORD style, int entries, int height = 120) {
        HWND combo = add("ComboBox", "", style | WS_VSCROLL, kWidth, height);
        fill(combo, CB_ADDSTRING, entries);
        return combo;
    }
    static void fill(HWND control, UINT message, int entries) {
        for (int i = 0; i < entries; ++i) {
            const char text[] = {static_cast<char>('a' + i), 'x', '\0'};
            SendMessageA(control, message, 0, reinterpret_cast<LPARAM>(text));
        }
    }
    static HWND listOf(HWND combo) {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        SendMessageA(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return info.hwndList;
    }
    static int topOf(HWND list) { return static_cast<int>(SendMessageA(list, LB_GETTOPINDEX, 0, 0)); }
    static void click(HWND list, int x, int y) {
        SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageA(list, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
};

TEST_F(ListTest, IsScrolledByItsBarWithoutSelecting) {
    HWND list = addList(WS_VSCROLL, 24);
    constexpr int kBar = kWidth - 5;
    constexpr int kBottom = 100;
    click(list, kBar, kBottom - 3);
    EXPECT_EQ(topOf(list), 1) << "arrow down";
    click(list, kBar, kBottom - 20);
    const int page = topOf(list) - 1;
    EXPECT_GT(page, 1) << "below the thumb";
    click(list, kBar, 3);
    EXPECT_EQ(topOf(list), page) << "arrow up";
    SendMessageA(list, LB_SETTOPINDEX, 0, 0);
    SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(kBar, 20));
    SendMessageA(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(kBar, 3 * kBottom));
    SendMessageA(list, WM_LBUTTONUP, 0, MAKELPARAM(kBar, 3 * kBottom));
    EXPECT_EQ(topOf(list), 24 - page) << "thumb dragged to the end";
    EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), LB_ERR);
    EXPECT_TRUE(codes_ == std::vector<UINT>{LBN_SETFOCUS}) << "scrolling is not told";
    EXPECT_EQ(GetCapture(), nullptr);
}

using ComboBoxTest = ListTest;

TEST_F(ComboBoxTest, OpensItsListBelowOrAboveAndNoHigherThanItsEntries) {
    HWND combo = addCombo(CBS_DROPDOWNLIST, 3);
    HWND list = listOf(combo);
    RECT closed;
    RECT open;
    const auto measure = [&](int y) {
        MoveWindow(parent_, 0, y, 700, 300, FALSE);
        SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
        GetWindowRect(combo, &closed);
        GetWindowRect(list, &open);
        SendMessageA(combo, CB_SHOWDROPDOWN, FALSE, 0);
    };
    measure(0);
    EXPECT_EQ(open.top, closed.bottom);
    EXPECT_EQ(open.bottom - open.top, 3 * SendMessageA(combo, CB_GETITEMHEIGHT, 0, 0) + 2);
    measure(GetSystemMetrics(SM_CYSCREEN) - (closed.bottom - closed.top));
    EXPECT_EQ(open.bottom, closed.top);
    fill(combo, CB_ADDSTRING, 20);
    measure(0);
    EXPECT_LT(open.bottom - open.top, 120 - (closed.bottom - closed.top) + 1) << "the height it was created with";
}

TEST_F(ComboBoxTest, KeepsItsListWhileTheBarIsUsedAndClosesItByAPressElsewhere) {
    HWND combo = addCombo(CBS_DROPDOWNLIST, 20);
    HWND list = listOf(combo);
    SetFocus(combo);
    SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
    RECT client;
    GetClientRect(list, &client);
    click(list, client.right - 4, client.bottom - 3);
    EXPECT_EQ(topOf(list), 1);
    EXPECT_TRUE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(GetCapture(), list);
    EXPECT_EQ(GetFocus(), combo);
    codes_.clear();
    SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(client.right + 50, 5));
    EXPECT_EQ(codes_, (std::vector<UINT>{CBN_SELENDCANCEL, CBN_CLOSEUP}));
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace
