// Activation: which top-level window is the active one, and the focus that a program gives together with it. The order
// of the messages is that of the real system.
#include "platform/window/activation.h"

#include "platform/window/focus.h"
#include "platform/window/hooks.h"
#include "platform/window/message_queue.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/top_level.h"

namespace platform {
namespace {

HWND g_active = nullptr;

// The argument of the hook that may refuse an activation.
struct ActivateInfo {
    BOOL byMouse;
    HWND active;
};

void notifyApplication(bool active) {
    for (const HWND top : childHandles(desktop())) {
        SendMessageA(top, WM_ACTIVATEAPP, active ? TRUE : FALSE, static_cast<LPARAM>(queueThread()));
    }
}

// The popup that was active last is remembered at all its owners.
void rememberPopup(Window& top) {
    Window* owner = &top;
    while (owner) {
        owner->top.lastActivePopup = top.handle;
        owner = findWindow(owner->owner);
    }
}

bool canActivate(const Window& window) {
    return window.has(WS_VISIBLE) && !window.has(WS_DISABLED) && !window.isChildStyle() && !window.dying &&
           isTopLevel(window);
}

// Takes the activation from the active window. False when it did not let go.
bool deactivate(HWND next) {
    const HWND previous = g_active;
    if (!previous) {
        return true;
    }
    if (!SendMessageA(previous, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next)) && next && isAlive(previous) &&
        isAlive(next)) {
        return false;
    }
    SendMessageA(previous, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(next));
    return true;
}

void bringForward(HWND top, ActivationCause cause) {
    Window* window = findWindow(top);
    if (!window) {
        return;
    }
    rememberPopup(*window);
    raiseTopLevel(*window);
    if (cause != ActivationCause::Server) {
        focusOnDisplay(*window);
    }
}

// After the messages the focus is inside the active window, unless somebody moved on meanwhile.
void settleFocus(HWND top) {
    Window* focus = findWindow(focusWindow());
    const Window* focusTop = focus ? topLevelOf(*focus) : nullptr;
    if (!focusTop || focusTop->handle != top) {
        moveFocus(top);
    }
}

// The top-level window to activate with the focus, null when the window cannot have it: a window that is disabled, or
// lies in one that is, does not get it; a hidden one does.
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

bool isOwnedBy(const Window& owner, const Window& window) {
    const Window* up = findWindow(window.owner);
    while (up && up != &owner) {
        up = findWindow(up->owner);
    }
    return up != nullptr;
}

// Only topmost windows and those that it owns stand above it.
bool isInFront(const Window& window) {
    for (const Window* above = window.previous; above; above = above->previous) {
        if (!above->hasEx(WS_EX_TOPMOST) && !isOwnedBy(window, *above)) {
            return false;
        }
    }
    return true;
}

// Puts the top-level window in front of all others, topmost ones excepted, then what it owns above it, in the order
// that the owned windows have.
void raiseWithOwned(Window& window) {
    Window* after = nullptr;
    for (Window* top = desktop().firstChild; top && !window.hasEx(WS_EX_TOPMOST) && top->hasEx(WS_EX_TOPMOST);
         top = top->next) {
        after = top == &window ? after : top;
    }
    const std::vector<HWND> order = childHandles(desktop());
    unlinkWindow(window);
    linkWindow(window, desktop(), after);
    raiseOnDisplay(window);
    for (auto handle = order.rbegin(); handle != order.rend(); ++handle) {
        Window* owned = findWindow(*handle);
        if (owned && owned->owner == window.handle && owned != &window) {
            raiseWithOwned(*owned);
        }
    }
}

}  // namespace

HWND activeWindow() {
    return g_active;
}

bool activate(HWND top, ActivationCause cause) {
    const HWND previous = g_active;
    if (previous == top) {
        settleFocus(top);
        return true;
    }
    if (top) {
        ActivateInfo info{cause == ActivationCause::Click ? TRUE : FALSE, previous};
        if (callCbtHooks(HCBT_ACTIVATE, top, reinterpret_cast<LPARAM>(&info)) || !isAlive(top)) {
            return false;
        }
    }
    EndMenu();
    if (!deactivate(top) || (top && !isAlive(top))) {
        return false;
    }
    // A handler may have activated another window already; that one stays.
    if (g_active != previous && g_active) {
        return g_active == top;
    }
    g_active = top;
    const HWND last = isAlive(previous) ? previous : nullptr;
    // The activation stands, also when there is no memory to tell of it or to put the window in front.
    if (!previous || !top) {
        orOutOfMemory([&] { return notifyApplication(top != nullptr), true; }, false);
    }
    if (g_active == top && isAlive(top)) {
        orOutOfMemory([&] { return bringForward(top, cause), true; }, false);
        SendMessageA(top, WM_NCACTIVATE, TRUE, reinterpret_cast<LPARAM>(last));
        SendMessageA(top, WM_ACTIVATE, MAKEWPARAM(cause == ActivationCause::Click ? WA_CLICKACTIVE : WA_ACTIVE, 0),
                     reinterpret_cast<LPARAM>(last));
    }
    if (g_active == top && cause != ActivationCause::Focus) {
        settleFocus(top);
    }
    return g_active == top;
}

void activateOther(const Window& leaving) {
    const Window* other = findWindow(leaving.owner);
    if (!other || !canActivate(*other)) {
        other = leaving.next;
        while (other && !canActivate(*other)) {
            other = other->next;
        }
    }
    activate(other ? other->handle : nullptr, ActivationCause::Program);
}

HWND shownPopupOf(HWND window) {
    const HWND popup = GetLastActivePopup(window);
    return IsWindowVisible(popup) ? popup : window;
}

void dropActivationOf(const Window& window) {
    if (g_active == window.handle) {
        g_active = nullptr;
    }
}

void showTopLevel(Window& window, bool visible) {
    showOnDisplay(window, visible);
    if (visible && g_active == window.handle) {
        focusOnDisplay(window);
    }
}

void raiseTopLevel(Window& window) {
    if (isInFront(window)) {
        return;
    }
    // The owners come along below it.
    std::vector<Window*> owners;
    for (Window* owner = findWindow(window.owner); owner && isTopLevel(*owner); owner = findWindow(owner->owner)) {
        owners.push_back(owner);
    }
    if (!owners.empty()) {
        raiseWithOwned(*owners.back());
    }
    for (auto owner = owners.rbegin(); owner != owners.rend(); ++owner) {
        if (*owner != owners.back()) {
            raiseWithOwned(**owner);
        }
    }
    raiseWithOwned(window);
}

}  // namespace platform

HWND GetActiveWindow(void) {
    return platform::activeWindow();
}

HWND SetActiveWindow(HWND window) {
    const HWND previous = platform::activeWindow();
    const platform::Window* found = window ? platform::requireWindow(window) : nullptr;
    if (window && (!found || found->isChildStyle() || found->has(WS_DISABLED) || !platform::isTopLevel(*found))) {
        return previous;
    }
    return platform::activate(window, platform::ActivationCause::Program) ? previous : nullptr;
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

HWND GetLastActivePopup(HWND window) {
    platform::Window* found = platform::requireWindow(window);
    if (!found) {
        return nullptr;
    }
    return platform::isAlive(found->top.lastActivePopup) ? found->top.lastActivePopup : window;
}
