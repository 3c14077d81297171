// The sheet's pages: their windows, which of them is shown, and how one gives way to another.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/dialog/property_sheet.h"
#include "platform/window/out_of_memory.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <memory>

namespace platform {

bool PropertySheet::takePage(HPROPSHEETPAGE page) {
    const auto destroy = [](HPROPSHEETPAGE unwanted) { DestroyPropertySheetPage(unwanted); };
    std::unique_ptr<_PSP, decltype(destroy)> owned(page, destroy);
    const auto source = page != nullptr ? pageTemplate(*page, false) : std::nullopt;
    if (!source) {
        return false;
    }
    Slot slot;
    slot.page = page;
    slot.caption = source->caption;
    slots_.push_back(std::move(slot));
    (void)owned.release();
    // A page that comes into a running sheet has to be content with the room that there is.
    if (window_ == nullptr) {
        largestPage_.cx = std::max<LONG>(largestPage_.cx, horizontalPixels(source->width));
        largestPage_.cy = std::max<LONG>(largestPage_.cy, verticalPixels(source->height));
    }
    return true;
}

void PropertySheet::insertTab(int index) {
    TCITEMA tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = slots_[static_cast<std::size_t>(index)].caption.data();
    SendMessageA(tabs(), TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab));
}

// Whatever frame the template asks for, a page is a plain child, invisible until it is shown.
bool PropertySheet::createPage(int index) {
    Slot& slot = slots_[static_cast<std::size_t>(index)];
    HPROPSHEETPAGE page = slot.page;
    auto source = pageTemplate(*page, true);
    if (!source || !callPage(*page, PSPCB_CREATE)) {
        return false;
    }
    constexpr DWORD kNoPageStyles =
        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_VISIBLE | WS_DISABLED;
    source->style = (source->style & ~kNoPageStyles) | WS_CHILD | WS_TABSTOP | DS_CONTROL;
    source->exStyle |= WS_EX_CONTROLPARENT;
    HWND sheet = window_;
    HWND window = createDialog(page->info.hInstance, *source, sheet, page->info.pfnDlgProc,
                               reinterpret_cast<LPARAM>(&page->info));
    if (!IsWindow(sheet)) {
        return false;
    }
    // The page's own initialisation may have removed pages.
    const int now = indexOf(page);
    if (window == nullptr || now < 0) {
        return false;
    }
    slots_[static_cast<std::size_t>(now)].window = window;
    return true;
}

void PropertySheet::destroyPage(Slot& slot) {
    HPROPSHEETPAGE page = slot.page;
    slot.page = nullptr;
    if (slot.window != nullptr && IsWindow(slot.window)) {
        DestroyWindow(slot.window);
    }
    DestroyPropertySheetPage(page);
}

int PropertySheet::indexOf(HPROPSHEETPAGE page) const {
    const auto found =
        std::find_if(slots_.begin(), slots_.end(), [page](const Slot& slot) { return slot.page == page; });
    return found != slots_.end() ? static_cast<int>(found - slots_.begin()) : -1;
}

LRESULT PropertySheet::onPsmAddPage(HPROPSHEETPAGE page) {
    if (!takePage(page)) {
        return FALSE;
    }
    const auto rows = SendMessageA(tabs(), TCM_GETROWCOUNT, 0, 0);
    const int index = static_cast<int>(slots_.size()) - 1;
    insertTab(index);
    // Another row of tabs would cut off the pages below; the room of one that goes stays.
    if (SendMessageA(tabs(), TCM_GETROWCOUNT, 0, 0) > rows && rows > 0) {
        fitToPages();
        if (HWND shown = activePage()) {
            const RECT rect = pageRect();
            MoveWindow(shown, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
        }
    }
    if (index == 0) {
        select(0, 1);
    }
    return TRUE;
}

// The page is not asked whether it may be left: whoever removes it has decided.
void PropertySheet::onPsmRemovePage(int index) {
    if (!has(index)) {
        return;
    }
    HWND window = window_;
    HPROPSHEETPAGE page = slots_[static_cast<std::size_t>(index)].page;
    if (index == active_ && slots_.size() > 1) {
        select(index > 0 ? index - 1 : 1, index > 0 ? -1 : 1);
        if (!IsWindow(window)) {
            return;
        }
    }
    const int now = indexOf(page);
    if (now < 0) {
        return;
    }
    if (now == active_) {
        active_ = -1;
    } else if (now < active_) {
        --active_;
    }
    Slot removed = std::move(slots_[static_cast<std::size_t>(now)]);
    slots_.erase(slots_.begin() + now);
    SendMessageA(tabs(), TCM_DELETEITEM, static_cast<WPARAM>(now), 0);
    destroyPage(removed);
}

HWND PropertySheet::activePage() const {
    return active_ >= 0 ? slots_[static_cast<std::size_t>(active_)].window : nullptr;
}

bool PropertySheet::mayLeave() {
    HWND page = activePage();
    return page == nullptr || notify(page, PSN_KILLACTIVE, 0) == 0;
}

// Shows the page at the index. `direction` is where a page is looked for
// that stands in for one that refuses to be shown.
bool PropertySheet::select(int index, int direction) {
    if (!has(index)) {
        return false;
    }
    HWND window = window_;
    if (HWND former = activePage()) {
        ShowWindow(former, SW_HIDE);
    }
    if (!IsWindow(window)) {
        return false;
    }
    active_ = -1;
    const int settled = settle(index, direction);
    if (!IsWindow(window) || settled < 0) {
        return false;
    }
    show(settled);
    return IsWindow(window) != FALSE;
}

// Creates pages and asks them until one wants to be shown. Returns its index, or -1 when there is no page left.
int PropertySheet::settle(int index, int direction) {
    HWND window = window_;
    // Each page is asked once at most.
    for (std::size_t attempts = slots_.size(); attempts > 0 && !slots_.empty(); --attempts) {
        SendMessageA(tabs(), TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
        HPROPSHEETPAGE page = slots_[static_cast<std::size_t>(index)].page;
        if (slots_[static_cast<std::size_t>(index)].window == nullptr &&
            !orOutOfMemory([&] { return createPage(index); }, false)) {
            if (!IsWindow(window)) {
                return -1;
            }
            onPsmRemovePage(indexOf(page));
            index = std::min(index, static_cast<int>(slots_.size()) - 1);
            continue;
        }
        const RECT rect = pageRect();
        HWND pageWindow = slots_[static_cast<std::size_t>(index)].window;
        SetWindowPos(pageWindow, HWND_TOP, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, 0);
        const LRESULT answer = notify(pageWindow, PSN_SETACTIVE, 0);
        if (!IsWindow(window)) {
            return -1;
        }
        index = indexOf(page);
        if (answer != -1 || !has(index + direction)) {
            return index >= 0 ? index : slots_.empty() ? -1 : 0;
        }
        index += direction;
    }
    return has(index) ? index : -1;
}

void PropertySheet::show(int index) {
    HWND window = window_;
    HWND page = slots_[static_cast<std::size_t>(index)].window;
    if (page == nullptr) {
        return;
    }
    active_ = index;
    pageValid_ = true;
    ShowWindow(page, SW_SHOW);
    if (IsWindow(window)) {
        SendMessageA(tabs(), TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
}

LRESULT PropertySheet::onPsmSetCurSel(int index) {
    HWND window = window_;
    return mayLeave() && IsWindow(window) && select(index, 1);
}

// Switches to a neighbouring page, round the ends. A focus inside the old page would now be on an invisible
// control, so it goes to the first one of the new page; a focus on the tabs or a button stays there.
void PropertySheet::stepByKey(int step) {
    HWND window = window_;
    HWND former = activePage();
    if (!mayLeave() || !IsWindow(window) || slots_.empty()) {
        return;
    }
    const int count = static_cast<int>(slots_.size());
    if (!select((active_ + step + count) % count, 1)) {
        return;
    }
    HWND page = activePage();
    if (former != nullptr && former != page && IsChild(former, GetFocus())) {
        HWND first = firstFocus(page);
        focusControl(first != nullptr ? first : tabs());
    }
}

bool PropertySheet::onPsmIsDialogMessage(MSG& message) {
    const bool inside = message.hwnd == window_ || IsChild(window_, message.hwnd);
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || !inside) {
        return IsDialogMessageA(window_, &message) != FALSE;
    }
    int step = 0;
    if (message.wParam == VK_TAB) {
        step = GetKeyState(VK_SHIFT) < 0 ? -1 : 1;
    } else if (message.wParam == VK_NEXT) {
        step = 1;
    } else if (message.wParam == VK_PRIOR) {
        step = -1;
    }
    const LRESULT code = SendMessageA(message.hwnd, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(&message));
    if (step == 0 || (code & DLGC_WANTMESSAGE) != 0) {
        return IsDialogMessageA(window_, &message) != FALSE;
    }
    stepByKey(step);
    return true;
}

}  // namespace platform
