#include "platform/controls/scroll_bar.h"

#include "platform/controls/control_base.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kRepeatMs = 50;

UINT codeOf(ListScrollBar::Part part) {
    switch (part) {
        case ListScrollBar::Part::LineUp:
            return SB_LINEUP;
        case ListScrollBar::Part::LineDown:
            return SB_LINEDOWN;
        case ListScrollBar::Part::PageUp:
            return SB_PAGEUP;
        case ListScrollBar::Part::PageDown:
            return SB_PAGEDOWN;
        default:
            return SB_THUMBTRACK;
    }
}

}  // namespace

ScrollBar::ScrollBar(HWND window)
    : window_(window),
      isVertical_((GetWindowLongA(window, GWL_STYLE) & SBS_VERT) != 0),
      bar_(isVertical_ ? ListScrollBar::Axis::Vertical : ListScrollBar::Axis::Horizontal) {}

LRESULT ScrollBar::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case SBM_SETSCROLLINFO:
            onSbmSetScrollInfo(*reinterpret_cast<const SCROLLINFO*>(lParam));
            return info_.nPos;
        case WM_SIZE:
            layout();
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            onWmLButtonDown(at);
            return 0;
        case WM_MOUSEMOVE:
            onWmMouseMove(at);
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            return 0;
        case WM_TIMER:
            onWmTimer();
            return 0;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void ScrollBar::onSbmSetScrollInfo(const SCROLLINFO& info) {
    info_ = info;
    layout();
}

void ScrollBar::layout() {
    RECT client;
    GetClientRect(window_, &client);
    bar_.layout(client, info_.nMax - info_.nMin + 1, static_cast<int>(info_.nPage), info_.nPos - info_.nMin, true);
    InvalidateRect(window_, nullptr, FALSE);
}

void ScrollBar::tell(ListScrollBar::Part part, POINT at) const {
    const int position = part == ListScrollBar::Part::Thumb ? bar_.topFor(part, at) + info_.nMin : 0;
    SendMessageA(GetParent(window_), isVertical_ ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(codeOf(part), position),
                 reinterpret_cast<LPARAM>(window_));
}

void ScrollBar::onWmLButtonDown(POINT at) {
    const ListScrollBar::Part part = bar_.partAt(at);
    if (part == ListScrollBar::Part::None) {
        return;
    }
    SetCapture(window_);
    bar_.press(part, at);
    SetTimer(window_, kRepeatTimer, kRepeatMs, nullptr);
    InvalidateRect(window_, nullptr, FALSE);
    if (part != ListScrollBar::Part::Thumb) {
        tell(part, at);
    }
}

void ScrollBar::onWmMouseMove(POINT at) {
    if (bar_.pressed() == ListScrollBar::Part::Thumb) {
        tell(ListScrollBar::Part::Thumb, at);
    }
}

// Goes on until the thumb is under the mouse.
void ScrollBar::onWmTimer() {
    POINT at;
    GetCursorPos(&at);
    ScreenToClient(window_, &at);
    const ListScrollBar::Part part = bar_.pressed();
    if (part != ListScrollBar::Part::None && part != ListScrollBar::Part::Thumb && bar_.partAt(at) == part) {
        tell(part, at);
    }
}

void ScrollBar::onWmCaptureChanged() {
    bar_.release();
    KillTimer(window_, kRepeatTimer);
    InvalidateRect(window_, nullptr, FALSE);
}

void ScrollBar::onWmPaint(HDC given) const {
    paintControl(window_, given, [this](HDC dc) { bar_.paint(dc); });
}

void registerScrollBarClass() {
    registerControlClass<ScrollBar>("ScrollBar", 0);
}

}  // namespace platform
