// List views where the comparison of traces does not reach: their scroll bars, their pixels, and parents that do the
// unexpected while they are told something.
#include <commctrl.h>

#include <cstdlib>
#include <string>

#include "tests/platform/controls/control_test.h"

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 140;
constexpr UINT kSelected = LVIS_SELECTED | LVIS_FOCUSED;

class ListViewTest : public ControlTest {
protected:
    HWND create(int rows, int firstWidth = 80) {
        HWND list =
            add(WC_LISTVIEWA, "", LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_EDITLABELS, kWidth, kHeight);
        SendMessageA(list, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
        SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP);
        for (const int width : {firstWidth, 40}) {
            LVCOLUMNA column{};
            column.mask = LVCF_WIDTH;
            column.cx = width;
            SendMessageA(list, LVM_INSERTCOLUMNA, 9, reinterpret_cast<LPARAM>(&column));
        }
        for (int row = 0; row < rows; ++row) {
            std::string text = "row " + std::to_string(row);
            LVITEMA item{};
            item.mask = LVIF_TEXT | LVIF_PARAM;
            item.iItem = row;
            item.pszText = text.data();
            item.lParam = row;
            SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        }
        codes_.clear();
        return list;
    }
    static HWND headerOf(HWND list) { return reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0)); }
    static HWND editOf(HWND list) { return reinterpret_cast<HWND>(SendMessageA(list, LVM_GETEDITCONTROL, 0, 0)); }
    static int topOf(HWND list) { return static_cast<int>(SendMessageA(list, LVM_GETTOPINDEX, 0, 0)); }
    static RECT rectOf(HWND list, int row, int part) {
        RECT rect = {part, 0, 0, 0};
        SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    static void setState(HWND list, int row, UINT state, UINT mask) {
        LVITEMA item{};
        item.state = state;
        item.stateMask = mask;
        SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    static void drag(HWND window, int x, int y, int toX, int toY) {
        SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(toX, toY));
        SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(toX, toY));
    }
    static void click(HWND window, int x, int y) { drag(window, x, y, x, y); }
    static void sort(HWND list, PFNLVCOMPARE compare, HWND argument = nullptr) {
        SendMessageA(list, LVM_SORTITEMS, reinterpret_cast<WPARAM>(argument), reinterpret_cast<LPARAM>(compare));
    }

    static LRESULT usualAnswer(UINT code) {
        return code == LVN_ENDLABELEDITA ? TRUE : code == NM_CUSTOMDRAW ? CDRF_NOTIFYITEMDRAW : 0;
    }
    // All that a user and a page do, so that every notification is sent.
    static void useInEveryWay(HWND list, HWND parent) {
        HWND header = headerOf(list);
        const RECT label = rectOf(list, 1, LVIR_LABEL);
        SetFocus(list);
        for (const LONG x : {label.left - 5, label.left + 5, label.left + 5}) {
            click(list, x, label.top + 3);
        }
        SendMessageA(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(label.left + 5, label.top + 3));
        SendMessageA(list, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(label.left + 5, label.top + 3));
        SendMessageA(list, WM_RBUTTONUP, 0, MAKELPARAM(label.left + 5, label.top + 3));
        for (const WPARAM key : {VK_DOWN, VK_SPACE, VK_RETURN}) {
            SendMessageA(list, WM_KEYDOWN, key, 1);
        }
        click(header, 20, 5);
        drag(header, 20, 5, 110, 5);
        drag(header, 40, 5, 60, 5);
        SendMessageA(header, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(60, 5));
        RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        SendMessageA(list, LVM_EDITLABELA, 1, 0);
        SendMessageA(editOf(list), WM_CHAR, 'x', 1);
        SetFocus(parent);
        SendMessageA(list, LVM_DELETEITEM, 0, 0);
        SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
    }
};

TEST_F(ListViewTest, MayBeDestroyedOrLoseItsRowsWheneverItTells) {
    for (const bool losesRows : {false, true}) {
        int moment = 0;
        for (bool happens = true; happens; ++moment) {
            HWND list = create(3);
            int told = 0;
            hook_ = [&](UINT, UINT code) -> LRESULT {
                const int now = told++;
                if (losesRows && now >= moment && now < moment + 9) {
                    SendMessageA(list, LVM_DELETEITEM, static_cast<WPARAM>(now % 2), 0);
                } else if (!losesRows && now == moment) {
                    DestroyWindow(list);
                }
                return usualAnswer(code);
            };
            useInEveryWay(list, parent_);
            hook_ = nullptr;
            happens = told > moment;
            EXPECT_EQ(IsWindow(list) != FALSE, losesRows || !happens) << moment;
            EXPECT_EQ(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0), 0) << moment;
            EXPECT_EQ(GetCapture(), nullptr) << moment;
            DestroyWindow(list);
        }
        EXPECT_GT(moment, 60);
    }
}

TEST_F(ListViewTest, KeepsItsRowsWhateverTheComparisonDoes) {
    HWND list = create(40);
    for (int times = 0; times < 10000; ++times) {
        sort(list, [](LPARAM, LPARAM, LPARAM) -> int { return std::rand() % 3 - 1; });
    }
    LRESULT sum = 0;
    for (int row = 0; row < 40; ++row) {
        LVITEMA item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        SendMessageA(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        sum += item.lParam;
    }
    EXPECT_EQ(sum, 40 * 39 / 2);
    sort(
        list,
        [](LPARAM a, LPARAM b, LPARAM window) -> int {
            SendMessageA(reinterpret_cast<HWND>(window), LVM_DELETEITEM, 0, 0);
            return static_cast<int>(b - a);
        },
        list);
    EXPECT_EQ(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0), 0);
    HWND other = create(4);
    sort(
        other, [](LPARAM, LPARAM, LPARAM window) -> int { return DestroyWindow(reinterpret_cast<HWND>(window)); },
        other);
    EXPECT_FALSE(IsWindow(other));
}

TEST_F(ListViewTest, IsScrolledByItsBarsInSilence) {
    HWND list = create(100, 200);
    const LONG bottom = kHeight - 17;
    click(list, kWidth - 5, bottom - 3);
    EXPECT_EQ(topOf(list), 1) << "arrow down";
    click(list, kWidth - 5, bottom - 25);
    EXPECT_EQ(topOf(list) - 1, SendMessageA(list, LVM_GETCOUNTPERPAGE, 0, 0)) << "below the thumb";
    SendMessageA(list, LVM_ENSUREVISIBLE, 0, FALSE);
    drag(list, kWidth - 5, 20, kWidth - 5, 3 * kHeight);
    EXPECT_EQ(topOf(list), 100 - SendMessageA(list, LVM_GETCOUNTPERPAGE, 0, 0)) << "thumb dragged to the end";
    drag(list, 20, kHeight - 5, 3 * kWidth, kHeight - 5);
    EXPECT_EQ(rectOf(list, 0, LVIR_BOUNDS).right, kWidth - 17) << "thumb dragged to the right end";
    RECT header;
    GetWindowRect(headerOf(list), &header);
    EXPECT_EQ(header.left, rectOf(list, 0, LVIR_BOUNDS).left) << "the header goes with the rows";
    EXPECT_TRUE(codes_.empty()) << "scrolling is not told";
}

}  // namespace
