// How the tab control looks: raised tabs with cut corners, the selected one standing in front of its neighbours and
// joined to the raised page area.
#include "platform/controls/control_base.h"
#include "platform/controls/tab_control.h"

namespace platform {
namespace {

constexpr int kGrow = 2;        // By which the selected tab is larger on every side.
constexpr int kFocusInset = 3;  // From the tab's sides to the focus rectangle.

void fill(HDC dc, LONG left, LONG top, LONG right, LONG bottom, int colour) {
    const RECT rect = {left, top, right, bottom};
    FillRect(dc, &rect, GetSysColorBrush(colour));
}

// The outline of one tab, open at the bottom. The bottom of the ground lies `join` pixels under that of the sides.
void paintOutline(HDC dc, const RECT& tab, int join) {
    fill(dc, tab.left + 1, tab.top + 1, tab.right - 2, tab.bottom + join, COLOR_BTNFACE);
    fill(dc, tab.left, tab.top + 2, tab.left + 1, tab.bottom, COLOR_3DHIGHLIGHT);
    fill(dc, tab.left + 1, tab.top + 1, tab.left + 2, tab.top + 2, COLOR_3DHIGHLIGHT);
    fill(dc, tab.left + 2, tab.top, tab.right - 2, tab.top + 1, COLOR_3DHIGHLIGHT);
    fill(dc, tab.right - 2, tab.top + 2, tab.right - 1, tab.bottom, COLOR_3DSHADOW);
    fill(dc, tab.right - 2, tab.top + 1, tab.right - 1, tab.top + 2, COLOR_3DDKSHADOW);
    fill(dc, tab.right - 1, tab.top + 2, tab.right, tab.bottom, COLOR_3DDKSHADOW);
}

}  // namespace

void TabControl::onWmPaint(HDC given) {
    layout();
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void TabControl::paint(HDC dc) const {
    const SelectedFont selected(dc, font_);
    RECT body;
    GetClientRect(window_, &body);
    body.top = rowsBottom();
    DrawEdge(dc, &body, EDGE_RAISED, BF_RECT | BF_SOFT);
    for (int i = 0; i < count(); ++i) {
        if (i != selected_) {
            paintItem(dc, i);
        }
    }
    if (isItem(selected_)) {
        paintItem(dc, selected_);
    }
}

void TabControl::paintItem(HDC dc, int index) const {
    RECT tab = itemRect(index);
    RECT caption = tab;
    const bool inFront = index == selected_;
    if (inFront) {
        tab = {tab.left - kGrow, tab.top - kGrow, tab.right + kGrow, tab.bottom};
        OffsetRect(&caption, 0, -1);
    }
    paintOutline(dc, tab, inFront ? kGrow : 0);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    drawCaption(dc, items_[static_cast<std::size_t>(index)].text, caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE,
                true);
    if (inFront && GetFocus() == window_) {
        RECT focus = caption;
        InflateRect(&focus, -kFocusInset, -1);
        DrawFocusRect(dc, &focus);
    }
}

}  // namespace platform
