// Hooks of the one thread: WH_CBT and WH_GETMESSAGE.
#pragma once

#include <windows.h>

namespace platform {

// The answer of the hooks of that kind, the latest one first; 0 without hooks.
LRESULT callHooks(int kind, int code, WPARAM wParam, LPARAM lParam);
inline LRESULT callCbtHooks(int code, HWND window, LPARAM lParam) {
    return callHooks(WH_CBT, code, reinterpret_cast<WPARAM>(window), lParam);
}

}  // namespace platform
