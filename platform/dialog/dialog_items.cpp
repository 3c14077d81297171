// Controls of a dialog by their ids.
#include "platform/dialog/dialog_state.h"

#include <windows.h>

UINT GetDlgItemTextA(HWND dialog, int id, LPSTR text, int size) {
    if (text == nullptr || size <= 0) {
        return 0;
    }
    HWND control = GetDlgItem(dialog, id);
    if (control == nullptr) {
        text[0] = '\0';
        return 0;
    }
    return static_cast<UINT>(
        SendMessageA(control, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
}

BOOL SetDlgItemTextA(HWND dialog, int id, LPCSTR text) {
    HWND control = GetDlgItem(dialog, id);
    return control != nullptr && SendMessageA(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

BOOL MapDialogRect(HWND dialog, LPRECT rect) {
    if (rect == nullptr || platform::dialogState(dialog) == nullptr) {
        return FALSE;
    }
    *rect = {platform::horizontalPixels(rect->left), platform::verticalPixels(rect->top),
             platform::horizontalPixels(rect->right), platform::verticalPixels(rect->bottom)};
    return TRUE;
}

LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND control = GetDlgItem(dialog, id);
    return control != nullptr ? SendMessageA(control, message, wParam, lParam) : 0;
}

BOOL CheckDlgButton(HWND dialog, int id, UINT check) {
    SendDlgItemMessageA(dialog, id, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int check) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (id >= first && id <= last) {
            SendMessageA(child, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED, 0);
        }
    }
    return TRUE;
}
