// How a header looks: raised heads, the pressed one sunken, and a mark where a dragged column would land.
#include "platform/controls/control_base.h"
#include "platform/controls/header_control.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

// Pixels at 96 dots an inch.
constexpr int kCaptionMargin = 6;  // At both sides of a caption.
constexpr int kMarkWidth = 2;      // Of the insertion mark.

}  // namespace

void HeaderControl::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void HeaderControl::paint(HDC dc) const {
    const SelectedFont selected(dc, font_);
    RECT rest;
    GetClientRect(window_, &rest);
    for (const int column : order_) {
        const RECT rect = rectOf(column);
        if (RectVisible(dc, &rect)) {
            paintColumn(dc, column);
        }
        rest.left = rect.right;
    }
    if (rest.left < rest.right) {
        DrawEdge(dc, &rest, EDGE_RAISED, BF_RECT | BF_SOFT | BF_MIDDLE);
    }
    if (const int own = placeOf(pressed_); dropPlace_ != kNone && dropPlace_ != own) {
        const RECT there = rectOf(columnAt(dropPlace_));
        const LONG x = dropPlace_ > own ? there.right : there.left;
        const RECT mark = {x - toScale(kMarkWidth) / 2, 0, x + toScale(kMarkWidth) / 2, rest.bottom};
        FillRect(dc, &mark, GetSysColorBrush(COLOR_HIGHLIGHT));
    }
}

void HeaderControl::paintColumn(HDC dc, int column) const {
    RECT rect = rectOf(column);
    const bool down = looksDown_ && column == pressed_;
    DrawEdge(dc, &rect, down ? BDR_SUNKENOUTER : EDGE_RAISED, BF_RECT | BF_SOFT | BF_MIDDLE | (down ? BF_FLAT : 0U));
    InflateRect(&rect, -toScale(kCaptionMargin), 0);
    if (rect.left >= rect.right) {
        return;
    }
    if (down) {
        OffsetRect(&rect, lineWidth(), lineWidth());
    }
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    drawCaption(dc, at(column).text, rect, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS, true);
}

}  // namespace platform
