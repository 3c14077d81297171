// A user who types the distances between phase lines and presses OK. It needs no more of the window API than this, and
// who includes it has declared that, by the system's header or by hand.
#pragma once

const char kCaption[] = "Packaged";
const char kTypedX[] = "12.5";
const char kTypedY[] = "265";

const int kGeneralPage = 1;  // The index of its tab.
const int kEditX = 1089;
const int kEditY = 1090;

// The control is in one of the sheet's pages.
inline HWND FindInPages(HWND sheet, int id) {
    for (HWND page = GetWindow(sheet, GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT)) {
        if (HWND control = GetDlgItem(page, id)) {
            return control;
        }
    }
    return nullptr;
}

inline void TypeInto(HWND edit, const char* text) {
    SetFocus(edit);
    SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

// For a timer of the host's thread: the sheet's own loop calls it.
inline void CALLBACK TypeAndPressOk(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND sheet = FindWindowA(nullptr, kCaption);
    if (sheet == nullptr || IsWindowVisible(sheet) == 0) {
        return;
    }
    KillTimer(nullptr, timer);
    SendMessageA(sheet, PSM_SETCURSEL, kGeneralPage, 0);
    TypeInto(FindInPages(sheet, kEditX), kTypedX);
    TypeInto(FindInPages(sheet, kEditY), kTypedY);
    PostMessageA(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0);
}
