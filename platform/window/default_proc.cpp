// What a window does with messages that its own procedure does not handle.
#include "platform/window/activation.h"
#include "platform/window/default_frame.h"
#include "platform/window/display_choice.h"
#include "platform/window/message_queue.h"
#include "platform/window/position.h"
#include "platform/window/top_level.h"
#include "platform/window/unanswered.h"
#include "platform/window/window.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace platform {
namespace {

// The low bits of the command belong to the system.
constexpr WPARAM kCommandMask = 0xfff0;

LRESULT onWmNcCreate(HWND handle, LPARAM lParam) {
    const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    if (create && create->lpszName && !IS_INTRESOURCE(create->lpszName)) {
        if (Window* window = findWindow(handle)) {
            window->text = create->lpszName;
        }
    }
    return TRUE;
}

LRESULT onWmSetText(HWND handle, LPARAM lParam) {
    Window* window = findWindow(handle);
    const auto* text = reinterpret_cast<LPCSTR>(lParam);
    if (!window) {
        return FALSE;
    }
    window->text = text && !IS_INTRESOURCE(text) ? text : "";
    if (isTopLevel(*window)) {
        titleOnDisplay(*window);
    }
    return TRUE;
}

LRESULT onWmGetText(HWND handle, WPARAM size, LPARAM lParam) {
    const Window* window = findWindow(handle);
    auto* buffer = reinterpret_cast<LPSTR>(lParam);
    if (!window || !buffer || size == 0) {
        return 0;
    }
    const std::size_t length = std::min(window->text.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, window->text.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

LRESULT onWmGetTextLength(HWND handle) {
    const Window* window = findWindow(handle);
    return window ? static_cast<LRESULT>(window->text.size()) : 0;
}

LRESULT onWmWindowPosChanged(HWND handle, LPARAM lParam) {
    const auto* pos = reinterpret_cast<const WINDOWPOS*>(lParam);
    const Window* window = findWindow(handle);
    if (!window || !pos) {
        return 0;
    }
    const RECT client = window->client;
    if (!(pos->flags & kSwpNoClientMove)) {
        SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(client.left & 0xffff, client.top & 0xffff));
    }
    if (!(pos->flags & kSwpNoClientSize)) {
        SendMessageA(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(widthOf(client), heightOf(client)));
    }
    return 0;
}

LRESULT onWmSetRedraw(HWND handle, WPARAM redraw) {
    if (Window* window = findWindow(handle)) {
        if (!redraw && window->has(WS_VISIBLE)) {
            RedrawWindow(handle, nullptr, nullptr, RDW_VALIDATE | RDW_ALLCHILDREN);
        }
        window->setStyleBit(WS_VISIBLE, redraw != 0);
    }
    return 0;
}

LRESULT onWmSysCommand(HWND handle, WPARAM command) {
    if ((command & kCommandMask) == SC_CLOSE) {
        SendMessageA(handle, WM_CLOSE, 0, 0);
    }
    return 0;
}

LRESULT onWmSysKeyDown(HWND handle, WPARAM key, LPARAM lParam) {
    const bool alt = (HIWORD(lParam) & 0x2000) != 0;
    Window* window = findWindow(handle);
    const Window* top = window ? topLevelOf(*window) : nullptr;
    if (key == VK_F4 && alt && top && !top->has(WS_DISABLED)) {
        PostMessageA(top->handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
    if (key == VK_F10 && GetKeyState(VK_SHIFT) < 0) {
        SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
    }
    return 0;
}

LRESULT onWmSysChar(HWND handle, WPARAM character) {
    if (character != VK_RETURN && character != VK_ESCAPE && character != VK_TAB) {
        SendMessageA(handle, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(character));
    }
    return 0;
}

LRESULT onWmMouseActivate(HWND handle, WPARAM wParam, LPARAM lParam) {
    const Window* window = findWindow(handle);
    if (window && window->isChildStyle() && window->parent->parent) {
        const LRESULT answer = SendMessageA(window->parent->handle, WM_MOUSEACTIVATE, wParam, lParam);
        if (answer) {
            return answer;
        }
    }
    return LOWORD(lParam) == HTCAPTION ? MA_NOACTIVATE : MA_ACTIVATE;
}

// A click on a window that a modal one has disabled brings that one forward.
void onClickOnDisabled(HWND handle, UINT mouseMessage) {
    if (mouseMessage != WM_LBUTTONDOWN && mouseMessage != WM_RBUTTONDOWN && mouseMessage != WM_MBUTTONDOWN) {
        return;
    }
    MessageBeep(0);
    Window* window = findWindow(handle);
    const Window* top = window ? topLevelOf(*window) : nullptr;
    const HWND popup = top ? shownPopupOf(top->handle) : nullptr;
    Window* shown = findWindow(popup);
    if (!top || !shown || popup == top->handle) {
        return;
    }
    if (popup != activeWindow()) {
        activate(popup, ActivationCause::Program);
    } else {
        raiseTopLevel(*shown);
        focusOnDisplay(*shown);
    }
}

LRESULT onWmSetCursor(HWND handle, WPARAM wParam, LPARAM lParam) {
    const Window* window = findWindow(handle);
    const int hit = static_cast<short>(LOWORD(lParam));
    if (!window) {
        return FALSE;
    }
    if (hit == HTERROR) {
        onClickOnDisabled(handle, HIWORD(lParam));
    } else if (window->isChildStyle() && window->parent->parent &&
               SendMessageA(window->parent->handle, WM_SETCURSOR, wParam, lParam)) {
        return TRUE;
    }
    window = findWindow(handle);
    const HCURSOR own = window && window->windowClass && hit == HTCLIENT ? window->windowClass->cursor : nullptr;
    if (hit == HTCLIENT && !own) {
        return FALSE;
    }
    SetCursor(own ? own : LoadCursorA(nullptr, IDC_ARROW));
    return own ? TRUE : FALSE;
}

// The wheel is for the window with the focus, or the nearest around it that wants it.
LRESULT onWmMouseWheel(HWND handle, WPARAM wParam, LPARAM lParam) {
    const Window* window = findWindow(handle);
    return window && window->isChildStyle() && window->parent->parent
               ? SendMessageA(window->parent->handle, WM_MOUSEWHEEL, wParam, lParam)
               : 0;
}

LRESULT onWmActivate(HWND handle, WPARAM wParam) {
    if (LOWORD(wParam) != WA_INACTIVE) {
        SetFocus(handle);
    }
    return 0;
}

LRESULT onWmRButtonUp(HWND handle, LPARAM lParam) {
    POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ClientToScreen(handle, &point);
    return SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                        MAKELPARAM(point.x & 0xffff, point.y & 0xffff));
}

// Questions that rise to the parent until somebody answers.
LRESULT askParent(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* window = findWindow(handle);
    return window && window->isChildStyle() && window->parent->parent
               ? SendMessageA(window->parent->handle, message, wParam, lParam)
               : 0;
}

LRESULT handleState(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            return onWmNcCreate(handle, lParam);
        case WM_SETTEXT:
            return onWmSetText(handle, lParam);
        case WM_GETTEXT:
            return onWmGetText(handle, wParam, lParam);
        case WM_GETTEXTLENGTH:
            return onWmGetTextLength(handle);
        case WM_WINDOWPOSCHANGED:
            return onWmWindowPosChanged(handle, lParam);
        case WM_SETREDRAW:
            return onWmSetRedraw(handle, wParam);
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_NCACTIVATE:
            return TRUE;
        case WM_ACTIVATE:
            return onWmActivate(handle, wParam);
        case WM_CANCELMODE:
            EndMenu();
            if (GetCapture() == handle) {
                ReleaseCapture();
            }
            return 0;
        default:
            return handlePainting(handle, message, wParam, lParam);
    }
}

LRESULT handleDefault(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SYSCOMMAND:
            return onWmSysCommand(window, wParam);
        case WM_SYSKEYDOWN:
            return onWmSysKeyDown(window, wParam, lParam);
        case WM_SYSCHAR:
            return onWmSysChar(window, wParam);
        case WM_MOUSEACTIVATE:
            return onWmMouseActivate(window, wParam, lParam);
        case WM_SETCURSOR:
            return onWmSetCursor(window, wParam, lParam);
        case WM_MOUSEWHEEL:
            return onWmMouseWheel(window, wParam, lParam);
        case WM_RBUTTONUP:
            return onWmRButtonUp(window, lParam);
        case WM_CONTEXTMENU:
        case WM_HELP:
            return askParent(window, message, wParam, lParam);
        case WM_NCHITTEST:
            return onWmNcHitTest(window, lParam);
        default:
            return handleState(window, message, wParam, lParam);
    }
}

}  // namespace
}  // namespace platform

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // Called from programs' window procedures, which nothing may unwind.
    try {
        return platform::handleDefault(window, message, wParam, lParam);
    } catch (const std::bad_alloc&) {
        return platform::answerOutOfMemory(window, message, lParam);
    }
}

BOOL MessageBeep(UINT) {
    platform::display().beep();
    return TRUE;
}
