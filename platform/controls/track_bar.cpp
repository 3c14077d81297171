// The track bar's position, geometry and input.
#include "platform/controls/track_bar.h"

#include <algorithm>

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

// All in pixels.
// Pixels at 96 dots an inch.
constexpr int kFullThumb = 21;    // Length of the thumb where there is room for it.
constexpr int kLeastThumb = 4;    // Where there is none at all.
constexpr int kThumbMargin = 5;   // Less than the room between the two.
constexpr int kThumbTop = 2;      // From the control's side to the thumb.
constexpr int kChannelDepth = 4;  // Across.
constexpr int kChannelEnds = 3;   // From the control's ends to the middle of the thumb at the channel's end.

constexpr UINT_PTR kPageTimer = 1;
constexpr UINT kPageMs = 500;

bool isTrackKey(WPARAM key) {
    return key >= VK_PRIOR && key <= VK_DOWN;
}

}  // namespace

LRESULT TrackBar::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_SIZE:
        case WM_ENABLE:
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            onWmLButtonDown(point);
            return 0;
        case WM_MOUSEMOVE:
            onWmMouseMove(wParam, point);
            return 0;
        case WM_LBUTTONUP:
            onWmLButtonUp();
            return 0;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return 0;
        case WM_TIMER:
            onWmTimer();
            return 0;
        case WM_KEYDOWN:
            onWmKeyDown(wParam);
            return 0;
        case WM_KEYUP:
            onWmKeyUp(wParam);
            return 0;
        default:
            return handleTrackMessage(message, wParam, lParam);
    }
}

LRESULT TrackBar::handleTrackMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const int value = static_cast<int>(lParam);
    switch (message) {
        case TBM_GETPOS:
            return position_;
        case TBM_GETRANGEMIN:
            return minimum_;
        case TBM_GETRANGEMAX:
            return maximum_;
        case TBM_SETPOS:
            setPosition(value, wParam != 0);
            return 0;
        case TBM_SETRANGEMIN:
            onTbmSetRange(value, maximum_, wParam != 0);
            return 0;
        case TBM_SETRANGEMAX:
            onTbmSetRange(minimum_, value, wParam != 0);
            return 0;
        case TBM_GETTHUMBRECT:
            *reinterpret_cast<RECT*>(lParam) = thumbRect();
            return 0;
        case TBM_GETCHANNELRECT:
            *reinterpret_cast<RECT*>(lParam) = channelRect();
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

bool TrackBar::isVertical() const {
    return (styleOf(window_) & TBS_VERT) != 0;
}

// Losing the focus may make its former owner open a message box, in which the button comes up; a move without the
// button then ends the drag.
void TrackBar::onWmLButtonDown(POINT point) {
    const HWND window = window_;
    SetFocus(window);
    // The field that was to lose the focus may have taken it back.
    if (!IsWindow(window) || GetFocus() != window) {
        return;
    }
    const RECT thumb = thumbRect();
    if (PtInRect(&thumb, point)) {
        tracking_ = Tracking::Thumb;
        SetCapture(window);
        invalidateThumb();
        return;
    }
    const Tracking paging = pagingAt(point);
    if (paging != Tracking::None) {
        tracking_ = paging;
        SetCapture(window);
        SetTimer(window, kPageTimer, kPageMs, nullptr);
        page(paging);
    }
}

void TrackBar::onWmMouseMove(WPARAM keys, POINT point) {
    const HWND window = window_;
    if (tracking_ == Tracking::None) {
        return;
    }
    if (!(keys & MK_LBUTTON)) {
        ReleaseCapture();
        return;
    }
    if (tracking_ != Tracking::Thumb) {
        if (pagingAt(point) == tracking_) {
            page(tracking_);
        }
        return;
    }
    const int position = positionAt(along(point));
    if (position != position_) {
        setPosition(position, true);
        // The thumb stays with the mouse, whatever the parent has to paint besides.
        if (scroll(TB_THUMBTRACK, position)) {
            UpdateWindow(window);
        }
    }
}

void TrackBar::onWmLButtonUp() {
    const HWND window = window_;
    if (tracking_ == Tracking::None) {
        return;
    }
    if ((tracking_ == Tracking::Thumb && !scroll(TB_THUMBPOSITION, position_)) || !scroll(TB_ENDTRACK, 0)) {
        return;
    }
    ReleaseCapture();
    if (IsWindow(window)) {
        NMHDR header = {window, static_cast<UINT_PTR>(GetDlgCtrlID(window)), NM_RELEASEDCAPTURE};
        SendMessageA(GetParent(window), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    }
}

void TrackBar::onWmCaptureChanged() {
    if (tracking_ != Tracking::None) {
        tracking_ = Tracking::None;
        KillTimer(window_, kPageTimer);
        invalidateThumb();
        scroll(TB_ENDTRACK, 0);
    }
}

// Goes on paging until the thumb is under the mouse.
void TrackBar::onWmTimer() {
    POINT point;
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    if (tracking_ != Tracking::None && pagingAt(point) == tracking_) {
        page(tracking_);
    }
}

void TrackBar::onWmKeyDown(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            moveByUser(static_cast<long long>(position_) - 1, TB_LINEUP);
            break;
        case VK_RIGHT:
        case VK_DOWN:
            moveByUser(static_cast<long long>(position_) + 1, TB_LINEDOWN);
            break;
        case VK_PRIOR:
            page(Tracking::PagesBack);
            break;
        case VK_NEXT:
            page(Tracking::PagesOn);
            break;
        case VK_HOME:
            moveByUser(minimum_, TB_TOP);
            break;
        case VK_END:
            moveByUser(maximum_, TB_BOTTOM);
            break;
        default:
            break;
    }
}

void TrackBar::onWmKeyUp(WPARAM key) const {
    if (isTrackKey(key)) {
        scroll(TB_ENDTRACK, 0);
    }
}

void TrackBar::onTbmSetRange(int minimum, int maximum, bool redraw) {
    minimum_ = minimum;
    maximum_ = maximum;
    position_ = std::min(std::max(position_, minimum), maximum);
    if (redraw) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

// A fifth of the range.
int TrackBar::pageSize() const {
    const auto fifth = static_cast<int>((static_cast<long long>(maximum_) - minimum_) / 5);
    return fifth != 0 ? fifth : 1;
}

void TrackBar::setPosition(int position, bool redraw) {
    const RECT before = thumbRect();
    position_ = std::min(std::max(position, minimum_), maximum_);
    if (redraw) {
        InvalidateRect(window_, &before, FALSE);
        invalidateThumb();
    }
}

bool TrackBar::moveByUser(long long position, UINT code) {
    const auto least = static_cast<long long>(minimum_);
    const auto target = static_cast<int>(std::min(std::max(position, least), static_cast<long long>(maximum_)));
    if (target == position_) {
        return true;
    }
    setPosition(target, true);
    return scroll(code, 0);
}

void TrackBar::page(Tracking direction) {
    const bool on = direction == Tracking::PagesOn;
    const long long step = pageSize();
    moveByUser(position_ + (on ? step : -step), on ? TB_PAGEDOWN : TB_PAGEUP);
}

bool TrackBar::scroll(UINT code, int position) const {
    const HWND window = window_;
    SendMessageA(GetParent(window), isVertical() ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position),
                 reinterpret_cast<LPARAM>(window));
    return IsWindow(window) != 0;
}

TrackBar::Measures TrackBar::measure() const {
    RECT client;
    GetClientRect(window_, &client);
    const int room = isVertical() ? client.right : client.bottom;
    Measures measures{};
    measures.thumbLength = room >= toScale(kFullThumb) ? toScale(kFullThumb)
                                                       : std::max(room - toScale(kThumbMargin), toScale(kLeastThumb));
    // Always odd, so that it has a middle.
    measures.thumbWidth = measures.thumbLength / 2 | 1;
    measures.channelStart = measures.thumbWidth / 2 + toScale(kChannelEnds);
    measures.channelEnd = (isVertical() ? client.bottom : client.right) - measures.channelStart;
    return measures;
}

RECT TrackBar::place(int start, int end, int near, int far) const {
    return isVertical() ? RECT{near, start, far, end} : RECT{start, near, end, far};
}

int TrackBar::thumbStart() const {
    const Measures measures = measure();
    const long long range = static_cast<long long>(maximum_) - minimum_;
    const long long way = measures.channelEnd - measures.channelStart - measures.thumbWidth;
    const long long gone = static_cast<long long>(position_) - minimum_;
    return measures.channelStart + (range != 0 ? static_cast<int>(gone * way / range) : 0);
}

RECT TrackBar::thumbRect() const {
    const Measures measures = measure();
    const int start = thumbStart();
    return place(start, start + measures.thumbWidth, toScale(kThumbTop), toScale(kThumbTop) + measures.thumbLength);
}

RECT TrackBar::channelRect() const {
    const Measures measures = measure();
    const int top = toScale(kThumbTop) + measures.thumbLength / 2 - toScale(kChannelDepth) / 2;
    return place(measures.channelStart, measures.channelEnd, top, top + toScale(kChannelDepth));
}

int TrackBar::positionAt(int thumbMiddle) const {
    const Measures measures = measure();
    const long long way = measures.channelEnd - measures.channelStart - measures.thumbWidth;
    if (way <= 0) {
        return position_;
    }
    const long long start = thumbMiddle - measures.thumbWidth / 2 - measures.channelStart;
    const long long range = static_cast<long long>(maximum_) - minimum_;
    // Rounded to the nearest position.
    const long long gone = (2 * std::clamp(start, 0LL, way) * range + way) / (2 * way);
    return static_cast<int>(minimum_ + gone);
}

TrackBar::Tracking TrackBar::pagingAt(POINT point) const {
    const Measures measures = measure();
    const RECT thumb = thumbRect();
    const RECT track = place(measures.channelStart, measures.channelEnd, toScale(kThumbTop),
                             toScale(kThumbTop) + measures.thumbLength);
    if (!PtInRect(&track, point) || PtInRect(&thumb, point)) {
        return Tracking::None;
    }
    return along(point) < thumbStart() ? Tracking::PagesBack : Tracking::PagesOn;
}

void TrackBar::invalidateThumb() const {
    const RECT thumb = thumbRect();
    InvalidateRect(window_, &thumb, FALSE);
}

void registerTrackBarClass() {
    registerControlClass<TrackBar>(TRACKBAR_CLASSA, 0);
}

}  // namespace platform
