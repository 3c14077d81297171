// What the mouse does with a header.
#include "platform/controls/control_base.h"
#include "platform/controls/header_control.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

// False for a message that is not the mouse's.
bool HeaderControl::onInput(UINT message, WPARAM, LPARAM lParam) {
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_LBUTTONDOWN:
            onWmLButtonDown(at);
            return true;
        case WM_LBUTTONDBLCLK:
            onWmLButtonDblClk(at);
            return true;
        case WM_MOUSEMOVE:
            onWmMouseMove(at);
            return true;
        case WM_LBUTTONUP:
            onWmLButtonUp(at);
            return true;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return true;
        default:
            return false;
    }
}

void HeaderControl::onWmLButtonDown(POINT at) {
    UINT flags = 0;
    const int column = hitTest(at, flags);
    if (column == kNone) {
        return;
    }
    SetCapture(window_);
    action_ = flags == HHT_ONHEADER ? Action::Click : Action::Track;
    pressed_ = column;
    pressedAt_ = at;
    pressedWidth_ = this->at(column).width;
    looksDown_ = action_ == Action::Click;
    InvalidateRect(window_, nullptr, FALSE);
}

// The second of two quick clicks fits a column, and is no click of its own elsewhere.
void HeaderControl::onWmLButtonDblClk(POINT at) {
    UINT flags = 0;
    const int column = hitTest(at, flags);
    if (flags == HHT_ONDIVIDER || flags == HHT_ONDIVOPEN) {
        notify(HDN_DIVIDERDBLCLICKA, column);
    }
}

void HeaderControl::onWmMouseMove(POINT at) {
    if (action_ == Action::Track) {
        setWidth(pressed_, pressedWidth_ + at.x - pressedAt_.x);
        return;
    }
    const bool far = std::abs(at.x - pressedAt_.x) >= GetSystemMetrics(SM_CXDRAG) ||
                     std::abs(at.y - pressedAt_.y) >= GetSystemMetrics(SM_CYDRAG);
    if (action_ == Action::Click && far && (styleOf(window_) & HDS_DRAGDROP) != 0) {
        const HWND window = window_;
        const bool refused = notify(HDN_BEGINDRAG, pressed_) != 0;
        if (!IsWindow(window) || action_ != Action::Click) {
            return;
        }
        action_ = refused ? Action::Click : Action::Drag;
    }
    UINT flags = 0;
    RECT client;
    GetClientRect(window_, &client);
    const bool looksDown = action_ == Action::Drag || (action_ == Action::Click && PtInRect(&client, at) &&
                                                       hitTest(at, flags) == pressed_ && flags == HHT_ONHEADER);
    const int dropPlace = action_ == Action::Drag ? placeFor(pressed_, at) : kNone;
    if (looksDown != looksDown_ || dropPlace != dropPlace_) {
        looksDown_ = looksDown;
        dropPlace_ = dropPlace;
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void HeaderControl::onWmLButtonUp(POINT at) {
    const Action action = action_;
    const int column = pressed_;
    const HWND window = window_;
    if (action == Action::None) {
        return;
    }
    if (action == Action::Track) {
        setWidth(column, pressedWidth_ + at.x - pressedAt_.x);
        if (!IsWindow(window)) {
            return;
        }
    }
    ReleaseCapture();
    if (!IsWindow(window) || !has(column)) {
        return;
    }
    HDITEMA item{};
    if (action == Action::Drag) {
        item.mask = HDI_ORDER;
        item.iOrder = placeFor(column, at);
        const bool refused = notify(HDN_ENDDRAG, column, &item) != 0;
        if (!refused && IsWindow(window) && has(column) && item.iOrder != placeOf(column)) {
            moveColumn(column, item.iOrder);
        }
    } else if (action == Action::Track) {
        item.mask = HDI_WIDTH;
        item.cxy = this->at(column).width;
        notify(HDN_ENDTRACKA, column, &item);
    } else {
        UINT flags = 0;
        RECT client;
        GetClientRect(window, &client);
        if (PtInRect(&client, at) && hitTest(at, flags) == column && flags == HHT_ONHEADER) {
            notify(HDN_ITEMCLICKA, column);
        }
    }
}

void HeaderControl::onWmCaptureChanged() {
    action_ = Action::None;
    pressed_ = kNone;
    looksDown_ = false;
    dropPlace_ = kNone;
    InvalidateRect(window_, nullptr, FALSE);
}

int HeaderControl::placeFor(int column, POINT at) const {
    RECT client;
    GetClientRect(window_, &client);
    InflateRect(&client, 0, client.bottom);
    const int own = placeOf(column);
    if (at.y < client.top || at.y >= client.bottom) {
        return own;
    }
    const auto liesBefore = [&](int each) {
        const RECT rect = rectOf(each);
        return (rect.left + rect.right) / 2 < at.x;
    };
    const int place = static_cast<int>(std::count_if(order_.begin(), order_.end(), liesBefore));
    return place > own ? place - 1 : place;
}

}  // namespace platform
