// The window that gets the keyboard.
#pragma once

#include "platform/window/window.h"

namespace platform {

HWND focusWindow();
// Moves the focus (null: nowhere) with its messages, whatever is active. A handler that moves it on wins.
void moveFocus(HWND window);
// Takes the focus, without a message, from a window that goes or from one inside it.
void dropFocusOf(const Window& window);

}  // namespace platform
