// Measures and timers of the file list.
#pragma once

#include "platform/graphics/scale.h"

#include <windows.h>

namespace platform {

constexpr UINT_PTR kRepeatTimer = 1;  // Repeats what a held mouse button does.
constexpr UINT_PTR kReadTimer = 2;

// Pixels at 96 dots an inch.
constexpr int kPictureSize = 16;  // Of a folder or file, square.
constexpr int kCellPadding = 6;
constexpr int kHeadPadding = 4;  // More height than that of a row.

inline int headHeight(int rowHeight) {
    return rowHeight + toScale(kHeadPadding);
}

inline POINT pointerIn(HWND window) {
    POINT at{};
    GetCursorPos(&at);
    ScreenToClient(window, &at);
    return at;
}

// Draws the picture of a folder or a file with its upper left corner at the point.
void drawFilePicture(HDC dc, POINT at, bool isFolder);

}  // namespace platform
