// Place, size and order of windows.
#pragma once

#include "platform/window/window.h"

namespace platform {

// In the flags of WM_WINDOWPOSCHANGED only: the client area kept its size, or its place.
constexpr UINT kSwpNoClientSize = 0x0800;
constexpr UINT kSwpNoClientMove = 0x1000;

// Asks the window (WM_NCCALCSIZE) for the client area that belongs to `outer`, both in coordinates of the parent.
RECT askClientRect(HWND window, const RECT& outer);
// The width of the borders that the styles draw inside the window, the same on all four sides.
int borderWidth(DWORD style, DWORD exStyle, bool topLevel);

// What the display did to a top-level window, inside the frame of the window manager.
void movedByServer(HWND top, POINT origin);
void resizedByServer(HWND top, SIZE size);

}  // namespace platform
