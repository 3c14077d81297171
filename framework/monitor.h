// The monitor that a window is on.
#pragma once

#include "framework/geometry.h"

// The part of the window's monitor, or of the nearest one, that no task bar takes; in coordinates of the screen.
CRect AfxWorkAreaOf(HWND window);
