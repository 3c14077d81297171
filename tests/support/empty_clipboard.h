// What was played before must not be there to paste. Natively in memory the clipboard ends with the process, but a
// desktop keeps it.
#pragma once

#include <windows.h>

inline void EmptyTheClipboard() {
    if (OpenClipboard(nullptr)) {
        EmptyClipboard();
        CloseClipboard();
    }
}
