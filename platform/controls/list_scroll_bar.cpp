// The scroll bar of a list.
#include "platform/controls/list_scroll_bar.h"

#include "platform/graphics/scale.h"

#include <algorithm>
#include <cstdint>

namespace platform {
namespace {

constexpr int kLeastThumb = 8;  // Pixels at 96 dots an inch.

// Rounded down; of more rows than the product of two ints can hold as well.
int scaled(int value, int factor, int divisor) {
    return static_cast<int>(static_cast<std::int64_t>(value) * factor / divisor);
}

}  // namespace

void ListScrollBar::layout(const RECT& client, int count, int page, int top, bool always, int line) {
    count_ = count;
    page_ = std::max(page, 1);
    top_ = top;
    line_ = line;
    bar_ = client;
    const bool needed = always || hidden() > 0;
    if (isVertical()) {
        bar_.left = needed ? std::max(client.left, client.right - GetSystemMetrics(SM_CXVSCROLL)) : client.right;
    } else {
        bar_.top = needed ? std::max(client.top, client.bottom - GetSystemMetrics(SM_CYHSCROLL)) : client.bottom;
    }
}

// Arrows share a bar that is too short for both; they are as long one way as the other.
int ListScrollBar::arrowLength() const {
    return std::min(GetSystemMetrics(SM_CYVSCROLL), (end() - start()) / 2);
}

RECT ListScrollBar::partRect(Part part) const {
    const int trackStart = start() + arrowLength();
    const int trackEnd = end() - arrowLength();
    const int track = trackEnd - trackStart;
    int thumb = hidden() > 0 ? std::max(scaled(track, page_, count_), toScale(kLeastThumb)) : 0;
    if (thumb > track) {
        thumb = 0;
    }
    const int thumbStart =
        hidden() > 0 ? trackStart + scaled(track - thumb, std::min(top_, hidden()), hidden()) : trackStart;
    int from = start();
    int to = end();
    switch (part) {
        case Part::LineUp:
            to = trackStart;
            break;
        case Part::PageUp:
            from = trackStart;
            to = thumbStart;
            break;
        case Part::Thumb:
            from = thumbStart;
            to = thumbStart + thumb;
            break;
        case Part::PageDown:
            from = thumbStart + thumb;
            to = trackEnd;
            break;
        case Part::LineDown:
            from = trackEnd;
            break;
        case Part::None:
            return {};
    }
    return isVertical() ? RECT{bar_.left, from, bar_.right, to} : RECT{from, bar_.top, to, bar_.bottom};
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

void ListScrollBar::press(Part part, POINT point) {
    pressed_ = part;
    pressedAt_ = isVertical() ? point.y : point.x;
    pressedTop_ = top_;
}

int ListScrollBar::topFor(Part part, POINT point) const {
    int top = top_;
    switch (part) {
        case Part::LineUp:
            top -= line_;
            break;
        case Part::LineDown:
            top += line_;
            break;
        case Part::PageUp:
            top -= page_;
            break;
        case Part::PageDown:
            top += page_;
            break;
        case Part::Thumb: {
            const RECT thumb = partRect(Part::Thumb);
            const int length = isVertical() ? thumb.bottom - thumb.top : thumb.right - thumb.left;
            const int way = end() - start() - 2 * arrowLength() - length;
            const int moved = (isVertical() ? point.y : point.x) - pressedAt_;
            // Rounded to the nearest row.
            const std::int64_t twice = std::int64_t{moved} * hidden() * 2 + (moved < 0 ? -way : way);
            top = way > 0 ? pressedTop_ + static_cast<int>(std::clamp<std::int64_t>(
                                              twice / (std::int64_t{2} * way), -pressedTop_, hidden() - pressedTop_))
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
    arrow(Part::LineUp, isVertical() ? DFCS_SCROLLUP : DFCS_SCROLLLEFT);
    arrow(Part::LineDown, isVertical() ? DFCS_SCROLLDOWN : DFCS_SCROLLRIGHT);
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
