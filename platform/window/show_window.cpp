// Showing, hiding, enabling.
#include "platform/window/activation.h"
#include "platform/window/display_choice.h"
#include "platform/window/input_queue.h"
#include "platform/window/window.h"

namespace platform {
namespace {

UINT positionFlags(const Window& window, int command) {
    UINT flags = SWP_NOSIZE | SWP_NOMOVE;
    switch (command) {
        case SW_HIDE:
            flags |= SWP_HIDEWINDOW;
            break;
        case SW_SHOWNA:
            flags |= SWP_SHOWWINDOW | SWP_NOACTIVATE;
            break;
        case SW_SHOWNOACTIVATE:
            flags |= SWP_SHOWWINDOW | SWP_NOACTIVATE | SWP_NOZORDER;
            break;
        default:
            flags |= SWP_SHOWWINDOW;
            break;
    }
    return window.isChildStyle() ? flags | SWP_NOACTIVATE | SWP_NOZORDER : flags;
}

// What had the activation or the focus does not keep it when it is hidden.
void leaveHidden(HWND handle) {
    const Window* window = findWindow(handle);
    if (window && activeWindow() == handle) {
        activateOther(*window);
    }
    window = findWindow(handle);
    if (window && focusWindow() == handle) {
        SetFocus(window->parent && !isTopLevel(*window) ? window->parent->handle : nullptr);
    }
}

// A window that was left to the window manager is where that put it when this returns, for the next window may be
// centred over it. The wait has an end, since the window manager need not answer.
void awaitPlace(HWND handle) {
    constexpr DWORD kLongestMs = 500;
    constexpr int kStepMs = 20;
    const DWORD start = GetTickCount();
    const auto waits = [handle] {
        const Window* window = findWindow(handle);
        return window && window->top.onDisplay && !window->top.placed && window->has(WS_VISIBLE) &&
               !display().isPlaced(handle);
    };
    while (waits() && GetTickCount() - start < kLongestMs) {
        pumpDisplay(kStepMs);
    }
}

}  // namespace
}  // namespace platform

BOOL ShowWindow(HWND window, int command) {
    platform::Window* found = platform::requireWindow(window);
    if (!found) {
        return FALSE;
    }
    const bool wasVisible = found->has(WS_VISIBLE);
    const bool show = command != SW_HIDE;
    // Showing what is visible already, with the activation that goes along, changes nothing.
    if (show == wasVisible && command != SW_SHOWNA) {
        return wasVisible ? TRUE : FALSE;
    }
    SendMessageA(window, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
    found = platform::findWindow(window);
    if (!found || !found->parent) {
        return wasVisible ? TRUE : FALSE;
    }
    // Below a hidden parent nothing is to be seen: only the style changes.
    if (!platform::isTopLevel(*found) && !platform::isShown(*found->parent)) {
        found->setStyleBit(WS_VISIBLE, show);
    } else {
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, platform::positionFlags(*found, command));
        platform::awaitPlace(window);
    }
    if (!show) {
        platform::leaveHidden(window);
    }
    return wasVisible ? TRUE : FALSE;
}

BOOL EnableWindow(HWND window, BOOL enable) {
    platform::Window* found = platform::requireWindow(window);
    if (!found) {
        return FALSE;
    }
    if (!enable) {
        SendMessageA(window, WM_CANCELMODE, 0, 0);
    }
    found = platform::findWindow(window);
    const bool wasDisabled = found && found->has(WS_DISABLED);
    if (!found || wasDisabled == (enable == FALSE)) {
        return wasDisabled ? TRUE : FALSE;
    }
    found->setStyleBit(WS_DISABLED, enable == FALSE);
    if (!enable && platform::focusWindow() == window) {
        SetFocus(nullptr);
    }
    if (platform::isAlive(window)) {
        SendMessageA(window, WM_ENABLE, enable ? TRUE : FALSE, 0);
    }
    return wasDisabled ? TRUE : FALSE;
}
