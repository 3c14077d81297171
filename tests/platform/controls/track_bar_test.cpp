// What a track bar does where the comparison of traces does not reach: a pointer that rests somewhere, a parent that
// destroys it.
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
    static void useInEveryWay(HWND bar) {
        SetFocus(bar);
        SendMessageA(bar, WM_KEYDOWN, VK_RIGHT, 1);
        SendMessageA(bar, WM_KEYUP, VK_RIGHT, 1);
        mouse(bar, WM_LBUTTONDOWN, 13);
        mouse(bar, WM_MOUSEMOVE, 60);
        mouse(bar, WM_LBUTTONUP, 60, 0);
        mouse(bar, WM_LBUTTONDOWN, 120);
        mouse(bar, WM_LBUTTONUP, 120, 0);
        UpdateWindow(bar);
    }
};

TEST_F(TrackBarTest, MayBeDestroyedByWhateverItTells) {
    int destroyedAt = 0;
    for (bool destroyed = true; destroyed; ++destroyedAt) {
        HWND bar = addBar();
        int told = 0;
        hook_ = [&](UINT, UINT) -> LRESULT {
            if (told++ == destroyedAt) {
                DestroyWindow(bar);
            }
            return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
        };
        useInEveryWay(bar);
        hook_ = nullptr;
        EXPECT_EQ(GetCapture(), nullptr) << destroyedAt;
        destroyed = !IsWindow(bar);
        DestroyWindow(bar);
    }
    EXPECT_GT(destroyedAt, 25);  // Moves, ends of tracking, and each step of the drawing.
}

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
