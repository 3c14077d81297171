// Pages that are higher than the screen: what of them is in view, and how the rest comes into view. The sheet itself
// always fits, so that its buttons can be reached.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/dialog/property_sheet.h"

#include <windows.h>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

constexpr int kSheetScrollId = 0x3022;
constexpr int kLineHeight = 14;  // Dialog units: what an arrow scrolls by.
constexpr int kWheelLines = 3;
constexpr int kWheelStep = 120;

}  // namespace

// How much of the height that the sheet would like to have the screen does not offer. The frame is the window
// manager's.
int PropertySheet::excessOf(int height) const {
    const RECT area = workArea();
    return std::max(0, height - static_cast<int>(area.bottom - area.top));
}

void PropertySheet::placeScrollBar() {
    if (hiddenHeight_ == 0) {
        return;
    }
    if (scrollBar_ == nullptr) {
        scrollBar_ =
            CreateWindowExA(0, "ScrollBar", "", WS_CHILD | WS_VISIBLE | WS_GROUP | SBS_VERT, 0, 0, 0, 0, window_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSheetScrollId)), instance_, nullptr);
    }
    const RECT page = pageRect();
    SetWindowPos(scrollBar_, HWND_TOP, page.right, page.top, GetSystemMetrics(SM_CXVSCROLL), page.bottom - page.top,
                 SWP_NOACTIVATE);
}

void PropertySheet::showScrolled() const {
    if (scrollBar_ == nullptr || active_ < 0) {
        return;
    }
    const RECT page = pageRect();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nPage = static_cast<UINT>(page.bottom - page.top);
    info.nMax = page.bottom - page.top + hiddenHeight_ - 1;
    info.nPos = slots_[static_cast<std::size_t>(active_)].scrolled;
    SendMessageA(scrollBar_, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

// Moves the page's controls, so that all of them stay where their own coordinates say.
void PropertySheet::scrollTo(int top) {
    HWND page = activePage();
    if (page == nullptr) {
        return;
    }
    int& scrolled = slots_[static_cast<std::size_t>(active_)].scrolled;
    const int rise = std::clamp(top, 0, hiddenHeight_) - scrolled;
    if (rise == 0) {
        return;
    }
    scrolled += rise;
    std::vector<HWND> controls;
    for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        controls.push_back(child);
    }
    for (HWND control : controls) {
        RECT place;
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&place), 2);
        SetWindowPos(control, nullptr, place.left, place.top - rise, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    RedrawWindow(page, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    showScrolled();
}

// A control that has got the focus comes into view.
void PropertySheet::followFocus() {
    HWND focus = GetFocus();
    HWND page = hiddenHeight_ > 0 && pageValid_ ? activePage() : nullptr;
    if (page == nullptr || focus == followed_ || !IsChild(page, focus)) {
        followed_ = focus;
        return;
    }
    followed_ = focus;
    // The field of a combo box lies in the combo box.
    HWND control = GetParent(focus) == page ? focus : GetParent(focus);
    RECT place;
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&place), 2);
    RECT view;
    GetClientRect(page, &view);
    const int margin = verticalPixels(kLineHeight);
    const int scrolled = slots_[static_cast<std::size_t>(active_)].scrolled;
    if (place.top < 0) {
        scrollTo(scrolled + place.top - margin);
    } else if (place.bottom > view.bottom) {
        scrollTo(scrolled + place.bottom - view.bottom + margin);
    }
}

void PropertySheet::onWmVScroll(WPARAM wParam) {
    if (active_ < 0) {
        return;
    }
    const int scrolled = slots_[static_cast<std::size_t>(active_)].scrolled;
    const RECT page = pageRect();
    const int line = verticalPixels(kLineHeight);
    switch (LOWORD(wParam)) {
        case SB_LINEUP:
            scrollTo(scrolled - line);
            break;
        case SB_LINEDOWN:
            scrollTo(scrolled + line);
            break;
        case SB_PAGEUP:
            scrollTo(scrolled - (page.bottom - page.top));
            break;
        case SB_PAGEDOWN:
            scrollTo(scrolled + page.bottom - page.top);
            break;
        case SB_THUMBTRACK:
            scrollTo(HIWORD(wParam));
            break;
        default:
            break;
    }
}

void PropertySheet::onWmMouseWheel(int delta) {
    if (active_ >= 0) {
        scrollTo(slots_[static_cast<std::size_t>(active_)].scrolled -
                 delta * kWheelLines * verticalPixels(kLineHeight) / kWheelStep);
    }
}

}  // namespace platform
