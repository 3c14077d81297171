// What of the windows is to be painted. Nothing is painted or sent here.
#pragma once

#include "platform/window/message_queue.h"
#include "platform/window/window.h"

namespace platform {

// Adds to what is to be painted: `rect` in coordinates of the window with its borders, null for all of it. RDW_ flags.
void invalidate(Window& window, const RECT* rect, UINT flags);
// Takes from what is to be painted; null for all of it, with what else waits.
void validate(Window& window, const RECT* rect, UINT flags);
// What a child that moved, shrank or went has uncovered: parent and siblings.
void exposeBehind(Window& parent, const RECT& rect);
// Drops what was to be painted beyond the edges of a window that has shrunk: it is no longer the window's.
void limitToWindow(Window& window);
// What the window is to paint is about to be drawn: nobody has to paint it any more.
void beginPainting(Window& window);
// Forgets what was to be painted.
void clearPaint(Window& window);
// The WM_PAINT that was asked for although nothing is invalid is on its way.
void clearInternalPaint(Window& window);

// Whether any window, perhaps a hidden one, has something to paint.
bool hasPending();
// The next window that a WM_PAINT is due for, parents before their children.
bool takePaint(MSG& message, const MessageFilter& filter);

}  // namespace platform
