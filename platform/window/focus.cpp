// The keyboard focus. A window that is disabled, or lies in one that is, does not get it; a hidden one does.
#include "platform/window/focus.h"

#include "platform/window/activation.h"
#include "platform/window/hooks.h"

#include <utility>

namespace platform {
namespace {

HWND g_focus = nullptr;

// The top-level window to activate with the focus, null when the window cannot have it.
Window* focusableTop(Window& window) {
    for (Window* up = &window; up->parent; up = up->parent) {
        if (up->has(WS_DISABLED)) {
            return nullptr;
        }
        if (isTopLevel(*up)) {
            return up;
        }
    }
    return nullptr;
}

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

HWND SetFocus(HWND window) {
    const HWND previous = platform::focusWindow();
    if (previous == window) {
        return previous;
    }
    if (!window) {
        if (!platform::callCbtHooks(HCBT_SETFOCUS, nullptr, reinterpret_cast<LPARAM>(previous))) {
            platform::moveFocus(nullptr);
        }
        return previous;
    }
    platform::Window* found = platform::requireWindow(window);
    const platform::Window* top = found ? platform::focusableTop(*found) : nullptr;
    if (!top) {
        return nullptr;
    }
    const HWND topHandle = top->handle;
    if (platform::callCbtHooks(HCBT_SETFOCUS, window, reinterpret_cast<LPARAM>(previous))) {
        return nullptr;
    }
    if (topHandle != platform::activeWindow() && !platform::activate(topHandle, platform::ActivationCause::Focus)) {
        return nullptr;
    }
    if (!platform::isAlive(window)) {
        return nullptr;
    }
    platform::moveFocus(window);
    return previous;
}
