// The sheet's window: creation, size, buttons, and which message goes where.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/dialog/property_sheet.h"
#include "platform/graphics/window_dc.h"
#include "platform/window/out_of_memory.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <memory>

namespace platform {

namespace {

constexpr short kFontSize = 8;  // Points.
// Dialog units.
constexpr short kMargin = 4;
constexpr short kLeastTabsWidth = 212;
constexpr short kLeastTabsHeight = 114;
constexpr short kButtonWidth = 50;
constexpr short kButtonHeight = 14;

struct SheetButton {
    int id;
    DWORD style;
    const char* caption;
};

// From left to right, as they stand at the lower edge.
constexpr SheetButton kButtons[] = {
    {IDOK, BS_DEFPUSHBUTTON | WS_GROUP, "OK"},
    {IDCANCEL, BS_PUSHBUTTON, "Avbryt"},
    {kSheetApplyId, BS_PUSHBUTTON | WS_DISABLED, "&Verkst\xE4ll"},
    {IDHELP, BS_PUSHBUTTON | WS_GROUP, "&Hj\xE4lp"},
};

DialogItem sheetItem(int id, const char* windowClass, const char* text, DWORD style) {
    DialogItem item;
    item.id = static_cast<DWORD>(id);
    item.className.text = windowClass;
    item.text.text = text;
    item.style = style | WS_VISIBLE | WS_TABSTOP;
    item.x = kMargin;
    item.y = kMargin;
    return item;
}

PropertySheet* sheetOf(HWND window) {
    return reinterpret_cast<PropertySheet*>(GetWindowLongPtrA(window, DWLP_USER));
}

}  // namespace

PropertySheet::PropertySheet(const PROPSHEETHEADERA& header)
    : flags_(header.dwFlags),
      owner_(header.hwndParent != nullptr ? GetAncestor(header.hwndParent, GA_ROOT) : nullptr),
      instance_(header.hInstance),
      caption_(sheetText(header.hInstance, header.pszCaption)),
      callback_((header.dwFlags & PSH_USECALLBACK) != 0 ? header.pfnCallback : nullptr) {
    if ((flags_ & PSH_USEPSTARTPAGE) != 0) {
        startPage_ = sheetText(header.hInstance, header.pStartPage);
    } else {
        startIndex_ = header.nStartPage;
    }
}

void PropertySheet::takePages(const PROPSHEETHEADERA& header, UINT& taken) {
    const auto* bytes = reinterpret_cast<const char*>(header.ppsp);
    for (UINT i = 0; i < header.nPages; ++i) {
        ++taken;
        if ((flags_ & PSH_PROPSHEETPAGE) == 0) {
            takePage(header.phpage[i]);
            continue;
        }
        const auto* page = reinterpret_cast<const PROPSHEETPAGEA*>(bytes);
        takePage(CreatePropertySheetPageA(page));
        bytes += page->dwSize;
    }
}

PropertySheet::~PropertySheet() {
    // Pages that never came into a window are still ours.
    for (Slot& slot : slots_) {
        destroyPage(slot);
    }
}

DialogTemplate PropertySheet::sheetTemplate() const {
    DialogTemplate sheet;
    sheet.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_MODALFRAME | DS_SETFONT;
    sheet.width = kLeastTabsWidth + 2 * kMargin;
    sheet.height = kLeastTabsHeight + kButtonHeight + 3 * kMargin;
    sheet.pointSize = kFontSize;
    for (const SheetButton& button : kButtons) {
        DialogItem item = sheetItem(button.id, "Button", button.caption, button.style);
        item.width = kButtonWidth;
        item.height = kButtonHeight;
        sheet.items.push_back(item);
    }
    DialogItem tabs = sheetItem(kSheetTabId, WC_TABCONTROLA, "", WS_GROUP | TCS_MULTILINE);
    tabs.width = kLeastTabsWidth;
    tabs.height = kLeastTabsHeight;
    sheet.items.push_back(tabs);
    return sheet;
}

HWND PropertySheet::create() {
    if (callback_ != nullptr) {
        callback_(nullptr, PSCB_PRECREATE, 0);
    }
    creating_ = true;
    HWND window = createDialog(instance_, sheetTemplate(), owner_, dialogProc, reinterpret_cast<LPARAM>(this));
    creating_ = false;
    return window;
}

INT_PTR PropertySheet::runModal() {
    HWND disabled = owner_ != nullptr && IsWindowEnabled(owner_) ? owner_ : nullptr;
    if (disabled != nullptr) {
        EnableWindow(disabled, FALSE);
    }
    HWND window = create();
    MSG message{};
    BOOL got = TRUE;
    while (window != nullptr && IsWindow(window) && !ended_ && (got = GetMessageA(&message, nullptr, 0, 0)) > 0) {
        if (!onPsmIsDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    if (got == 0) {
        PostQuitMessage(static_cast<int>(message.wParam));
    }
    if (disabled != nullptr) {
        EnableWindow(disabled, TRUE);
    }
    if (window == nullptr) {
        return -1;
    }
    if (IsWindow(window)) {
        DestroyWindow(window);
    }
    return result_;
}

void PropertySheet::onWmInitDialog(HWND window) {
    window_ = window;
    SendMessageA(window, DM_SETDEFID, IDOK, 0);
    if ((flags_ & PSH_NOAPPLYNOW) != 0) {
        ShowWindow(item(kSheetApplyId), SW_HIDE);
    }
    if ((flags_ & PSH_HASHELP) == 0) {
        ShowWindow(item(IDHELP), SW_HIDE);
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        insertTab(static_cast<int>(i));
    }
    fitToPages();
    centre();
    SetFocus(item(IDOK));
    if (callback_ != nullptr) {
        callback_(window, PSCB_INITIALIZED, 0);
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if ((slots_[i].page->info.dwFlags & PSP_PREMATURE) != 0) {
            createPage(static_cast<int>(i));
        }
    }
    select(startIndex(), 1);
    setTitle(caption_, flags_);
}

void PropertySheet::setTitle(const std::string& title, DWORD flags) {
    const std::string shown = (flags & PSH_PROPTITLE) != 0 ? "Egenskaper f\xF6r " + title : title;
    SetWindowTextA(window_, shown.c_str());
}

// Makes the tab control as large as its rows and the largest page need, and the sheet as large as that and the buttons
// need.
void PropertySheet::fitToPages() {
    const SIZE margin = {horizontalPixels(kMargin), verticalPixels(kMargin)};
    RECT around = {0, 0, largestPage_.cx, largestPage_.cy};
    // How many rows the tabs take depends on the width, and the height on the rows.
    SendMessageA(tabs(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&around));
    const int width = std::max<int>(around.right - around.left, horizontalPixels(kLeastTabsWidth));
    SetWindowPos(tabs(), nullptr, margin.cx, margin.cy, width, verticalPixels(kLeastTabsHeight),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    around = {0, 0, largestPage_.cx, largestPage_.cy};
    SendMessageA(tabs(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&around));
    const int height = std::max<int>(around.bottom - around.top, verticalPixels(kLeastTabsHeight));
    SetWindowPos(tabs(), nullptr, margin.cx, margin.cy, width, height, SWP_NOZORDER | SWP_NOACTIVATE);

    RECT frame = {0, 0, width + 2 * margin.cx, height + verticalPixels(kButtonHeight) + 3 * margin.cy};
    placeButtons(frame.right - margin.cx, 2 * margin.cy + height);
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongA(window_, GWL_EXSTYLE)));
    SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PropertySheet::centre() {
    RECT frame;
    GetWindowRect(window_, &frame);
    const POINT at = centredPosition({frame.right - frame.left, frame.bottom - frame.top}, owner_);
    SetWindowPos(window_, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Puts the buttons that the sheet has side by side, the last one up to the right edge of the tab control.
void PropertySheet::placeButtons(int right, int top) {
    const int width = horizontalPixels(kButtonWidth);
    int x = right;
    for (auto button = std::rbegin(kButtons); button != std::rend(kButtons); ++button) {
        const bool absent = (button->id == kSheetApplyId && (flags_ & PSH_NOAPPLYNOW) != 0) ||
                            (button->id == IDHELP && (flags_ & PSH_HASHELP) == 0);
        if (!absent) {
            x -= width;
            SetWindowPos(item(button->id), nullptr, x, top, width, verticalPixels(kButtonHeight),
                         SWP_NOZORDER | SWP_NOACTIVATE);
            x -= horizontalPixels(kMargin);
        }
    }
}

// Where pages stand, in coordinates of the sheet.
RECT PropertySheet::pageRect() const {
    RECT rect{};
    GetClientRect(tabs(), &rect);
    SendMessageA(tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&rect));
    MapWindowPoints(tabs(), window_, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void PropertySheet::onWmDestroy() {
    active_ = -1;
    pageValid_ = false;
    for (Slot& slot : slots_) {
        destroyPage(slot);
    }
    slots_.clear();
}

INT_PTR PropertySheet::onWmCommand(WPARAM wParam, LPARAM lParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            onOk();
            return TRUE;
        case IDCANCEL:
            cancel(false);
            return TRUE;
        case kSheetApplyId:
            onApplyNow();
            return TRUE;
        case IDHELP:
            if (HWND page = activePage()) {
                notify(page, PSN_HELP, 0);
            }
            return TRUE;
        default:
            if (HWND page = activePage()) {
                SendMessageA(page, WM_COMMAND, wParam, lParam);
            }
            return FALSE;
    }
}

INT_PTR PropertySheet::onWmNotify(const NMHDR& header) {
    if (header.hwndFrom != tabs()) {
        return FALSE;
    }
    if (header.code == TCN_SELCHANGING) {
        HWND window = window_;
        const bool refused = !mayLeave();
        SetWindowLongPtrA(window, DWLP_MSGRESULT, refused);
        return TRUE;
    }
    if (header.code == TCN_SELCHANGE) {
        const auto index = static_cast<int>(SendMessageA(tabs(), TCM_GETCURSEL, 0, 0));
        select(index, index > active_ ? 1 : -1);
    }
    return FALSE;
}

bool PropertySheet::handleIndexMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) const {
    const auto slotAt = [&](WPARAM index) { return index < slots_.size() ? &slots_[index] : nullptr; };
    switch (message) {
        case PSM_GETTABCONTROL:
            result = reinterpret_cast<LRESULT>(tabs());
            return true;
        case PSM_GETCURRENTPAGEHWND:
            result = reinterpret_cast<LRESULT>(pageValid_ ? activePage() : nullptr);
            return true;
        case PSM_INDEXTOHWND:
            result = reinterpret_cast<LRESULT>(slotAt(wParam) != nullptr ? slotAt(wParam)->window : nullptr);
            return true;
        case PSM_INDEXTOPAGE:
            result = reinterpret_cast<LRESULT>(slotAt(wParam) != nullptr ? slotAt(wParam)->page : nullptr);
            return true;
        case PSM_HWNDTOINDEX:
            result = indexOf([&](const Slot& slot) {
                return slot.window != nullptr && slot.window == reinterpret_cast<HWND>(wParam);
            });
            return true;
        case PSM_PAGETOINDEX:
            result = indexOf([&](const Slot& slot) { return slot.page == reinterpret_cast<HPROPSHEETPAGE>(lParam); });
            return true;
        default:
            return false;
    }
}

bool PropertySheet::handleSheetMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const PageRef ref = {reinterpret_cast<HPROPSHEETPAGE>(lParam), static_cast<int>(wParam)};
    switch (message) {
        case PSM_SETCURSEL:
            result = onPsmSetCurSel(ref);
            return true;
        case PSM_SETCURSELID:
            result = onPsmSetCurSel({nullptr, indexOfTemplate(lParam)});
            return true;
        case PSM_ADDPAGE:
            result = onPsmAddPage(ref.page);
            return true;
        case PSM_REMOVEPAGE:
            onPsmRemovePage(ref);
            return true;
        case PSM_CHANGED:
        case PSM_UNCHANGED:
            onPsmChanged(reinterpret_cast<HWND>(wParam), message == PSM_CHANGED);
            return true;
        case PSM_CANCELTOCLOSE:
            onPsmCancelToClose();
            return true;
        case PSM_APPLY:
            result = apply(false);
            return true;
        case PSM_SETTITLEA:
            setTitle(sheetText(instance_, reinterpret_cast<LPCSTR>(lParam)), static_cast<DWORD>(wParam));
            return true;
        case PSM_PRESSBUTTON:
            press(static_cast<int>(wParam));
            return true;
        case PSM_ISDIALOGMESSAGE:
            result = onPsmIsDialogMessage(*reinterpret_cast<MSG*>(lParam));
            return true;
        default:
            return handleIndexMessage(message, wParam, lParam, result);
    }
}

INT_PTR PropertySheet::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY:
            onWmDestroy();
            return FALSE;
        case WM_CLOSE:
            // A refusal goes on to the dialog class, which asks once more, by the Cancel button.
            return cancel(true);
        case WM_COMMAND:
            return onWmCommand(wParam, lParam);
        case WM_NOTIFY:
            return onWmNotify(*reinterpret_cast<const NMHDR*>(lParam));
        default:
            break;
    }
    HWND window = window_;
    LRESULT result = 0;
    if (!handleSheetMessage(message, wParam, lParam, result)) {
        return FALSE;
    }
    SetWindowLongPtrA(window, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR CALLBACK PropertySheet::dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<PropertySheet*>(lParam)->onWmInitDialog(window);
        return TRUE;
    }
    PropertySheet* sheet = sheetOf(window);
    if (sheet == nullptr) {
        return FALSE;
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(window, DWLP_USER, 0);
        // A modal sheet belongs to its loop, which still wants the result.
        if ((sheet->flags_ & PSH_MODELESS) != 0 && !sheet->creating_) {
            delete sheet;
        }
        return FALSE;
    }
    return sheet->handle(message, wParam, lParam);
}

}  // namespace platform

INT_PTR PropertySheetA(LPCPROPSHEETHEADERA header) {
    if (header == nullptr || header->dwSize < sizeof(PROPSHEETHEADERA)) {
        return -1;
    }
    UINT taken = 0;
    const INT_PTR result = platform::orOutOfMemory(
        [&]() -> INT_PTR {
            if (!platform::isFontFound()) {
                return -1;  // A sheet without texts could not be worked.
            }
            auto sheet = std::make_unique<platform::PropertySheet>(*header);
            sheet->takePages(*header, taken);
            if ((header->dwFlags & PSH_MODELESS) == 0) {
                return sheet->runModal();
            }
            HWND window = sheet->create();
            if (window == nullptr) {
                return -1;
            }
            (void)sheet.release();  // The window owns it now.
            return reinterpret_cast<INT_PTR>(window);
        },
        -1);
    // The pages' handles are given up in any case.
    for (UINT i = taken; i < header->nPages && (header->dwFlags & PSH_PROPSHEETPAGE) == 0; ++i) {
        DestroyPropertySheetPage(header->phpage[i]);
    }
    return result;
}
