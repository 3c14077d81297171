// The text caret, of which there is one: a bar of inverted pixels that blinks.
#pragma once

#include "platform/window/window.h"

namespace platform {

// Takes the bar from the screen while something below it changes; restoreCaret puts it back.
void hideCaretOver(const Window& window);
void restoreCaret();
void dropCaretOf(const Window& window);

// Blinks when it is time to.
void blinkCaret();
// Milliseconds until the next blink, -1 without a visible caret.
int timeToBlink();

}  // namespace platform
