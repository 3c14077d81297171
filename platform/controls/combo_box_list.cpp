// The combo box and its list: opening and closing, focus, keys, mouse, and what of it the parent is told.
#include "platform/controls/combo_box.h"
#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"

#include <algorithm>

namespace platform {
namespace {

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

}  // namespace

// Focus, keys and mouse. False for any other message.
bool ComboBox::onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = TRUE;
    switch (message) {
        case WM_SETFOCUS:
            onWmSetFocus();
            return true;
        case WM_KILLFOCUS:
            onWmKillFocus(reinterpret_cast<HWND>(wParam));
            return true;
        case WM_KEYDOWN:
        case WM_CHAR:
            result = onWmKey(message, wParam, lParam);
            return true;
        case WM_SYSKEYDOWN:
            result = onWmSysKeyDown(wParam, lParam);
            return true;
        case WM_MOUSEWHEEL:
            result = onWmMouseWheel(wParam, lParam);
            return true;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            onWmLButtonDown(pointOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            onWmMouseMove(pointOf(lParam));
            return true;
        case WM_LBUTTONUP:
            onWmLButtonUp();
            return true;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return true;
        default:
            return false;
    }
}

// What the edit and the list say. False for any other message.
bool ComboBox::onPartMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const HWND parent = GetParent(window_);
    result = 0;
    switch (message) {
        case WM_COMMAND:
            if (lParam && reinterpret_cast<HWND>(lParam) == edit_) {
                onEditCommand(HIWORD(wParam));
            } else if (lParam && reinterpret_cast<HWND>(lParam) == list_) {
                onListCommand(HIWORD(wParam));
            }
            return true;
        case kComboListKey:
            onListKey(static_cast<UINT>(wParam));
            return true;
        case kComboFlip:
            flip();
            return true;
        case kComboListWheel:
            askList(WM_MOUSEWHEEL, wParam, lParam);
            return true;
        case kComboListDismissed:
            rollUp(false);
            return true;
        case WM_DRAWITEM:
            result = onWmDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
            return true;
        case WM_MEASUREITEM:
            result = onWmMeasureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
            return true;
        case WM_DELETEITEM:
            result = onWmDeleteItem(*reinterpret_cast<DELETEITEMSTRUCT*>(lParam));
            return true;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSTATIC:
            result = SendMessageA(parent, message, wParam, lParam);
            return true;
        default:
            return false;
    }
}

LRESULT ComboBox::onWmDrawItem(DRAWITEMSTRUCT& draw) {
    draw.CtlType = ODT_COMBOBOX;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    draw.hwndItem = window_;
    return SendMessageA(GetParent(window_), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

// The list asks for its entries as it is created; what is proposed for them is the height of a field with text.
LRESULT ComboBox::onWmMeasureItem(MEASUREITEMSTRUCT& measure) {
    measure.itemHeight = static_cast<UINT>(fontFieldHeight());
    return askParent(measure);
}

LRESULT ComboBox::askParent(MEASUREITEMSTRUCT& measure) const {
    RECT client;
    GetClientRect(window_, &client);
    measure.itemWidth = static_cast<UINT>(client.right);
    measure.CtlType = ODT_COMBOBOX;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    return SendMessageA(GetParent(window_), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
}

LRESULT ComboBox::onWmDeleteItem(DELETEITEMSTRUCT& deletion) {
    deletion.CtlType = ODT_COMBOBOX;
    deletion.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    deletion.hwndItem = window_;
    return SendMessageA(GetParent(window_), WM_DELETEITEM, deletion.CtlID, reinterpret_cast<LPARAM>(&deletion));
}

void ComboBox::onWmSetFocus() {
    if (edit_) {
        const HWND window = window_;
        SetFocus(edit_);
        // Only the first focus of a box selects its text.
        if (IsWindow(window) && !wasEverFocused_) {
            wasEverFocused_ = true;
            SendMessageA(edit_, EM_SETSEL, 0, -1);
        }
    } else {
        gotFocus();
    }
}

void ComboBox::onWmKillFocus(HWND next) {
    if (!next || (next != edit_ && next != list_)) {
        lostFocus();
    }
}

void ComboBox::gotFocus() {
    if (!focused_) {
        focused_ = true;
        InvalidateRect(window_, &item_, FALSE);
        notify(CBN_SETFOCUS);
    }
}

void ComboBox::lostFocus() {
    if (focused_ && rollUp(false)) {
        focused_ = false;
        InvalidateRect(window_, &item_, FALSE);
        notify(CBN_KILLFOCUS);
    }
}

void ComboBox::onEditCommand(UINT code) {
    switch (code) {
        case EN_SETFOCUS:
            gotFocus();
            break;
        case EN_KILLFOCUS:
            lostFocus();
            break;
        case EN_UPDATE:
            notify(CBN_EDITUPDATE);
            break;
        case EN_CHANGE:
            if (keepSelection_) {
                keepSelection_ = false;
            } else {
                findTyped(open_);
            }
            notify(CBN_EDITCHANGE);
            break;
        default:
            break;
    }
}

// The notifications come before the field shows the new selection.
void ComboBox::onListCommand(UINT code) {
    if (code == LOWORD(LBN_ERRSPACE)) {
        notify(LOWORD(CBN_ERRSPACE));
        return;
    }
    if (code != LBN_SELCHANGE || (!trackingKey_ && !rollUp(true)) || !notify(CBN_SELCHANGE)) {
        return;
    }
    keepSelection_ = edit_ != nullptr;
    showCurrent();
}

void ComboBox::onListKey(UINT key) {
    if (key == VK_F4) {
        flip();
        return;
    }
    if (key == VK_TAB) {
        if (open_) {
            rollUp(true);
        }
        return;
    }
    const HWND window = window_;
    trackingKey_ = open_;
    askList(WM_KEYDOWN, key);
    if (IsWindow(window)) {
        trackingKey_ = false;
    }
}

LRESULT ComboBox::onWmKey(UINT message, WPARAM wParam, LPARAM lParam) {
    if (open_ && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
        rollUp(wParam == VK_RETURN);
        return TRUE;
    }
    if (message == WM_KEYDOWN && wParam == VK_F4) {
        flip();
        return TRUE;
    }
    if (edit_) {
        return SendMessageA(edit_, message, wParam, lParam);
    }
    if (message == WM_CHAR) {
        return askList(message, wParam, lParam);
    }
    onListKey(static_cast<UINT>(wParam));
    return 0;
}

LRESULT ComboBox::onWmSysKeyDown(WPARAM wParam, LPARAM lParam) {
    constexpr LPARAM kAltIsDown = 0x20000000;
    if ((lParam & kAltIsDown) && (wParam == VK_UP || wParam == VK_DOWN)) {
        flip();
        return 0;
    }
    return DefWindowProcA(window_, WM_SYSKEYDOWN, wParam, lParam);
}

// Each turn of the wheel moves by one entry, however far it went.
LRESULT ComboBox::onWmMouseWheel(WPARAM wParam, LPARAM lParam) {
    const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
    if (wParam & (MK_SHIFT | MK_CONTROL)) {
        return DefWindowProcA(window_, WM_MOUSEWHEEL, wParam, lParam);
    }
    if (delta != 0) {
        onListKey(delta > 0 ? VK_UP : VK_DOWN);
    }
    return 0;
}

void ComboBox::onWmLButtonDown(POINT at) {
    const HWND window = window_;
    if (!focused_) {
        SetFocus(window);
        // The field that was to lose the focus may have taken it back.
        if (!IsWindow(window) || !focused_) {
            return;
        }
    }
    const bool onButton = PtInRect(&button_, at) != FALSE;
    if (edit_ && !onButton) {
        return;
    }
    if (open_) {
        rollUp(true);
        return;
    }
    buttonDown_ = onButton;
    capturing_ = true;
    SetCapture(window);
    open();
    if (IsWindow(window)) {
        InvalidateRect(window, &button_, FALSE);
    }
}

// A press that moves on into the open list becomes a press there.
void ComboBox::onWmMouseMove(POINT at) {
    if (!capturing_) {
        return;
    }
    if (buttonDown_ && !PtInRect(&button_, at)) {
        buttonDown_ = false;
        InvalidateRect(window_, &button_, FALSE);
    }
    RECT list;
    GetClientRect(list_, &list);
    MapWindowPoints(window_, list_, &at, 1);
    if (!open_ || !PtInRect(&list, at)) {
        return;
    }
    capturing_ = false;
    if (edit_) {
        findTyped(true);
    }
    askList(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
}

void ComboBox::onWmLButtonUp() {
    if (capturing_) {
        capturing_ = false;
        if (edit_ && findTyped(true) >= 0) {
            showCurrent();
            keepSelection_ = false;
        }
        ReleaseCapture();
        if (open_) {
            SetCapture(list_);
        }
    }
    if (buttonDown_) {
        buttonDown_ = false;
        InvalidateRect(window_, &button_, FALSE);
    }
}

void ComboBox::onWmCaptureChanged() {
    capturing_ = false;
    if (buttonDown_) {
        buttonDown_ = false;
        InvalidateRect(window_, &button_, FALSE);
    }
}

void ComboBox::open() {
    if (!notify(CBN_DROPDOWN)) {
        return;
    }
    open_ = true;
    if (edit_) {
        // While the mouse is down the field waits with showing the entry that was found.
        if (findTyped(true) >= 0 && !capturing_) {
            showCurrent();
            keepSelection_ = false;
        }
    } else {
        askList(LB_SETTOPINDEX, static_cast<WPARAM>(std::max<LRESULT>(askList(LB_GETCURSEL), 0)));
        InvalidateRect(window_, &item_, FALSE);
    }
    placeList();
    if (!capturing_) {
        SetCapture(list_);  // So that a press anywhere else closes the list.
    }
}

// Shows the list below the combo box, or above it where the screen ends; never higher than its entries need.
void ComboBox::placeList() {
    RECT combo;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetWindowRect(window_, &combo);
    GetMonitorInfoA(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& workArea = monitor.rcWork;
    int height = listHeight_;
    const auto count = static_cast<int>(askList(LB_GETCOUNT));
    if (count > 0) {
        height =
            std::min(height, count * static_cast<int>(askList(LB_GETITEMHEIGHT)) + 2 * GetSystemMetrics(SM_CYBORDER));
    }
    const bool above = combo.bottom + height > workArea.bottom && combo.top - height >= workArea.top;
    SetWindowPos(list_, HWND_TOPMOST, combo.left, above ? combo.top - height : combo.bottom, width(), height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

bool ComboBox::rollUp(bool accept) {
    if (!notify(accept ? CBN_SELENDOK : CBN_SELENDCANCEL)) {
        return false;
    }
    if (!open_) {
        return true;
    }
    open_ = false;
    ShowWindow(list_, SW_HIDE);
    if (GetCapture() == list_ || capturing_) {
        ReleaseCapture();
    }
    InvalidateRect(window_, edit_ ? &button_ : nullptr, FALSE);
    return notify(CBN_CLOSEUP);
}

void ComboBox::flip() {
    if (open_) {
        rollUp(true);
    } else {
        open();
    }
}

int ComboBox::findTyped(bool select) {
    const std::string typed = windowText(edit_);
    const auto index =
        static_cast<int>(askList(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(typed.c_str())));
    const auto row = static_cast<WPARAM>(std::max(index, 0));
    askList(LB_SETCURSEL, static_cast<WPARAM>(select ? index : -1));
    askList(LB_SETCARETINDEX, row);
    askList(LB_SETTOPINDEX, row);
    return index;
}

std::string ComboBox::currentText() const {
    const auto index = static_cast<WPARAM>(askList(LB_GETCURSEL));
    const LRESULT length = askList(LB_GETTEXTLEN, index);
    if (length <= 0) {
        return {};
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    askList(LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void ComboBox::showCurrent() {
    if (!edit_) {
        InvalidateRect(window_, &item_, FALSE);
        return;
    }
    SendMessageA(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(currentText().c_str()));
    if (focused_) {
        SendMessageA(edit_, EM_SETSEL, 0, -1);
    }
}

// As documented, an index beyond the list clears the selection as -1 does.
LRESULT ComboBox::onCbSetCurSel(int index) {
    const HWND window = window_;
    if (index >= askList(LB_GETCOUNT)) {
        index = -1;
    }
    const LRESULT selected = askList(LB_SETCURSEL, static_cast<WPARAM>(index));
    if (!IsWindow(window)) {
        return CB_ERR;
    }
    if (selected >= 0) {
        askList(LB_SETTOPINDEX, static_cast<WPARAM>(index));
    }
    showCurrent();
    return selected;
}

LRESULT ComboBox::onCbSelectString(int after, LPARAM wanted) {
    const HWND window = window_;
    const LRESULT index = askList(LB_SELECTSTRING, static_cast<WPARAM>(after), wanted);
    if (index >= 0 && IsWindow(window)) {
        showCurrent();
        keepSelection_ = false;
    }
    return index;
}

LRESULT ComboBox::onCbResetContent() {
    const HWND window = window_;
    askList(LB_RESETCONTENT);
    if (IsWindow(window)) {
        showCurrent();
    }
    return TRUE;
}

LRESULT ComboBox::onCbShowDropDown(bool show) {
    if (show && !open_) {
        open();
    } else if (!show && open_) {
        rollUp(false);
    }
    return TRUE;
}

}  // namespace platform
