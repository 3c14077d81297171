// One scroll bar as a window of its own. It tells its parent by WM_VSCROLL or WM_HSCROLL what the user wants; the
// parent sets where it then stands (SBM_SETSCROLLINFO). Keys and bars that are disabled are not offered.
#pragma once

#include "platform/controls/list_scroll_bar.h"

namespace platform {

class ScrollBar {
public:
    explicit ScrollBar(HWND window);

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    void onSbmSetScrollInfo(const SCROLLINFO& info);
    void onWmLButtonDown(POINT at);
    void onWmMouseMove(POINT at);
    void onWmTimer();
    void onWmCaptureChanged();
    void onWmPaint(HDC given) const;
    void layout();
    void tell(ListScrollBar::Part part, POINT at) const;

    HWND window_;
    bool isVertical_;
    ListScrollBar bar_;
    SCROLLINFO info_{};
};

}  // namespace platform
