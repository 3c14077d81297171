// From a point on the screen to a mouse message: hit test, double clicks, activation by a click, cursor; and the
// capture.
#include "platform/window/mouse.h"

#include "platform/window/activation.h"
#include "platform/window/display_choice.h"
#include "platform/window/keyboard.h"
#include "platform/window/top_level.h"

#include <cstdlib>
#include <utility>

namespace platform {
namespace {

constexpr UINT kDoubleClickMs = 500;
// Non-client messages follow the client ones at this distance.
constexpr UINT kNonClientOffset = WM_MOUSEMOVE - WM_NCMOUSEMOVE;

struct LastClick {
    HWND window = nullptr;
    UINT message = 0;
    POINT at{};
    DWORD time = 0;
};

struct MouseState {
    HWND capture = nullptr;
    HWND grabbed = nullptr;  // The top-level window that the display reports all mouse events to.
    HCURSOR cursor = nullptr;
    LastClick click;
};

MouseState& mouse() {
    static MouseState only;
    return only;
}

bool contains(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

LPARAM packPoint(POINT point) {
    return MAKELPARAM(point.x & 0xffff, point.y & 0xffff);
}

// `point` is in client coordinates of the window's parent.
HWND hitTest(Window& window, POINT point, POINT screen, int& hit) {
    if (!window.has(WS_VISIBLE) || !contains(window.rect, point)) {
        return nullptr;
    }
    if (window.has(WS_DISABLED)) {
        hit = HTERROR;
        return window.isChildStyle() ? nullptr : window.handle;
    }
    const HWND handle = window.handle;
    if (contains(window.client, point)) {
        const POINT inside{point.x - window.client.left, point.y - window.client.top};
        for (const HWND child : childHandles(window)) {
            Window* candidate = findWindow(child);
            const HWND found = candidate ? hitTest(*candidate, inside, screen, hit) : nullptr;
            if (found) {
                return found;
            }
        }
    }
    hit = static_cast<int>(SendMessageA(handle, WM_NCHITTEST, 0, packPoint(screen)));
    return hit == HTTRANSPARENT ? nullptr : handle;
}

UINT buttonMessage(int button, bool down) {
    switch (button) {
        case VK_RBUTTON:
            return down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
        case VK_MBUTTON:
            return down ? WM_MBUTTONDOWN : WM_MBUTTONUP;
        default:
            return down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
    }
}

bool isButtonDown(const InputEvent& event) {
    return event.kind == InputEvent::Kind::Mouse && event.what == InputSink::Mouse::Down;
}

UINT clientMessage(const InputEvent& event) {
    if (event.kind == InputEvent::Kind::Wheel) {
        return WM_MOUSEWHEEL;
    }
    return event.what == InputSink::Mouse::Move ? WM_MOUSEMOVE : buttonMessage(event.code, isButtonDown(event));
}

bool isDoubleClick(const InputEvent& event, HWND target, UINT message) {
    const LastClick& last = mouse().click;
    const Window* window = findWindow(target);
    return window && window->windowClass && (window->windowClass->style & CS_DBLCLKS) && last.window == target &&
           last.message == message && event.time - last.time < kDoubleClickMs &&
           std::abs(event.at.x - last.at.x) < GetSystemMetrics(SM_CXDOUBLECLK) / 2 + 1 &&
           std::abs(event.at.y - last.at.y) < GetSystemMetrics(SM_CYDOUBLECLK) / 2 + 1;
}

// The parents learn of a click on one of their children.
void notifyParents(HWND target, UINT message, POINT screen) {
    HWND child = target;
    Window* window = findWindow(child);
    while (window && window->isChildStyle() && !window->hasEx(WS_EX_NOPARENTNOTIFY) && window->parent) {
        Window& parent = *window->parent;
        child = parent.handle;
        const POINT origin = clientOrigin(parent);
        SendMessageA(child, WM_PARENTNOTIFY, MAKEWPARAM(message, 0),
                     packPoint({screen.x - origin.x, screen.y - origin.y}));
        window = findWindow(child);
    }
}

// Whether the click goes on to the window; it may also only activate, or be for nobody.
bool activateByClick(HWND target, HWND top, int hit, UINT message) {
    const LRESULT answer =
        SendMessageA(target, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top), MAKELPARAM(hit & 0xffff, message));
    const bool wanted = answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0;
    if (wanted && hit != HTERROR && hit != HTNOWHERE && activeWindow() != top && isAlive(top)) {
        activate(top, ActivationCause::Click);
    }
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

// The rectangle to search starts at the top-level window that the display named, or the one with the capture.
HWND targetOf(const InputEvent& event, int& hit) {
    hit = HTCLIENT;
    if (event.kind == InputEvent::Kind::Wheel) {
        return focusWindow() ? focusWindow() : event.top;
    }
    if (isAlive(mouse().capture)) {
        return mouse().capture;
    }
    hit = HTNOWHERE;
    return windowAt(event.top, event.at, hit);
}

// What a click or move sends besides its message. False when there is no message to come.
bool sendCompanions(const InputEvent& event, HWND target, int hit, UINT message) {
    if (event.kind == InputEvent::Kind::Wheel || mouse().capture) {
        return true;
    }
    const Window* window = findWindow(target);
    Window* topWindow = window ? topLevelOf(*findWindow(target)) : nullptr;
    if (!topWindow) {
        return false;
    }
    const HWND top = topWindow->handle;
    bool goesOn = true;
    if (isButtonDown(event) && hit != HTERROR) {
        notifyParents(target, message, event.at);
        goesOn = activateByClick(target, top, hit, message);
    }
    SendMessageA(target, WM_SETCURSOR, reinterpret_cast<WPARAM>(target), MAKELPARAM(hit & 0xffff, message));
    return goesOn && hit != HTERROR && hit != HTNOWHERE && isAlive(target);
}

void grabFor(HWND capture) {
    Window* window = findWindow(capture);
    Window* top = window ? topLevelOf(*window) : nullptr;
    const HWND wanted = top && isPopupKind(*top) && top->top.onDisplay ? top->handle : nullptr;
    if (std::exchange(mouse().grabbed, wanted) != wanted) {
        display().grabMouse(wanted);
    }
}

HWND changeCapture(HWND window) {
    const HWND previous = std::exchange(mouse().capture, window);
    grabFor(window);
    if (previous) {
        SendMessageA(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    }
    return previous;
}

}  // namespace

HWND windowAt(HWND top, POINT screen, int& hit) {
    Window* window = findWindow(top);
    return window ? hitTest(*window, screen, screen, hit) : nullptr;
}

MouseOutcome makeMouseMessage(const InputEvent& event, const MessageFilter& filter, bool remove, MSG& message) {
    int hit = HTCLIENT;
    const HWND target = targetOf(event, hit);
    const Window* window = findWindow(target);
    if (!window) {
        return MouseOutcome::Discarded;
    }
    UINT number = clientMessage(event);
    const UINT plain = number;
    if (isButtonDown(event) && isDoubleClick(event, target, number)) {
        number += WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
    }
    WPARAM wParam = mouseKeyState();
    POINT at = event.at;
    if (event.kind == InputEvent::Kind::Wheel) {
        wParam = MAKEWPARAM(wParam, event.code);
    } else if (hit != HTCLIENT) {
        number -= kNonClientOffset;
        wParam = static_cast<WPARAM>(hit);
    } else {
        const POINT origin = clientOrigin(*window);
        at = {at.x - origin.x, at.y - origin.y};
    }
    if (!filter.accepts(target, number)) {
        return MouseOutcome::Filtered;
    }
    if (remove) {
        if (event.modifiersKnown) {
            applyModifiers(event);
        }
        if (event.kind == InputEvent::Kind::Mouse && event.what != InputSink::Mouse::Move) {
            setButtonState(event.code, isButtonDown(event));
        }
        if (hit == HTCLIENT && event.kind == InputEvent::Kind::Mouse) {
            wParam = mouseKeyState();
        }
        if (isButtonDown(event)) {
            mouse().click = number == plain ? LastClick{target, plain, event.at, event.time} : LastClick{};
        }
        if (!sendCompanions(event, target, hit, plain)) {
            return MouseOutcome::Discarded;
        }
    }
    message = MSG{target, number, wParam, packPoint(at), event.time, event.at};
    return MouseOutcome::Message;
}

HWND captureWindow() {
    return mouse().capture;
}

void dropCaptureOf(const Window& window) {
    const Window* holder = findWindow(mouse().capture);
    if (!holder || (holder != &window && !isDescendant(window, *holder))) {
        return;
    }
    mouse().capture = nullptr;
    grabFor(nullptr);
}

}  // namespace platform

HWND GetCapture(void) {
    return platform::captureWindow();
}

HWND SetCapture(HWND window) {
    if (window && !platform::requireWindow(window)) {
        return nullptr;
    }
    return platform::changeCapture(window);
}

BOOL ReleaseCapture(void) {
    if (platform::captureWindow()) {
        platform::changeCapture(nullptr);
    }
    return TRUE;
}

BOOL GetCursorPos(LPPOINT point) {
    if (!point) {
        return FALSE;
    }
    *point = platform::display().cursorPosition();
    return TRUE;
}

// A cursor is known by its number; there are no others than the system's.
HCURSOR LoadCursorA(HINSTANCE, LPCSTR name) {
    return IS_INTRESOURCE(name) ? reinterpret_cast<HCURSOR>(const_cast<LPSTR>(name)) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    const HCURSOR previous = std::exchange(platform::mouse().cursor, cursor);
    if (previous != cursor) {
        platform::display().setCursor(cursor);
    }
    return previous;
}
