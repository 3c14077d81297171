// What is invalid: invalidation, validation, and the order in which it is painted.
#include "platform/window/input_queue.h"
#include "platform/window/painting.h"
#include "platform/window/top_level.h"

namespace platform {
namespace {

// Windows with something to paint; zero saves the search through the tree.
int g_pending = 0;

void countPending(bool before, bool now) {
    g_pending += static_cast<int>(now) - static_cast<int>(before);
}

RECT wholeRect(const Window& window) {
    return {0, 0, widthOf(window.rect), heightOf(window.rect)};
}

RECT clientPart(const Window& window) {
    RECT client = window.client;
    OffsetRect(&client, -window.rect.left, -window.rect.top);
    return client;
}

bool reachesChildren(const Window& window, UINT flags) {
    return !(flags & RDW_NOCHILDREN) && ((flags & RDW_ALLCHILDREN) || !window.has(WS_CLIPCHILDREN));
}

// The part of `rect` (of the parent, with borders) that lies in the child, in coordinates of the child.
bool partOfChild(const Window& parent, const Window& child, const RECT& rect, RECT& part) {
    RECT inParent = rect;
    OffsetRect(&inParent, parent.rect.left - parent.client.left, parent.rect.top - parent.client.top);
    if (!IntersectRect(&part, &inParent, &child.rect)) {
        return false;
    }
    OffsetRect(&part, -child.rect.left, -child.rect.top);
    return true;
}

void addInvalid(Window& window, const RECT& rect, UINT flags) {
    const bool before = window.paint.isPending();
    RECT part = rect;
    const RECT limit = (flags & RDW_FRAME) ? wholeRect(window) : clientPart(window);
    if ((flags & RDW_INVALIDATE) && IntersectRect(&part, &rect, &limit)) {
        window.paint.update.add(part);
        window.paint.erase = window.paint.erase || (flags & RDW_ERASE);
        window.paint.frame = window.paint.frame || (flags & RDW_FRAME);
    }
    if (flags & RDW_INTERNALPAINT) {
        window.paint.internal = true;
    }
    countPending(before, window.paint.isPending());
}

void invalidateTree(Window& window, const RECT& rect, UINT flags) {
    addInvalid(window, rect, flags);
    if (!reachesChildren(window, flags)) {
        return;
    }
    for (Window* child = window.firstChild; child; child = child->next) {
        RECT part;
        if (child->has(WS_VISIBLE) && partOfChild(window, *child, rect, part)) {
            invalidateTree(*child, part, flags | RDW_FRAME | RDW_ERASE);
        }
    }
}

void validateTree(Window& window, const RECT* rect, UINT flags) {
    const bool before = window.paint.isPending();
    if (rect) {
        window.paint.update.subtract(*rect);
    } else {
        window.paint = PaintState{};
    }
    if (window.paint.update.isEmpty()) {
        window.paint.erase = window.paint.frame = false;
    }
    countPending(before, window.paint.isPending());
    if (!reachesChildren(window, flags)) {
        return;
    }
    for (Window* child = window.firstChild; child; child = child->next) {
        RECT part;
        if (!rect) {
            validateTree(*child, nullptr, flags);
        } else if (partOfChild(window, *child, *rect, part)) {
            validateTree(*child, &part, flags);
        }
    }
}

// The first window of the tree, parents first, that has something to paint and that the filter accepts.
Window* findPending(Window& window, const MessageFilter& filter) {
    if (!window.has(WS_VISIBLE)) {
        return nullptr;
    }
    if (window.paint.isPending() && filter.acceptsWindow(window.handle)) {
        return &window;
    }
    for (Window* child = window.firstChild; child; child = child->next) {
        if (Window* found = findPending(*child, filter)) {
            return found;
        }
    }
    return nullptr;
}

void paintTree(HWND handle, bool withChildren) {
    Window* window = findWindow(handle);
    if (!window || !window->has(WS_VISIBLE) || g_pending == 0) {
        return;
    }
    if (window->paint.isPending()) {
        window->paint.internal = false;
        countPending(true, window->paint.isPending());
        SendMessageA(handle, WM_PAINT, 0, 0);
        window = findWindow(handle);
    }
    if (!window || !withChildren || g_pending == 0) {
        return;
    }
    for (const HWND child : childHandles(*window)) {
        paintTree(child, true);
    }
}

}  // namespace

void invalidate(Window& window, const RECT* rect, UINT flags) {
    if (!isShown(window)) {
        return;
    }
    invalidateTree(window, rect ? *rect : wholeRect(window), flags);
}

void exposeBehind(Window& parent, const RECT& rect) {
    RECT part = rect;
    OffsetRect(&part, parent.client.left - parent.rect.left, parent.client.top - parent.rect.top);
    invalidate(parent, &part, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void clearPaint(Window& window) {
    countPending(window.paint.isPending(), false);
    window.paint = PaintState{};
}

bool takePaint(MSG& message, const MessageFilter& filter) {
    if (g_pending == 0 || !filter.acceptsMessage(WM_PAINT)) {
        return false;
    }
    Window* window = findPending(desktop(), filter);
    if (!window) {
        return false;
    }
    if (window->paint.internal) {
        window->paint.internal = false;
        countPending(true, window->paint.isPending());
    }
    message = MSG{window->handle, WM_PAINT, 0, 0, GetTickCount(), lastPointerPosition()};
    return true;
}

bool hasPaint() {
    return g_pending > 0 && findPending(desktop(), MessageFilter{});
}

void updateNow(HWND handle, bool withChildren) {
    Window* window = findWindow(handle);
    if (!window || g_pending == 0 || !isShown(*window)) {
        return;
    }
    // A parent that draws below its children has to do so before them.
    HWND first = handle;
    for (const Window* up = window->parent; up && up->parent; up = up->parent) {
        if (up->paint.isPending() && !up->has(WS_CLIPCHILDREN)) {
            first = up->handle;
        }
    }
    if (first != handle) {
        paintTree(first, false);
    }
    paintTree(handle, withChildren);
    presentAll();
}

}  // namespace platform

BOOL InvalidateRect(HWND window, LPCRECT rect, BOOL erase) {
    return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0U));
}

BOOL ValidateRect(HWND window, LPCRECT rect) {
    return RedrawWindow(window, rect, nullptr, RDW_VALIDATE | RDW_NOCHILDREN);
}

BOOL UpdateWindow(HWND window) {
    return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// Regions cannot be created in this system, so there is never one to respect.
BOOL RedrawWindow(HWND window, LPCRECT rect, HRGN, UINT flags) {
    platform::Window* found = window ? platform::requireWindow(window) : &platform::desktop();
    if (!found) {
        return FALSE;
    }
    RECT part{};
    if (rect) {
        part = *rect;
        OffsetRect(&part, found->client.left - found->rect.left, found->client.top - found->rect.top);
    }
    if (flags & (RDW_INVALIDATE | RDW_INTERNALPAINT)) {
        platform::invalidate(*found, rect ? &part : nullptr, flags);
    } else if (flags & RDW_VALIDATE) {
        platform::validateTree(*found, rect ? &part : nullptr, flags);
    }
    if ((flags & RDW_NOERASE) && !(flags & RDW_ERASE)) {
        found->paint.erase = false;
    }
    const HWND handle = found->handle;
    if (flags & RDW_ERASENOW) {
        platform::eraseNow(handle, !(flags & RDW_NOCHILDREN));
    }
    if (flags & RDW_UPDATENOW) {
        platform::updateNow(handle, !(flags & RDW_NOCHILDREN));
    }
    return TRUE;
}

BOOL GetUpdateRect(HWND window, LPRECT rect, BOOL erase) {
    const platform::Window* found = platform::requireWindow(window);
    if (!found) {
        return FALSE;
    }
    RECT bounds = found->paint.update.bounds();
    OffsetRect(&bounds, found->rect.left - found->client.left, found->rect.top - found->client.top);
    const bool invalid = !found->paint.update.isEmpty();
    if (rect) {
        *rect = invalid ? bounds : RECT{};
    }
    if (erase && invalid) {
        platform::eraseNow(window, false);
    }
    return invalid ? TRUE : FALSE;
}
