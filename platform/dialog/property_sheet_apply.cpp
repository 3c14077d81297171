// How a sheet is applied and cancelled. An Apply button, wizard buttons and restart flags are left out. A sheet that
// has ended is destroyed by its owner, who asks for the current page to see that there is none any more.
#include "platform/dialog/property_sheet.h"

#include <windows.h>

namespace platform {

LRESULT PropertySheet::notify(HWND page, UINT code, LPARAM lParam) const {
    PSHNOTIFY notification{};
    notification.hdr.hwndFrom = window_;
    notification.hdr.code = code;
    notification.lParam = lParam;
    return SendMessageA(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

// The page that is shown is asked to be left; then every page that has a window applies, in the order of the tabs.
// A page that refuses leaves the user where he is.
bool PropertySheet::apply() {
    HWND window = window_;
    if (active_ < 0 || !mayLeave() || !IsWindow(window)) {
        return false;
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (slots_[i].window == nullptr) {
            continue;
        }
        const LRESULT answer = notify(slots_[i].window, PSN_APPLY, TRUE);
        if (!IsWindow(window) || answer == PSNRET_INVALID_NOCHANGEPAGE) {
            return false;
        }
    }
    return true;
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
    pageValid_ = false;
    return true;
}

void PropertySheet::onOk() {
    if (apply()) {
        pageValid_ = false;
    }
}

}  // namespace platform
