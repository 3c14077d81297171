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

// From left to right, as they stand at the lower edge. The system's sheets have an Apply and a Help button as well,
// which stay hidden here.
constexpr SheetButton kButtons[] = {
    {IDOK, BS_DEFPUSHBUTTON | WS_GROUP | WS_VISIBLE, "OK"},
    {IDCANCEL, BS_PUSHBUTTON | WS_VISIBLE, "Avbryt"},
    {kSheetApplyId, BS_PUSHBUTTON | WS_DISABLED, "&Verkst\xE4ll"},
    {IDHELP, BS_PUSHBUTTON | WS_GROUP, "&Hj\xE4lp"},
};

DialogItem sheetItem(int id, const char* windowClass, const char* text, DWORD style) {
    DialogItem item;
    item.id = static_cast<DWORD>(id);
    item.className.text = windowClass;
    item.text.text = text;
    item.style = style | WS_TABSTOP;
    item.x = kMargin;
    item.y = kMargin;
    return item;
}

PropertySheet* sheetOf(HWND window) {
    return reinterpret_cast<PropertySheet*>(GetWindowLongPtrA(window, DWLP_USER));
}

}  // namespace

PropertySheet::PropertySheet(const PROPSHEETHEADERA& header)
    : owner_(header.hwndParent != nullptr ? GetAncestor(header.hwndParent, GA_ROOT) : nullptr),
      instance_(header.hInstance),
      caption_(header.pszCaption != nullptr ? header.pszCaption : ""),
      startIndex_(header.nStartPage) {}

void PropertySheet::takePages(const PROPSHEETHEADERA& header, UINT& taken) {
    for (UINT i = 0; i < header.nPages; ++i) {
        ++taken;
        takePage(header.phpage[i]);
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
    DialogItem tabs = sheetItem(kSheetTabId, WC_TABCONTROLA, "", WS_GROUP | WS_VISIBLE | TCS_MULTILINE);
    tabs.width = kLeastTabsWidth;
    tabs.height = kLeastTabsHeight;
    sheet.items.push_back(tabs);
    return sheet;
}

HWND PropertySheet::create() {
    creating_ = true;
    HWND window = createDialog(instance_, sheetTemplate(), owner_, dialogProc, reinterpret_cast<LPARAM>(this));
    creating_ = false;
    return window;
}

void PropertySheet::onWmInitDialog(HWND window) {
    window_ = window;
    SendMessageA(window, DM_SETDEFID, IDOK, 0);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        insertTab(static_cast<int>(i));
    }
    fitToPages();
    centre();
    SetFocus(item(IDOK));
    const int start = static_cast<int>(startIndex_);
    select(has(start) ? start : 0, 1);
    SetWindowTextA(window_, caption_.c_str());
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

// Puts the visible buttons side by side, the last one up to the right edge of the tab control.
void PropertySheet::placeButtons(int right, int top) {
    const int width = horizontalPixels(kButtonWidth);
    int x = right;
    for (auto button = std::rbegin(kButtons); button != std::rend(kButtons); ++button) {
        if ((button->style & WS_VISIBLE) == 0) {
            continue;
        }
        x -= width;
        SetWindowPos(item(button->id), nullptr, x, top, width, verticalPixels(kButtonHeight),
                     SWP_NOZORDER | SWP_NOACTIVATE);
        x -= horizontalPixels(kMargin);
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

bool PropertySheet::handleSheetMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int index = static_cast<int>(wParam);
    switch (message) {
        case PSM_SETCURSEL:
            result = onPsmSetCurSel(index);
            return true;
        case PSM_ADDPAGE:
            result = onPsmAddPage(reinterpret_cast<HPROPSHEETPAGE>(lParam));
            return true;
        case PSM_REMOVEPAGE:
            onPsmRemovePage(index);
            return true;
        case PSM_PRESSBUTTON:
            if (wParam == PSBTN_OK) {
                onOk();
            } else if (wParam == PSBTN_CANCEL) {
                cancel(false);
            }
            return true;
        case PSM_GETTABCONTROL:
            result = reinterpret_cast<LRESULT>(tabs());
            return true;
        case PSM_GETCURRENTPAGEHWND:
            result = reinterpret_cast<LRESULT>(pageValid_ ? activePage() : nullptr);
            return true;
        case PSM_ISDIALOGMESSAGE:
            result = onPsmIsDialogMessage(*reinterpret_cast<MSG*>(lParam));
            return true;
        default:
            return false;  // PSM_CHANGED too: nothing is to be applied before the end.
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
        if (!sheet->creating_) {
            delete sheet;
        }
        return FALSE;
    }
    return sheet->handle(message, wParam, lParam);
}

}  // namespace platform

INT_PTR PropertySheetA(LPCPROPSHEETHEADERA header) {
    // Who wants a modal sheet runs the loop himself.
    if (header == nullptr || header->dwSize < sizeof(PROPSHEETHEADERA) || (header->dwFlags & PSH_MODELESS) == 0) {
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
            HWND window = sheet->create();
            if (window == nullptr) {
                return -1;
            }
            (void)sheet.release();  // The window owns it now.
            return reinterpret_cast<INT_PTR>(window);
        },
        -1);
    // The pages' handles are given up in any case.
    for (UINT i = taken; i < header->nPages; ++i) {
        DestroyPropertySheetPage(header->phpage[i]);
    }
    return result;
}
