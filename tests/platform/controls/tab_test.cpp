// The tab control where it is meant to differ from, or goes beyond, what traces compare.
#include <commctrl.h>

#include "tests/platform/controls/control_test.h"

namespace {

using TabTest = ControlTest;

TEST_F(TabTest, SurvivesLosingItemsOrItsWindowWhileItAsks) {
    HWND tabs = add(WC_TABCONTROLA, "", 0, 560, 200);
    for (int i = 0; i < 7; ++i) {
        TCITEMA item{};
        SendMessageA(tabs, TCM_INSERTITEMA, 99, reinterpret_cast<LPARAM>(&item));
    }
    hook_ = [&](UINT, UINT code) -> LRESULT {
        while (code == TCN_SELCHANGING && SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0) > 2) {
            SendMessageA(tabs, TCM_DELETEITEM, 2, 0);
        }
        return 0;
    };
    SendMessageA(tabs, TCM_SETCURFOCUS, 5, 0);
    EXPECT_EQ(SendMessageA(tabs, TCM_GETCURSEL, 0, 0), 0);
    hook_ = [&](UINT, UINT code) -> LRESULT { return code == TCN_SELCHANGING && DestroyWindow(tabs) == 0; };
    SendMessageA(tabs, TCM_SETCURFOCUS, 1, 0);
    EXPECT_FALSE(IsWindow(tabs));
}

}  // namespace
