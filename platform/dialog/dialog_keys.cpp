// Keys of a dialog: Tab, arrows, Enter, Esc and mnemonics.
#include "platform/dialog/dialog_state.h"
#include "platform/resources/code_page.h"

#include <windows.h>

#include <array>
#include <cstring>

namespace platform {

namespace {

constexpr WPARAM kCopyCharacter = 3;  // Ctrl+C.

UINT dialogCode(HWND control, WPARAM key, const MSG* message) {
    return static_cast<UINT>(SendMessageA(control, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(message)));
}

bool isShiftDown() {
    return GetKeyState(VK_SHIFT) < 0;
}

// The character after the last single '&' before the text's end, in upper case; 0 for none.
char mnemonicOf(const char* text) {
    for (const char* at = std::strchr(text, '&'); at != nullptr; at = std::strchr(at + 2, '&')) {
        if (at[1] == '\0') {
            return '\0';
        }
        if (at[1] != '&') {
            return codePageUpper(at[1]);
        }
    }
    return '\0';
}

bool hasMnemonic(HWND control, UINT code, char key) {
    if ((code & (DLGC_BUTTON | DLGC_STATIC)) == 0) {
        return false;
    }
    std::array<char, 128> text{};
    GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    return mnemonicOf(text.data()) == key;
}

void pressMnemonic(HWND dialog, HWND control, UINT code) {
    const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
    if ((code & DLGC_STATIC) != 0 || kind == BS_GROUPBOX) {
        // A label stands for the control behind it.
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        SendMessageA(dialog, WM_NEXTDLGCTL, 0, FALSE);
    } else {
        SendMessageA(control, BM_CLICK, 0, 0);
    }
}

// Presses the first visible, enabled control inside `parent` whose caption marks the key; pages are searched too.
bool pressMnemonicIn(HWND dialog, HWND parent, char key) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const auto style = static_cast<DWORD>(GetWindowLongA(child, GWL_STYLE));
        if ((style & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE) {
            continue;
        }
        const UINT code = dialogCode(child, 0, nullptr);
        if (hasMnemonic(child, code, key)) {
            pressMnemonic(dialog, child, code);
            return true;
        }
        if (pressMnemonicIn(dialog, child, key)) {
            return true;
        }
    }
    return false;
}

bool pressMnemonicKey(HWND dialog, WPARAM character) {
    const char key = codePageUpper(static_cast<char>(character));
    return key != '\0' && key != ' ' && pressMnemonicIn(dialog, dialog, key);
}

// The combo box that the control is, or whose field it is; null for any other control.
HWND comboOf(HWND control) {
    for (HWND window : {control, GetParent(control)}) {
        std::array<char, 16> name{};
        GetClassNameA(window, name.data(), static_cast<int>(name.size()));
        if (std::strcmp(name.data(), "ComboBox") == 0) {
            return window;
        }
    }
    return nullptr;
}

// Tab keeps what is picked in an open list, which another loss of the focus would cancel. So the list gets the key
// first.
void endPick(const MSG& tab) {
    HWND combo = comboOf(tab.hwnd);
    if (combo != nullptr && SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0) != FALSE) {
        SendMessageA(tab.hwnd, WM_KEYDOWN, tab.wParam, tab.lParam);
    }
}

void onTab(HWND dialog, const MSG& message) {
    endPick(message);
    if (!IsWindow(dialog)) {
        return;
    }
    if (dialogState(dialog) != nullptr) {
        SendMessageA(dialog, WM_NEXTDLGCTL, isShiftDown() ? TRUE : FALSE, 0);
        return;
    }
    // Any window may be walked; only a dialog knows WM_NEXTDLGCTL.
    HWND next = GetNextDlgTabItem(dialog, GetFocus(), isShiftDown() ? TRUE : FALSE);
    if (next != nullptr) {
        focusControl(next);
    }
}

// An automatic radio button becomes checked when an arrow key reaches it.
void onArrow(HWND dialog, HWND from, bool previous) {
    HWND next = GetNextDlgGroupItem(dialog, from, previous ? TRUE : FALSE);
    if (next == nullptr) {
        return;
    }
    if (dialogCode(next, 0, nullptr) != (DLGC_BUTTON | DLGC_RADIOBUTTON)) {
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    SetFocus(next);
    const bool automatic = (GetWindowLongA(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    if (automatic && SendMessageA(next, BM_GETCHECK, 0, 0) != BST_CHECKED) {
        SendMessageA(next, BM_CLICK, TRUE, 0);
    }
}

void onEscape(HWND dialog) {
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
}

void onReturn(HWND dialog) {
    HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus) && (dialogCode(focus, 0, nullptr) & DLGC_DEFPUSHBUTTON) != 0) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(focus), BN_CLICKED), reinterpret_cast<LPARAM>(focus));
        return;
    }
    const auto answer = static_cast<DWORD>(SendMessageA(dialog, DM_GETDEFID, 0, 0));
    if (HIWORD(answer) != DC_HASDEFID) {
        return;
    }
    HWND button = GetDlgItem(dialog, LOWORD(answer));
    if (button != nullptr ? IsWindowEnabled(button) != FALSE : LOWORD(answer) == IDOK) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(LOWORD(answer), BN_CLICKED), reinterpret_cast<LPARAM>(button));
    }
}

// True when the key meant the dialog and was not for the control.
bool onWmKeyDown(HWND dialog, const MSG& message) {
    const UINT code = dialogCode(message.hwnd, message.wParam, &message);
    if ((code & DLGC_WANTMESSAGE) != 0) {
        return false;
    }
    switch (message.wParam) {
        case VK_TAB:
            if ((code & DLGC_WANTTAB) != 0) {
                return false;
            }
            onTab(dialog, message);
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((code & DLGC_WANTARROWS) != 0) {
                return false;
            }
            onArrow(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
            return true;
        case VK_CANCEL:
        case VK_ESCAPE:
            onEscape(dialog);
            return true;
        case VK_EXECUTE:
        case VK_RETURN:
            onReturn(dialog);
            return true;
        default:
            return false;
    }
}

bool onWmChar(HWND dialog, const MSG& message) {
    const UINT code = dialogCode(message.hwnd, message.wParam, &message);
    if ((code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) != 0) {
        return false;
    }
    if (message.wParam == kCopyCharacter) {
        // A message box answers by copying its text.
        SendMessageA(dialog, WM_COPY, 0, 0);
        return !IsWindow(dialog);
    }
    return pressMnemonicKey(dialog, message.wParam);
}

bool takesMessage(HWND dialog, const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
            return onWmKeyDown(dialog, message);
        case WM_CHAR:
            return onWmChar(dialog, message);
        case WM_SYSCHAR:
            return pressMnemonicKey(dialog, message.wParam);
        default:
            return false;
    }
}

}  // namespace

}  // namespace platform

BOOL IsDialogMessageA(HWND dialog, LPMSG message) {
    if (!IsWindow(dialog) || (message->hwnd != dialog && !IsChild(dialog, message->hwnd))) {
        return FALSE;
    }
    if (!platform::takesMessage(dialog, *message)) {
        TranslateMessage(message);
        DispatchMessageA(message);
    }
    return TRUE;
}
