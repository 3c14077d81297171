// The window with the keyboard focus and the messages when it changes.
#include "platform/window/focus.h"

#include <utility>

namespace platform {
namespace {

HWND g_focus = nullptr;

}  // namespace

HWND focusWindow() {
    return g_focus;
}

void moveFocus(HWND window) {
    const HWND previous = std::exchange(g_focus, window);
    if (previous == window) {
        return;
    }
    if (previous) {
        SendMessageA(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
        if (g_focus != window) {
            return;
        }
    }
    if (window) {
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(isAlive(previous) ? previous : nullptr), 0);
    }
}

void dropFocusOf(const Window& window) {
    const Window* focus = findWindow(g_focus);
    if (focus && (focus == &window || isDescendant(window, *focus))) {
        g_focus = nullptr;
    }
}

}  // namespace platform

HWND GetFocus(void) {
    return platform::focusWindow();
}
