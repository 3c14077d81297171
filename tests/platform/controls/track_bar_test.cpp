// What a track bar does where the comparison of traces does not reach: a pointer that rests somewhere.
#include "tests/platform/controls/control_test.h"

#include <commctrl.h>

namespace {

class TrackBarTest : public ControlTest {
protected:
    HWND addBar() { return add(TRACKBAR_CLASSA, "", TBS_BOTH | TBS_NOTICKS, 146, 24); }
    static int positionOf(HWND bar) { return static_cast<int>(SendMessageA(bar, TBM_GETPOS, 0, 0)); }
    static void mouse(HWND bar, UINT message, int x, WPARAM keys = MK_LBUTTON) {
        SendMessageA(bar, message, keys, MAKELPARAM(x, 12));
    }
};

TEST_F(TrackBarTest, EndsADragWhoseReleaseWentElsewhere) {
    HWND bar = addBar();
    mouse(bar, WM_LBUTTONDOWN, 13);
    mouse(bar, WM_MOUSEMOVE, 60);
    const int position = positionOf(bar);
    EXPECT_GT(position, 0);
    mouse(bar, WM_MOUSEMOVE, 90, 0);
    mouse(bar, WM_MOUSEMOVE, 100);
    EXPECT_EQ(positionOf(bar), position);
    EXPECT_EQ(GetCapture(), nullptr);
}

// The pointer rests in the corner of the screen, which is a point of the channel here.
TEST_F(TrackBarTest, PagesOnUntilTheThumbIsUnderThePointer) {
    HWND bar = addBar();
    SetWindowPos(bar, nullptr, -80, -12, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    mouse(bar, WM_LBUTTONDOWN, 80);
    for (const int expected : {40, 60, 60}) {
        SendMessageA(bar, WM_TIMER, 1, 0);
        EXPECT_EQ(positionOf(bar), expected);
    }
    mouse(bar, WM_LBUTTONUP, 80, 0);
    SendMessageA(bar, TBM_SETPOS, TRUE, 0);
    SendMessageA(bar, WM_TIMER, 1, 0);
    EXPECT_EQ(positionOf(bar), 0);
}

}  // namespace
