// The pictures of message boxes.
#pragma once

#include <windows.h>

namespace platform {

// Draws the picture for a kind from MB_ICONHAND to MB_ICONASTERISK with its top left corner at the point, as large as
// an icon.
void drawBoxIcon(HDC dc, POINT at, UINT kind);

}  // namespace platform
