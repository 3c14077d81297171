// Buttons: states, mouse, keys and notifications. Every state change by the user goes through BM_SETSTATE and
// BM_SETCHECK, sent to the window itself, so that a subclassed button sees them as on the real system.
#include "platform/controls/button.h"

#include "platform/controls/control_base.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

// The button went down on this window and has not come up yet; BM_GETSTATE shows it too.
constexpr UINT kPressed = 0x40;

struct KindTraits {
    WPARAM highestCheck;
    LRESULT dialogCode;
};

// Indexed by the button type in the style.
constexpr KindTraits kTraits[] = {
    {0, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},  // BS_PUSHBUTTON
    {0, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},    // BS_DEFPUSHBUTTON
    {1, DLGC_BUTTON},                         // BS_CHECKBOX
    {1, DLGC_BUTTON},                         // BS_AUTOCHECKBOX
    {1, DLGC_BUTTON | DLGC_RADIOBUTTON},      // BS_RADIOBUTTON
    {0, DLGC_BUTTON},                         // 5 and 6, of three states, are not offered
    {0, DLGC_BUTTON},
    {0, DLGC_STATIC},                         // BS_GROUPBOX
    {0, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},  // 8, an obsolete owner-drawn push button
    {1, DLGC_BUTTON | DLGC_RADIOBUTTON},      // BS_AUTORADIOBUTTON
    {0, DLGC_BUTTON},                         // 10, unused
    {0, DLGC_BUTTON},                         // BS_OWNERDRAW
    {0, DLGC_BUTTON},
    {0, DLGC_BUTTON},
    {0, DLGC_BUTTON},
    {0, DLGC_BUTTON},
};
static_assert(sizeof kTraits / sizeof kTraits[0] == BS_TYPEMASK + 1);

}  // namespace

DWORD Button::kind() const {
    return styleOf(window_) & BS_TYPEMASK;
}

LRESULT Button::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return onWmGetDlgCode();
        case WM_NCHITTEST:
            return kind() == BS_GROUPBOX ? HTTRANSPARENT : DefWindowProcA(window_, message, wParam, lParam);
        case WM_ERASEBKGND:
            onWmEraseBkgnd(reinterpret_cast<HDC>(wParam));
            return TRUE;
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (LOWORD(lParam)) {
                InvalidateRect(window_, nullptr, TRUE);
            }
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SETTEXT:
            return onWmSetText(wParam, lParam);
        case WM_ENABLE:
            showChange(ODA_DRAWENTIRE);
            return 0;
        case WM_SETFOCUS:
            onWmSetFocus();
            return 0;
        case WM_KILLFOCUS:
            onWmKillFocus();
            return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) {
                SetCapture(window_);
                press();
            }
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE) {
                release(true);
            }
            return 0;
        default:
            break;
    }
    if (message >= BM_GETCHECK && message <= BM_CLICK) {
        return handleButtonMessage(message, wParam, lParam);
    }
    return handleMouse(message, wParam, lParam);
}

LRESULT Button::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_LBUTTONDOWN:
            onWmLButtonDown();
            return 0;
        case WM_LBUTTONDBLCLK:
            onWmLButtonDblClk();
            return 0;
        case WM_LBUTTONUP: {
            RECT client;
            GetClientRect(window_, &client);
            release(PtInRect(&client, point) != 0);
            return 0;
        }
        case WM_MOUSEMOVE:
            onWmMouseMove(wParam, point);
            return 0;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT Button::handleButtonMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case BM_GETCHECK:
            return state_ & BST_CHECKED;
        case BM_SETCHECK:
            onBmSetCheck(wParam);
            return 0;
        case BM_GETSTATE:
            return state_;
        case BM_SETSTATE:
            onBmSetState(wParam != 0);
            return 0;
        case BM_SETSTYLE:
            onBmSetStyle(static_cast<DWORD>(wParam), LOWORD(lParam) != 0);
            return 0;
        default:
            onBmClick();
            return 0;
    }
}

void Button::notifyIfWanted(UINT code) const {
    if (styleOf(window_) & BS_NOTIFY) {
        notifyCommand(window_, code);
    }
}

LRESULT Button::onWmGetDlgCode() const {
    return kTraits[kind()].dialogCode;
}

void Button::onWmSetFocus() {
    const HWND window = window_;
    state_ |= BST_FOCUS;
    showChange(ODA_FOCUS);
    if (IsWindow(window)) {
        notifyIfWanted(BN_SETFOCUS);
    }
}

void Button::onWmKillFocus() {
    const HWND window = window_;
    state_ &= ~static_cast<UINT>(BST_FOCUS);
    showChange(ODA_FOCUS);
    if (!IsWindow(window)) {
        return;
    }
    if ((state_ & kPressed) && GetCapture() == window) {
        ReleaseCapture();
    }
    if (IsWindow(window)) {
        InvalidateRect(window, nullptr, FALSE);
        notifyIfWanted(BN_KILLFOCUS);
    }
}

LRESULT Button::onWmSetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProcA(window_, WM_SETTEXT, wParam, lParam);
    if (kind() == BS_GROUPBOX) {
        // The frame has no ground of its own, so the parent paints over the old caption.
        RECT rect;
        GetClientRect(window_, &rect);
        MapWindowPoints(window_, GetParent(window_), reinterpret_cast<LPPOINT>(&rect), 2);
        InvalidateRect(GetParent(window_), &rect, TRUE);
    }
    showChange(ODA_DRAWENTIRE);
    return result;
}

void Button::onWmLButtonDown() {
    const HWND window = window_;
    SetCapture(window);
    SetFocus(window);
    if (!IsWindow(window)) {
        return;
    }
    if (GetFocus() == window && GetCapture() == window) {
        press();
        return;
    }
    // A message box about the field that was left got the release.
    ReleaseCapture();
}

// The second press of a double-click is told as such only to parents that want it; for the others it is one more press.
void Button::onWmLButtonDblClk() {
    const DWORD type = kind();
    if ((styleOf(window_) & BS_NOTIFY) || type == BS_RADIOBUTTON || type == BS_OWNERDRAW) {
        notifyCommand(window_, BN_DOUBLECLICKED);
        return;
    }
    onWmLButtonDown();
}

void Button::press() {
    state_ |= kPressed;
    SendMessageA(window_, BM_SETSTATE, TRUE, 0);
}

void Button::release(bool inside) {
    if (!(state_ & kPressed)) {
        return;
    }
    const HWND window = window_;
    state_ &= ~kPressed;
    if (!(state_ & BST_PUSHED)) {
        ReleaseCapture();
        return;
    }
    SendMessageA(window, BM_SETSTATE, FALSE, 0);
    if (inside && IsWindow(window)) {
        toggle();
    }
    ReleaseCapture();
    if (inside && IsWindow(window)) {
        notifyCommand(window, BN_CLICKED);
    }
}

// The automatic kinds change their own mark.
void Button::toggle() const {
    switch (kind()) {
        case BS_AUTOCHECKBOX:
            SendMessageA(window_, BM_SETCHECK, state_ & BST_CHECKED ? BST_UNCHECKED : BST_CHECKED, 0);
            break;
        case BS_AUTORADIOBUTTON:
            checkInGroup();
            break;
        default:
            break;
    }
}

void Button::onWmMouseMove(WPARAM keys, POINT point) {
    if (GetCapture() == window_) {
        if (keys & MK_LBUTTON) {
            RECT client;
            GetClientRect(window_, &client);
            SendMessageA(window_, BM_SETSTATE, static_cast<WPARAM>(PtInRect(&client, point)), 0);
        }
    } else if (!(keys & MK_LBUTTON)) {
        // The release went to another window, a message box perhaps.
        onWmCaptureChanged();
    }
}

void Button::onWmCaptureChanged() {
    if (!(state_ & kPressed)) {
        return;
    }
    state_ &= ~kPressed;
    if (state_ & BST_PUSHED) {
        SendMessageA(window_, BM_SETSTATE, FALSE, 0);
    }
}

void Button::onBmClick() const {
    const HWND window = window_;
    SendMessageA(window, WM_LBUTTONDOWN, 0, 0);
    if (IsWindow(window)) {
        SendMessageA(window, WM_LBUTTONUP, 0, 0);
    }
}

void Button::onBmSetCheck(WPARAM check) {
    const HWND window = window_;
    const DWORD type = kind();
    const WPARAM highest = kTraits[type].highestCheck;
    check = check > highest ? highest : check;
    if (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON) {
        // The checked button of a group is the one that the Tab key reaches.
        const DWORD style = styleOf(window) & ~static_cast<DWORD>(WS_TABSTOP);
        setStyleQuietly(window, check ? style | WS_TABSTOP : style);
    }
    if ((state_ & BST_CHECKED) != check) {
        state_ = (state_ & ~static_cast<UINT>(BST_CHECKED)) | static_cast<UINT>(check);
        showChange(ODA_SELECT);
    }
}

// Only a click clears the rest of the group; BM_SETCHECK alone does not. Buttons that are disabled or hidden are not
// met on the way round and keep their mark.
void Button::checkInGroup() const {
    const HWND self = window_;
    const HWND parent = GetParent(self);
    SendMessageA(self, BM_SETCHECK, BST_CHECKED, 0);
    const HWND first = GetNextDlgGroupItem(parent, self, FALSE);
    HWND sibling = first;
    while (sibling && sibling != self) {
        if ((styleOf(sibling) & BS_TYPEMASK) == BS_AUTORADIOBUTTON) {
            SendMessageA(sibling, BM_SETCHECK, BST_UNCHECKED, 0);
        }
        sibling = GetNextDlgGroupItem(parent, sibling, FALSE);
        if (sibling == first) {
            break;
        }
    }
}

void Button::onBmSetState(bool pushed) {
    const UINT before = state_;
    state_ = pushed ? state_ | BST_PUSHED : state_ & ~static_cast<UINT>(BST_PUSHED);
    if (state_ != before) {
        showChange(ODA_SELECT);
    }
}

void Button::onBmSetStyle(DWORD style, bool redraw) {
    const DWORD kept = styleOf(window_) & ~static_cast<DWORD>(BS_TYPEMASK);
    setStyleQuietly(window_, kept | (style & BS_TYPEMASK));
    if (redraw) {
        InvalidateRect(window_, nullptr, TRUE);
    }
}

void registerButtonClass() {
    registerControlClass<Button>("Button", CS_HREDRAW | CS_VREDRAW | CS_PARENTDC);
}

}  // namespace platform
