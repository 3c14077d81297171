// The colours that a parent gives its controls.
#pragma once

#include <windows.h>

namespace platform {

// Asks `parent` by one of the WM_CTLCOLOR messages. It sets the context's colours and returns the background brush,
// which is never null: a parent that does not answer leaves it to the system's default.
inline HBRUSH askColours(HWND parent, HWND control, HDC dc, UINT message) {
    const auto wParam = reinterpret_cast<WPARAM>(dc);
    const auto lParam = reinterpret_cast<LPARAM>(control);
    const LRESULT brush = SendMessageA(parent, message, wParam, lParam);
    return reinterpret_cast<HBRUSH>(brush ? brush : DefWindowProcA(parent, message, wParam, lParam));
}

}  // namespace platform
