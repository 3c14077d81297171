// The owner for modal windows and message boxes.
#pragma once

#include "framework/window_api.h"

// The window that a modal window of this parent must have as its owner: the parent's top-level window or, for no
// parent, the front popup of the active window. *topLevel gets a further window that was disabled for the time and is
// to be enabled afterwards, or null.
HWND AfxGetSafeOwner(HWND parent, HWND* topLevel);
