// Pictures of windows as they are painted now.
#pragma once

#include <windows.h>

#include <string>

#include "automation/png.h"

namespace automation {

// The client area of a visible window with all its controls; an empty picture when the system refuses.
Picture CaptureClient(HWND window);

// Writes the window's client area as a PNG file; the file name is UTF-8. Throws a Failure when that is impossible.
void SaveClient(HWND window, const std::string& fileName);

}  // namespace automation
