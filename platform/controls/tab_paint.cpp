// How the tab control looks: raised tabs with cut corners, the selected one standing in front of its neighbours and
// joined to the raised page area.
#include "platform/controls/control_base.h"
#include "platform/controls/tab_control.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

// Pixels at 96 dots an inch.
constexpr int kGrow = 2;        // By which the selected tab is larger on every side.
constexpr int kFocusInset = 3;  // From the tab's sides to the focus rectangle.

void fill(HDC dc, LONG left, LONG top, LONG right, LONG bottom, int colour) {
    const RECT rect = {left, top, right, bottom};
    FillRect(dc, &rect, GetSysColorBrush(colour));
}

// The outline of one tab, open at the bottom. The bottom of the ground lies `join` pixels under that of the sides.
void paintOutline(HDC dc, const RECT& tab, int join) {
    const LONG line = lineWidth();
    const RECT inner = {tab.left + line, tab.top + line, tab.right - line, tab.bottom};
    const RECT innermost = {inner.left + line, inner.top + line, inner.right - line, tab.bottom};
    fill(dc, inner.left, inner.top, innermost.right, tab.bottom + join, COLOR_BTNFACE);
    fill(dc, tab.left, innermost.top, inner.left, tab.bottom, COLOR_3DHIGHLIGHT);
    fill(dc, inner.left, inner.top, innermost.left, innermost.top, COLOR_3DHIGHLIGHT);
    fill(dc, innermost.left, tab.top, innermost.right, inner.top, COLOR_3DHIGHLIGHT);
    fill(dc, innermost.right, innermost.top, inner.right, tab.bottom, COLOR_3DSHADOW);
    fill(dc, innermost.right, inner.top, inner.right, innermost.top, COLOR_3DDKSHADOW);
    fill(dc, inner.right, innermost.top, tab.right, tab.bottom, COLOR_3DDKSHADOW);
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
        const int grow = toScale(kGrow);
        tab = {tab.left - grow, tab.top - grow, tab.right + grow, tab.bottom};
        OffsetRect(&caption, 0, -lineWidth());
    }
    paintOutline(dc, tab, inFront ? toScale(kGrow) : 0);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    drawCaption(dc, items_[static_cast<std::size_t>(index)].text, caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE,
                true);
    if (inFront && GetFocus() == window_) {
        RECT focus = caption;
        InflateRect(&focus, -toScale(kFocusInset), -lineWidth());
        DrawFocusRect(dc, &focus);
    }
}

}  // namespace platform
