// One scroll bar as a window of its own, standing. It tells its parent by WM_VSCROLL what the user wants; the parent
// sets where it then stands (SBM_SETSCROLLINFO). Keys, lying bars and bars that are disabled are not offered.
#pragma once

#include "platform/controls/list_scroll_bar.h"

namespace platform {

class ScrollBar {
public:
    explicit ScrollBar(HWND window) : window_(window) {}

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
    ListScrollBar bar_;
    SCROLLINFO info_{};
};

}  // namespace platform
