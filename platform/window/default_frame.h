// The part of DefWindowProc that concerns borders, background and printing.
#pragma once

#include <windows.h>

namespace platform {

LRESULT handlePainting(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT onWmNcHitTest(HWND window, LPARAM lParam);

}  // namespace platform
