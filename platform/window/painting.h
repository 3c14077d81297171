// Painting what is invalid.
#pragma once

#include <windows.h>

namespace platform {

// Paints borders and background at once where nothing above has to be painted before.
void eraseNow(HWND window, bool withChildren);

}  // namespace platform
