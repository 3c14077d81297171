// Virtual key codes of the X server's key symbols.
#pragma once

#include <X11/X.h>

namespace platform {

// The virtual key that carries the symbol on the unshifted level of a Swedish keyboard, 0 when none does.
// Both shift keys, both control keys and both menu keys have the common code, as in the key messages.
int virtualKeyOfSymbol(KeySym symbol);

// True for the shift to a key's third level (AltGr), which is no key of its own here.
bool isThirdLevelShift(KeySym symbol);

}  // namespace platform
