// Window texts. They go through the window, which may keep its text elsewhere.
#include "platform/window/window.h"

BOOL SetWindowTextA(HWND window, LPCSTR text) {
    if (!platform::requireWindow(window)) {
        return FALSE;
    }
    return SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0 ? TRUE : FALSE;
}

int GetWindowTextA(HWND window, LPSTR text, int size) {
    if (!text || size <= 0) {
        return 0;
    }
    text[0] = '\0';
    if (!platform::requireWindow(window)) {
        return 0;
    }
    return static_cast<int>(
        SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextLengthA(HWND window) {
    return platform::requireWindow(window) ? static_cast<int>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) : 0;
}
