// The active top-level window and how activation moves.
#pragma once

#include "platform/window/focus.h"
#include "platform/window/window.h"

namespace platform {

HWND activeWindow();

// Focus: the caller is about to give the focus to a window inside, so activation leaves it where it is.
enum class ActivationCause { Program, Focus, Click, Server };
// Makes the top-level window active (null: none) and gives it the focus. False when a hook or the window refused.
bool activate(HWND top, ActivationCause cause);
// Gives activation away because the window is hidden or destroyed: to its owner, else to the next window below.
void activateOther(const Window& leaving);
// The popup that was active last among those that the window owns, when it can be seen; else the window itself.
HWND shownPopupOf(HWND window);
// Forgets a window that is gone.
void dropActivationOf(const Window& window);

// Shows or hides the top-level window on the display. The active one gets the server's focus as it is shown: a dialog
// is active before, when its first control gets the focus.
void showTopLevel(Window& window, bool visible);
// Brings the top-level window with its owners and owned windows to the front.
void raiseTopLevel(Window& window);

}  // namespace platform
