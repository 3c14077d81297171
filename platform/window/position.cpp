// SetWindowPos: the request goes through WM_WINDOWPOSCHANGING, is carried out, and ends with WM_WINDOWPOSCHANGED.
// Pixels of moved children are not copied, they are painted anew.
#include "platform/window/position.h"

#include "platform/graphics/scale.h"
#include "platform/window/activation.h"
#include "platform/window/caret.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/painting.h"
#include "platform/window/top_level.h"
#include "platform/window/update_region.h"

namespace platform {
namespace {

constexpr UINT kNothing = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;
constexpr DWORD kErrorInvalidParameter = 87;

bool sameRect(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b) != FALSE;
}

// The window that a top-level window asked for the top would stand below: topmost ones stay above the others.
Window* lastAbove(const Window& window, bool topmost) {
    Window* above = nullptr;
    for (Window* sibling = window.parent->firstChild; sibling && isTopLevel(window); sibling = sibling->next) {
        if (sibling == &window) {
            continue;
        }
        if (topmost || !sibling->hasEx(WS_EX_TOPMOST)) {
            break;
        }
        above = sibling;
    }
    return above;
}

// Where the window goes in its parent's order; false when it stays where it is or the request makes no sense.
bool resolveOrder(const Window& window, HWND insertAfter, bool topmost, Window*& after) {
    if (insertAfter == HWND_BOTTOM) {
        after = window.parent->lastChild == &window ? window.previous : window.parent->lastChild;
    } else if (insertAfter == HWND_TOP || insertAfter == HWND_TOPMOST || insertAfter == HWND_NOTOPMOST) {
        after = lastAbove(window, topmost);
    } else {
        after = findWindow(insertAfter);
        if (!after || after->parent != window.parent || after == &window) {
            return false;
        }
    }
    return after != window.previous;
}

bool wantsTopmost(const Window& window, const WINDOWPOS& pos) {
    if ((pos.flags & SWP_NOZORDER) || !isTopLevel(window)) {
        return window.hasEx(WS_EX_TOPMOST);
    }
    if (pos.hwndInsertAfter == HWND_TOPMOST) {
        return true;
    }
    if (pos.hwndInsertAfter == HWND_NOTOPMOST || pos.hwndInsertAfter == HWND_BOTTOM) {
        return false;
    }
    return window.hasEx(WS_EX_TOPMOST);
}

// Drops from the request what would change nothing. False when it cannot be carried out.
bool simplify(const Window& window, WINDOWPOS& pos) {
    if (window.has(WS_VISIBLE)) {
        pos.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    } else {
        pos.flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
        if (!(pos.flags & SWP_SHOWWINDOW)) {
            pos.flags |= SWP_NOREDRAW;
        }
    }
    if (!isTopLevel(window) && !isShown(*window.parent)) {
        pos.flags |= SWP_NOREDRAW;
    }
    pos.cx = pos.cx < 0 ? 0 : pos.cx;
    pos.cy = pos.cy < 0 ? 0 : pos.cy;
    if ((pos.flags & SWP_NOSIZE) || (pos.cx == widthOf(window.rect) && pos.cy == heightOf(window.rect))) {
        pos.flags |= SWP_NOSIZE;
        pos.cx = widthOf(window.rect);
        pos.cy = heightOf(window.rect);
    }
    if ((pos.flags & SWP_NOMOVE) || (pos.x == window.rect.left && pos.y == window.rect.top)) {
        pos.flags |= SWP_NOMOVE;
        pos.x = window.rect.left;
        pos.y = window.rect.top;
    }
    if (pos.flags & SWP_NOZORDER) {
        return true;
    }
    Window* after = nullptr;
    const bool topmost = wantsTopmost(window, pos);
    const Window* named = findWindow(pos.hwndInsertAfter);
    if (named && named->parent != window.parent) {
        return false;
    }
    if (!resolveOrder(window, pos.hwndInsertAfter, topmost, after) && topmost == window.hasEx(WS_EX_TOPMOST)) {
        pos.flags |= SWP_NOZORDER;
    }
    return true;
}

// The new client area; asks the window where its size or its borders change.
RECT newClientRect(const Window& window, WINDOWPOS& pos, const RECT& outer) {
    const int dx = outer.left - window.rect.left;
    const int dy = outer.top - window.rect.top;
    RECT client{window.client.left + dx, window.client.top + dy, window.client.right + dx, window.client.bottom + dy};
    if ((pos.flags & SWP_NOSIZE) && !(pos.flags & SWP_FRAMECHANGED)) {
        return client;
    }
    NCCALCSIZE_PARAMS params{{outer, window.rect, window.client}, &pos};
    SendMessageA(pos.hwnd, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params));
    return params.rgrc[0];
}

void changeOrder(Window& window, const WINDOWPOS& pos) {
    const bool topmost = wantsTopmost(window, pos);
    if (topmost != window.hasEx(WS_EX_TOPMOST)) {
        window.exStyle ^= static_cast<DWORD>(WS_EX_TOPMOST);
        topmostOnDisplay(window, topmost);
    }
    Window* after = nullptr;
    if (resolveOrder(window, pos.hwndInsertAfter, topmost, after)) {
        Window& parent = *window.parent;
        unlinkWindow(window);
        linkWindow(window, parent, after);
    }
    const bool toTop = pos.hwndInsertAfter != HWND_BOTTOM && !findWindow(pos.hwndInsertAfter);
    if (isTopLevel(window) && toTop) {
        raiseTopLevel(window);
    }
}

bool overlapsSibling(const Window& window) {
    RECT common;
    for (const Window* sibling = window.parent->firstChild; sibling; sibling = sibling->next) {
        if (sibling != &window && sibling->has(WS_VISIBLE) && IntersectRect(&common, &sibling->rect, &window.rect)) {
            return true;
        }
    }
    return false;
}

// What has to be painted after the change of a window that is or was seen.
void invalidateChanged(Window& window, const WINDOWPOS& pos, const RECT& oldRect, const RECT& oldClient,
                       bool wasShown) {
    constexpr UINT kAll = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN;
    const bool shown = isShown(window);
    if (pos.flags & SWP_NOREDRAW) {
        return;
    }
    const bool moved = !sameRect(oldRect, window.rect);
    if (wasShown && !isTopLevel(window) && (moved || !shown)) {
        Region uncovered(oldRect);
        if (shown) {
            uncovered.subtract(window.rect);
        }
        for (const RECT& part : uncovered.rects()) {
            exposeBehind(*window.parent, part);
        }
    }
    if (!shown) {
        return;
    }
    const bool clientChanged =
        widthOf(oldClient) != widthOf(window.client) || heightOf(oldClient) != heightOf(window.client);
    const bool raised = !(pos.flags & SWP_NOZORDER) && !isTopLevel(window) && overlapsSibling(window);
    if (!wasShown || clientChanged || raised || (moved && !isTopLevel(window))) {
        invalidate(window, nullptr, kAll);
    } else if ((pos.flags & SWP_FRAMECHANGED) && !sameRect(window.rect, window.client)) {
        invalidate(window, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_NOCHILDREN);
    }
}

void showChange(Window& window, const WINDOWPOS& pos) {
    if (pos.flags & SWP_SHOWWINDOW) {
        window.setStyleBit(WS_VISIBLE, true);
    }
    if (pos.flags & SWP_HIDEWINDOW) {
        window.setStyleBit(WS_VISIBLE, false);
    }
    if (!isTopLevel(window)) {
        return;
    }
    if (!(pos.flags & SWP_NOMOVE)) {
        window.top.placed = true;
    }
    if ((pos.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE) || (pos.flags & SWP_FRAMECHANGED)) {
        placeOnDisplay(window);
    }
    if (pos.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) {
        showTopLevel(window, window.has(WS_VISIBLE));
    }
}

// Backgrounds are painted at once where windows appear or leave, the rest with the next WM_PAINT.
void eraseChanged(HWND handle, const WINDOWPOS& pos, bool sizedTopLevel) {
    if (pos.flags & SWP_NOREDRAW) {
        return;
    }
    const Window* window = findWindow(handle);
    if (window && (pos.flags & SWP_HIDEWINDOW) && !isTopLevel(*window) && window->parent) {
        eraseNow(window->parent->handle, false);
    }
    if (window && ((pos.flags & SWP_SHOWWINDOW) || sizedTopLevel)) {
        eraseNow(handle, true);
    }
}

// Carries the request out. False when the window died in between.
bool applyChange(HWND handle, WINDOWPOS& pos) {
    const RECT outer{pos.x, pos.y, pos.x + pos.cx, pos.y + pos.cy};
    const RECT client = newClientRect(*findWindow(handle), pos, outer);
    Window* window = findWindow(handle);
    if (!window) {
        return false;
    }
    const RECT oldRect = window->rect;
    const RECT oldClient = window->client;
    const bool wasShown = isShown(*window);
    hideCaretOver(*window);
    window->rect = outer;
    window->client = client;
    limitToWindow(*window);
    if (!(pos.flags & SWP_NOZORDER)) {
        changeOrder(*window, pos);
    }
    showChange(*window, pos);
    invalidateChanged(*window, pos, oldRect, oldClient, wasShown);
    if (widthOf(oldClient) == widthOf(client) && heightOf(oldClient) == heightOf(client)) {
        pos.flags |= kSwpNoClientSize;
    }
    if (oldClient.left == client.left && oldClient.top == client.top) {
        pos.flags |= kSwpNoClientMove;
    }
    return true;
}

BOOL setWindowPos(WINDOWPOS& pos) {
    SendMessageA(pos.hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&pos));
    const HWND handle = pos.hwnd;
    const Window* window = findWindow(handle);
    if (!window || !window->parent) {
        return FALSE;
    }
    if (!simplify(*window, pos)) {
        SetLastError(kErrorInvalidParameter);
        return FALSE;
    }
    const bool changes =
        (pos.flags & kNothing) != kNothing || (pos.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED)) != 0;
    const bool sizes = !(pos.flags & SWP_NOSIZE) && isTopLevel(*window);
    if (changes && !applyChange(handle, pos)) {
        return FALSE;
    }
    window = findWindow(handle);
    const bool activates =
        !(pos.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) && window && isTopLevel(*window) && !window->isChildStyle();
    if (activates && activeWindow() != handle) {
        activate(handle, ActivationCause::Program);
    }
    if (!changes) {
        return TRUE;
    }
    eraseChanged(handle, pos, sizes);
    if (isAlive(handle)) {
        SendMessageA(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
    }
    return TRUE;
}

}  // namespace

int borderWidth(DWORD style, DWORD exStyle, bool topLevel) {
    const auto has = [](DWORD bits, long mask) { return (bits & static_cast<DWORD>(mask)); };
    int width = 0;
    // A top-level window with a caption has its frame from the window manager.
    if (has(style, WS_CAPTION) == static_cast<DWORD>(WS_BORDER) && !(topLevel && has(style, WS_THICKFRAME))) {
        width += lineWidth();
    }
    if (has(exStyle, WS_EX_CLIENTEDGE)) {
        width += 2 * lineWidth();
    }
    if (has(exStyle, WS_EX_STATICEDGE)) {
        width += lineWidth();
    }
    return width;
}

RECT askClientRect(HWND window, const RECT& outer) {
    RECT client = outer;
    SendMessageA(window, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&client));
    return client;
}

void movedByServer(HWND top, POINT origin) {
    Window* window = findWindow(top);
    if (!window || (window->rect.left == origin.x && window->rect.top == origin.y)) {
        return;
    }
    OffsetRect(&window->client, origin.x - window->rect.left, origin.y - window->rect.top);
    OffsetRect(&window->rect, origin.x - window->rect.left, origin.y - window->rect.top);
    window->top.placed = true;
    WINDOWPOS pos{top,
                  nullptr,
                  window->rect.left,
                  window->rect.top,
                  widthOf(window->rect),
                  heightOf(window->rect),
                  SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | kSwpNoClientSize};
    SendMessageA(top, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
}

void resizedByServer(HWND top, SIZE size) {
    SetWindowPos(top, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace platform

BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
    if (!platform::requireWindow(window)) {
        return FALSE;
    }
    WINDOWPOS pos{window, insertAfter, x, y, width, height, flags};
    return platform::orOutOfMemory([&] { return platform::setWindowPos(pos); }, FALSE);
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    const UINT redraw = repaint ? 0 : SWP_NOREDRAW;
    return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | redraw);
}

BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL, DWORD exStyle) {
    if (!rect) {
        return FALSE;
    }
    const bool topLevel = (style & static_cast<DWORD>(WS_CHILD)) == 0;
    const int border = platform::borderWidth(style, exStyle, topLevel);
    return InflateRect(rect, border, border);
}
