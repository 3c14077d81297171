// The tab control where it is meant to differ from, or goes beyond, what traces compare.
#include <commctrl.h>

#include "tests/platform/controls/control_test.h"

namespace {

class TabTest : public ControlTest {
protected:
    HWND create() {
        constexpr const char* kCaptions[] = {"Projekt", "Allm\xE4nt", "F\xF6rbind",      "Korsreferens",
                                             "Externt", "Blanketter", "Texter/F\xE4rger"};
        HWND tabs = add(WC_TABCONTROLA, "", 0, 560, 200);
        SendMessageA(tabs, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
        for (const char* caption : kCaptions) {
            TCITEMA item{};
            item.mask = TCIF_TEXT;
            item.pszText = const_cast<LPSTR>(caption);
            SendMessageA(tabs, TCM_INSERTITEMA, 99, reinterpret_cast<LPARAM>(&item));
        }
        return tabs;
    }
    static LRESULT selection(HWND tabs) { return SendMessageA(tabs, TCM_GETCURSEL, 0, 0); }
};

TEST_F(TabTest, SurvivesLosingItemsOrItsWindowWhileItAsks) {
    HWND tabs = create();
    hook_ = [&](UINT, UINT code) -> LRESULT {
        while (code == TCN_SELCHANGING && SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0) > 2) {
            SendMessageA(tabs, TCM_DELETEITEM, 2, 0);
        }
        return 0;
    };
    SendMessageA(tabs, TCM_SETCURFOCUS, 5, 0);
    EXPECT_EQ(selection(tabs), 0);
    hook_ = [&](UINT, UINT code) -> LRESULT { return code == TCN_SELCHANGING && DestroyWindow(tabs) == 0; };
    SendMessageA(tabs, TCM_SETCURFOCUS, 1, 0);
    EXPECT_FALSE(IsWindow(tabs));
}

}  // namespace
