// Keys, mouse and scroll bar of list boxes.
#include "platform/controls/list_box.h"

#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"

#include <algorithm>

namespace platform {
namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kRepeatMs = 50;
constexpr int kWheelRows = 3;

}  // namespace

bool ListBox::isInside(POINT at) const {
    RECT client;
    GetClientRect(window_, &client);
    return PtInRect(&client, at) != FALSE;
}

void ListBox::onWmFocus(bool focused) {
    focused_ = focused;
    invalidateRow(caret_);
    notify(focused ? LBN_SETFOCUS : LBN_KILLFOCUS);
}

// A drop-down list leaves the focus to its combo box. False when the focus went elsewhere.
bool ListBox::takeFocus() {
    const HWND wanted = combo_ ? combo_ : window_;
    const auto isThere = [wanted] { return GetFocus() == wanted || IsChild(wanted, GetFocus()); };
    if (!isThere()) {
        SetFocus(wanted);
    }
    return isThere();
}

void ListBox::onWmLButtonDown(POINT at) {
    if (combo_ && !isInside(at)) {
        if (restoreSelection()) {
            SendMessageA(combo_, kComboListDismissed, 0, 0);
        }
        return;
    }
    const HWND window = window_;
    // The field that was to lose the focus may have taken it back.
    if (!takeFocus() || !IsWindow(window)) {
        return;
    }
    const ListScrollBar::Part part = bar_.isShown() ? bar_.partAt(at) : ListScrollBar::Part::None;
    const int row = rowAt(at);
    if (part == ListScrollBar::Part::None && row == kNone) {
        return;
    }
    SetCapture(window_);
    if (part == ListScrollBar::Part::None) {
        tracking_ = true;
        moveTo(row);
        return;
    }
    bar_.press(part, at);
    setTop(bar_.topFor(part, at));
    SetTimer(window_, kRepeatTimer, kRepeatMs, nullptr);
    InvalidateRect(window_, &bar_.rect(), FALSE);
}

void ListBox::onWmLButtonDblClk(POINT at) {
    const bool onBar = bar_.isShown() && PtInRect(&bar_.rect(), at);
    if (combo_ || onBar) {
        onWmLButtonDown(at);  // The second of two quick clicks is a click.
    } else {
        notify(LBN_DBLCLK);
    }
}

void ListBox::onWmMouseMove(POINT at) {
    if (bar_.pressed() != ListScrollBar::Part::None) {
        if (bar_.pressed() == ListScrollBar::Part::Thumb) {
            setTop(bar_.topFor(ListScrollBar::Part::Thumb, at));
        }
        return;
    }
    const RECT rows = rowsRect();
    // In a drop-down list the selection follows the mouse without a button.
    const bool follows = combo_ && PtInRect(&rows, at);
    if (!tracking_ && !follows) {
        return;
    }
    autoScroll_ = at.y < rows.top ? -1 : at.y >= rows.bottom ? 1 : 0;
    if (autoScroll_) {
        SetTimer(window_, kRepeatTimer, kRepeatMs, nullptr);
    }
    if (items_.count() > 0) {
        const int last = std::min(top_ + page(), items_.count()) - 1;
        const int row = at.y < 0 ? top_ : top_ + static_cast<int>(at.y) / itemHeight_;
        moveTo(std::clamp(row, top_, std::max(last, top_)));
    }
}

void ListBox::onWmLButtonUp(POINT at) {
    KillTimer(window_, kRepeatTimer);
    autoScroll_ = 0;
    if (bar_.pressed() != ListScrollBar::Part::None) {
        bar_.release();
        InvalidateRect(window_, &bar_.rect(), FALSE);
        if (!combo_) {  // An open drop-down list holds the mouse until it closes.
            ReleaseCapture();
        }
        return;
    }
    if (!tracking_) {
        return;
    }
    tracking_ = false;
    if (combo_ && !isInside(at) && !restoreSelection()) {
        return;
    }
    if (GetCapture() == window_) {
        ReleaseCapture();
    }
    if (items_.count() > 0) {
        notify(LBN_SELCHANGE);
    }
}

void ListBox::onWmCaptureChanged() {
    KillTimer(window_, kRepeatTimer);
    autoScroll_ = 0;
    tracking_ = false;
    if (bar_.pressed() != ListScrollBar::Part::None) {
        bar_.release();
        InvalidateRect(window_, &bar_.rect(), FALSE);
    }
}

void ListBox::onWmMouseWheel(int delta) {
    setTop(top_ - delta * kWheelRows / WHEEL_DELTA);
}

// Repeats a scroll bar part that is held down, or scrolls under a drag beyond the rows.
void ListBox::onWmTimer() {
    POINT at;
    GetCursorPos(&at);
    ScreenToClient(window_, &at);
    const ListScrollBar::Part part = bar_.pressed();
    if (part != ListScrollBar::Part::None) {
        if (part != ListScrollBar::Part::Thumb && bar_.partAt(at) == part) {
            setTop(bar_.topFor(part, at));
        }
    } else if (autoScroll_ && items_.count() > 0) {
        moveTo(std::clamp(caret_ + autoScroll_, 0, items_.count() - 1));
    } else {
        KillTimer(window_, kRepeatTimer);
    }
}

LRESULT ListBox::onWmKeyDown(UINT key) {
    const int last = items_.count() - 1;
    int row = caret_;
    switch (key) {
        case VK_UP:
        case VK_LEFT:
            row -= 1;
            break;
        case VK_DOWN:
        case VK_RIGHT:
            row += 1;
            break;
        case VK_PRIOR:
            row -= page() - 1;
            break;
        case VK_NEXT:
            row += page() - 1;
            break;
        case VK_HOME:
            row = 0;
            break;
        case VK_END:
            row = last;
            break;
        case VK_SPACE:
            if (current_ == kNone) {
                break;
            }
            [[fallthrough]];
        default:
            return DefWindowProcA(window_, WM_KEYDOWN, key, 0);
    }
    if (last >= 0) {
        // With nothing selected the first key only selects the row that it would start from.
        if (moveTo(current_ == caret_ ? std::clamp(row, 0, last) : std::clamp(caret_, 0, last))) {
            notify(LBN_SELCHANGE);
        }
    }
    return 0;
}

void ListBox::onWmChar(char character) {
    const char prefix[] = {character, '\0'};
    const int row = hasStrings() ? items_.findPrefix(caret_, prefix) : kNone;
    if (row != kNone && moveTo(row)) {
        notify(LBN_SELCHANGE);
    }
}

}  // namespace platform
