// Messages that a window could not answer because memory ran out.
#pragma once

#include <windows.h>

namespace platform {

// The answer to a message for which a window had no memory. The parent of a control is told of it, unless the message
// was about painting: a picture is left out until the next one.
LRESULT answerOutOfMemory(HWND window, UINT message, LPARAM lParam);

}  // namespace platform
