// Update regions and the messages that work them off.
#pragma once

#include "platform/window/message_queue.h"
#include "platform/window/window.h"

namespace platform {

// Adds to what is to be painted: `rect` in coordinates of the window with its borders, null for all of it. RDW_ flags.
void invalidate(Window& window, const RECT* rect, UINT flags);
// What a child that moved, shrank or went has uncovered: parent and siblings.
void exposeBehind(Window& parent, const RECT& rect);
// Forgets what was to be painted.
void clearPaint(Window& window);
// Paints borders and background at once where nothing above has to be painted before.
void eraseNow(HWND window, bool withChildren);
// Sends WM_PAINT to the window, and to those inside it, that have something to paint.
void updateNow(HWND window, bool withChildren);

// The next window that a WM_PAINT is due for, parents before their children.
bool takePaint(MSG& message, const MessageFilter& filter);
bool hasPaint();

// The part of the window (with `wholeWindow` the borders too) that is seen, in coordinates of the surface.
Region visibleRegion(const Window& window, bool wholeWindow);
// A device context for the window, limited to `clip` where it is given. Closed by closeWindowDc.
HDC openDc(Window& window, bool wholeWindow, const Region* clip);

}  // namespace platform
