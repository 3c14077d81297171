// The scroll bar of a list box.
#include "platform/controls/list_scroll_bar.h"

#include <algorithm>

namespace platform {
namespace {

constexpr int kLeastThumb = 8;

}  // namespace

void ListScrollBar::layout(const RECT& client, int count, int page, int top, bool always) {
    count_ = count;
    page_ = std::max(page, 1);
    top_ = top;
    bar_ = client;
    const bool needed = always || hidden() > 0;
    bar_.left = needed ? std::max(client.left, client.right - GetSystemMetrics(SM_CXVSCROLL)) : client.right;
}

// Arrows share a bar that is too short for both.
int ListScrollBar::arrowHeight() const {
    return std::min(GetSystemMetrics(SM_CYVSCROLL), static_cast<int>(bar_.bottom - bar_.top) / 2);
}

RECT ListScrollBar::partRect(Part part) const {
    RECT rect = bar_;
    const int trackTop = bar_.top + arrowHeight();
    const int trackBottom = bar_.bottom - arrowHeight();
    const int track = trackBottom - trackTop;
    int thumb = hidden() > 0 ? std::max(track * page_ / count_, kLeastThumb) : 0;
    if (thumb > track) {
        thumb = 0;
    }
    const int thumbTop = hidden() > 0 ? trackTop + (track - thumb) * std::min(top_, hidden()) / hidden() : trackTop;
    switch (part) {
        case Part::LineUp:
            rect.bottom = trackTop;
            break;
        case Part::PageUp:
            rect.top = trackTop;
            rect.bottom = thumbTop;
            break;
        case Part::Thumb:
            rect.top = thumbTop;
            rect.bottom = thumbTop + thumb;
            break;
        case Part::PageDown:
            rect.top = thumbTop + thumb;
            rect.bottom = trackBottom;
            break;
        case Part::LineDown:
            rect.top = trackBottom;
            break;
        case Part::None:
            SetRectEmpty(&rect);
            break;
    }
    return rect;
}

ListScrollBar::Part ListScrollBar::partAt(POINT point) const {
    for (const Part part : {Part::LineUp, Part::PageUp, Part::Thumb, Part::PageDown, Part::LineDown}) {
        const RECT rect = partRect(part);
        if (PtInRect(&rect, point)) {
            return part;
        }
    }
    return Part::None;
}

void ListScrollBar::press(Part part, int y) {
    pressed_ = part;
    pressedY_ = y;
    pressedTop_ = top_;
}

int ListScrollBar::topFor(Part part, int y) const {
    int top = top_;
    switch (part) {
        case Part::LineUp:
            top -= 1;
            break;
        case Part::LineDown:
            top += 1;
            break;
        case Part::PageUp:
            top -= page_;
            break;
        case Part::PageDown:
            top += page_;
            break;
        case Part::Thumb: {
            const RECT thumb = partRect(Part::Thumb);
            const int way = bar_.bottom - bar_.top - 2 * arrowHeight() - (thumb.bottom - thumb.top);
            // Rounded to the nearest row.
            top = way > 0 ? pressedTop_ + ((y - pressedY_) * hidden() * 2 + (y < pressedY_ ? -way : way)) / (2 * way)
                          : top_;
            break;
        }
        case Part::None:
            break;
    }
    return std::clamp(top, 0, hidden());
}

void ListScrollBar::paint(HDC dc) const {
    if (!isShown()) {
        return;
    }
    const UINT inactive = hidden() > 0 ? 0U : DFCS_INACTIVE;
    const auto arrow = [&](Part part, UINT state) {
        RECT rect = partRect(part);
        DrawFrameControl(dc, &rect, DFC_SCROLL, state | inactive | (pressed_ == part ? DFCS_PUSHED : 0U));
    };
    arrow(Part::LineUp, DFCS_SCROLLUP);
    arrow(Part::LineDown, DFCS_SCROLLDOWN);
    for (const Part part : {Part::PageUp, Part::PageDown}) {
        const RECT track = partRect(part);
        FillRect(dc, &track, GetSysColorBrush(COLOR_SCROLLBAR));
    }
    RECT thumb = partRect(Part::Thumb);
    if (!IsRectEmpty(&thumb)) {
        DrawEdge(dc, &thumb, EDGE_RAISED, BF_RECT | BF_MIDDLE);
    }
}

}  // namespace platform
