// What the mouse does with a list view's rows and scroll bars.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_parts.h"

namespace platform {
namespace {

constexpr UINT kRepeatMs = 50;
constexpr UINT kDoubleClickMs = 500;
constexpr int kWheelRows = 3;

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

}  // namespace

// Focus, keys and mouse. False for any other message.
bool ListView::onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            onWmFocus(message == WM_SETFOCUS);
            return true;
        case WM_LBUTTONDOWN:
            onWmLButtonDown(pointOf(lParam));
            return true;
        case WM_LBUTTONDBLCLK:
            onWmLButtonDblClk(pointOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            onWmMouseMove(pointOf(lParam));
            return true;
        case WM_LBUTTONUP:
            onWmLButtonUp(pointOf(lParam));
            return true;
        case WM_RBUTTONDOWN:
            onWmRButtonDown(pointOf(lParam));
            return true;
        case WM_RBUTTONUP:
            notifyClick(NM_RCLICK, pointOf(lParam));
            return true;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return true;
        case WM_MOUSEWHEEL:
            onWmMouseWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return true;
        case WM_TIMER:
            onWmTimer(wParam);
            return true;
        case WM_KEYDOWN:
            result = onWmKeyDown(static_cast<UINT>(wParam), lParam);
            return true;
        case WM_CHAR:
            onWmChar(static_cast<char>(wParam));
            return true;
        default:
            return false;
    }
}

// False when the point is on no scroll bar.
bool ListView::pressBar(POINT at) {
    for (ListScrollBar* const bar : {&bar_, &wideBar_}) {
        if (bar->isShown() && PtInRect(&bar->rect(), at)) {
            const ListScrollBar::Part part = bar->partAt(at);
            if (part != ListScrollBar::Part::None) {
                SetCapture(window_);
                bar->press(part, at);
                SetTimer(window_, kListRepeatTimer, kRepeatMs, nullptr);
                InvalidateRect(window_, &bar->rect(), FALSE);
                scrollByBar(*bar, at);
            }
            return true;
        }
    }
    return false;
}

void ListView::scrollByBar(const ListScrollBar& bar, POINT at) {
    const int wanted = bar.topFor(bar.pressed(), at);
    scrollTo(&bar == &bar_ ? wanted : top_, &bar == &bar_ ? left_ : wanted);
}

// A click on a check box does nothing but change it and end a label's edit; the parent hears of the click first. The
// selection stays where the selected label is clicked again, because that may begin an edit.
void ListView::onWmLButtonDown(POINT at) {
    const HWND window = window_;
    if (pressBar(at)) {
        return;
    }
    notify(NM_RELEASEDCAPTURE);
    if (!isAlive(window)) {
        return;
    }
    KillTimer(window, kListEditTimer);
    const Cell hit = rowAt(at);
    editable_ = kNone;
    pressed_ = hit.flags != LVHT_ONITEMSTATEICON || hit.row == kNone;
    if (!pressed_) {
        if (endEdit(true)) {
            notifyClick(NM_CLICK, at);
        }
        if (isAlive(window)) {
            toggleCheck(hit.row);
        }
        return;
    }
    if (hit.row == kNone && !takeFocus()) {
        return;
    }
    if (hit.row != kNone && hit.row == selected_) {
        editable_ = hit.row;
    } else {
        selectClicked(hit);
    }
    if (isAlive(window)) {
        takeFocus();
    }
}

// Returns false when the window died.
bool ListView::takeFocus() {
    const HWND window = window_;
    if (!focused_) {
        SetFocus(window);
    }
    return isAlive(window);
}

void ListView::selectClicked(const Cell& hit) {
    if (hit.row == kNone) {
        deselect(selected_);
    } else {
        selectAlone(hit.row);
    }
}

void ListView::onWmLButtonDblClk(POINT at) {
    const HWND window = window_;
    if (pressBar(at)) {
        return;
    }
    KillTimer(window, kListEditTimer);
    notify(NM_RELEASEDCAPTURE);
    if (!isAlive(window)) {
        return;
    }
    notifyClick(NM_DBLCLK, at);
    if (isAlive(window) && cellAt(at).row != kNone) {
        notifyClick(LVN_ITEMACTIVATE, at);
    }
}

void ListView::onWmMouseMove(POINT at) {
    for (const ListScrollBar* const bar : {&bar_, &wideBar_}) {
        if (bar->pressed() == ListScrollBar::Part::Thumb) {
            scrollByBar(*bar, at);
            return;
        }
    }
}

void ListView::onWmLButtonUp(POINT at) {
    const HWND window = window_;
    if (GetCapture() == window) {
        ReleaseCapture();
        return;
    }
    if (!pressed_) {
        return;
    }
    pressed_ = false;
    notifyClick(NM_CLICK, at);
    if (!isAlive(window)) {
        return;
    }
    const Cell hit = rowAt(at);
    if (hit.row != kNone && hit.row == editable_ && hit.flags == LVHT_ONITEMLABEL && has(LVS_EDITLABELS)) {
        SetTimer(window, kListEditTimer, kDoubleClickMs, nullptr);
    }
}

void ListView::onWmRButtonDown(POINT at) {
    const HWND window = window_;
    notify(NM_RELEASEDCAPTURE);
    if (!isAlive(window) || !takeFocus()) {
        return;
    }
    const Cell hit = rowAt(at);
    if (hit.row != kNone) {
        setState(hit.row, LVIS_FOCUSED, LVIS_FOCUSED);
    }
    if (isAlive(window) && (hit.row == kNone || hit.row != selected_)) {
        selectClicked(hit);
    }
}

void ListView::onWmCaptureChanged() {
    KillTimer(window_, kListRepeatTimer);
    for (ListScrollBar* const bar : {&bar_, &wideBar_}) {
        if (bar->pressed() != ListScrollBar::Part::None) {
            bar->release();
            InvalidateRect(window_, &bar->rect(), FALSE);
        }
    }
}

void ListView::onWmMouseWheel(int delta) {
    if ((delta < 0) != (wheelRest_ < 0)) {
        wheelRest_ = 0;  // What is left of one direction does not take from the other.
    }
    wheelRest_ += delta * kWheelRows;
    const int rows = wheelRest_ / WHEEL_DELTA;
    wheelRest_ %= WHEEL_DELTA;
    scrollTo(top_ - rows, left_);
}

void ListView::onWmTimer(UINT_PTR timer) {
    if (timer == kListRepeatTimer) {
        POINT at{};
        GetCursorPos(&at);
        ScreenToClient(window_, &at);
        for (const ListScrollBar* const bar : {&bar_, &wideBar_}) {
            const ListScrollBar::Part part = bar->pressed();
            const bool repeats = part != ListScrollBar::Part::None && part != ListScrollBar::Part::Thumb;
            if (repeats && bar->partAt(at) == part) {
                scrollByBar(*bar, at);
                return;
            }
        }
    } else if (timer == kListEditTimer) {
        KillTimer(window_, kListEditTimer);
        if (items_.has(editable_) && editable_ == selected_) {
            onLvmEditLabel(editable_);
        }
    }
}

}  // namespace platform
