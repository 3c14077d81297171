// How a sheet is applied, ended and cancelled. Wizard buttons and restart flags are left out.
#include "platform/dialog/property_sheet.h"

#include <windows.h>

#include <algorithm>

namespace platform {

LRESULT PropertySheet::notify(HWND page, UINT code, LPARAM lParam) const {
    PSHNOTIFY notification{};
    notification.hdr.hwndFrom = window_;
    notification.hdr.code = code;
    notification.lParam = lParam;
    return SendMessageA(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

// The page that is shown is asked to be left; then every page that has a window applies, in the order of the tabs.
// A page that refuses is brought to the front, unless it asks to stay where the user is.
bool PropertySheet::apply(bool closing) {
    HWND window = window_;
    if (active_ < 0 || !mayLeave() || !IsWindow(window)) {
        return false;
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (slots_[i].window == nullptr) {
            continue;
        }
        const LRESULT answer = notify(slots_[i].window, PSN_APPLY, closing ? 1 : 0);
        if (!IsWindow(window)) {
            return false;
        }
        if (answer == PSNRET_INVALID && i < slots_.size()) {
            show(static_cast<int>(i));
        }
        if (answer == PSNRET_INVALID || answer == PSNRET_INVALID_NOCHANGEPAGE) {
            return false;
        }
    }
    if (HWND page = closing ? nullptr : activePage()) {
        notify(page, PSN_SETACTIVE, 0);
    }
    return IsWindow(window) != FALSE;
}

// The page that is shown may refuse; else every page that has a window is told to forget its changes.
bool PropertySheet::cancel(bool byCloseBox) {
    HWND window = window_;
    if (HWND page = activePage()) {
        const LRESULT refused = notify(page, PSN_QUERYCANCEL, 0);
        if (!IsWindow(window) || refused != 0) {
            return false;
        }
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (slots_[i].window != nullptr) {
            notify(slots_[i].window, PSN_RESET, byCloseBox ? 1 : 0);
        }
        if (!IsWindow(window)) {
            return false;
        }
    }
    finish(0);
    return true;
}

// A modeless sheet is destroyed by its owner, who asks for the current page to see that there is none any more.
void PropertySheet::finish(INT_PTR result) {
    result_ = result;
    pageValid_ = false;
    ended_ = (flags_ & PSH_MODELESS) == 0;
}

void PropertySheet::onOk() {
    if (apply(true)) {
        finish(1);
    }
}

void PropertySheet::onApplyNow() {
    if (apply(false)) {
        onPsmChanged(nullptr, false);
    }
}

void PropertySheet::press(int button) {
    switch (button) {
        case PSBTN_OK:
            onOk();
            break;
        case PSBTN_APPLYNOW:
            onApplyNow();
            break;
        case PSBTN_CANCEL:
            cancel(false);
            break;
        default:
            break;
    }
}

// The Apply button is enabled while any page has changes; without a page, all are meant.
void PropertySheet::onPsmChanged(HWND page, bool changed) {
    for (Slot& slot : slots_) {
        if (page == nullptr || slot.window == page) {
            slot.changed = changed;
        }
    }
    const bool any = std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.changed; });
    EnableWindow(item(kSheetApplyId), any);
}

// What has been done cannot be undone any more: only leaving is offered.
void PropertySheet::onPsmCancelToClose() {
    EnableWindow(item(IDCANCEL), FALSE);
    SetWindowTextA(item(IDOK), "St\xE4ng");
}

}  // namespace platform
