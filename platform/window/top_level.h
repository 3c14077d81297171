// Top-level windows on the display: shown, moved, stacked and presented as the window tree says.
#pragma once

#include "platform/window/window.h"

namespace platform {

// The surface of a top-level window, made on the first call.
Surface& surfaceOf(Window& top);
void showOnDisplay(Window& top, bool visible);
// The client area moved or changed its size by the program's doing.
void placeOnDisplay(Window& top);
void titleOnDisplay(const Window& top);
void raiseOnDisplay(const Window& top);
void topmostOnDisplay(const Window& top, bool topmost);
void focusOnDisplay(const Window& top);
// Whether the server said that the window gained or lost the focus before it saw the last focusOnDisplay.
bool isFocusReportOutdated(HWND top, bool gained);
void removeFromDisplay(Window& top);
// Whether the window system treats it as a drop-down list: without frame, and never focused by the server.
bool isPopupKind(const Window& top);

// Shows everything that was drawn since the last call.
void presentAll();

}  // namespace platform
