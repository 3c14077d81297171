// What is invalid: invalidation, validation, and which window a WM_PAINT is due for.
#include "platform/window/update_region.h"

#include "platform/window/out_of_memory.h"

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
        // What there is no memory to note stays as it is on the screen.
        orOutOfMemory([&] { return window.paint.update.add(part), true; }, false);
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

// Parents that draw below their children must not draw over what a child has just drawn.
void validateParents(const Window& child) {
    Region drawn = child.paint.update;
    for (const Window* inner = &child; inner->parent && inner->parent->parent; inner = inner->parent) {
        Window& parent = *inner->parent;
        drawn.offset(inner->rect.left + parent.client.left - parent.rect.left,
                     inner->rect.top + parent.client.top - parent.rect.top);
        if (parent.paint.update.isEmpty() || parent.has(WS_CLIPCHILDREN)) {
            continue;
        }
        const bool before = parent.paint.isPending();
        for (const RECT& rect : drawn.rects()) {
            orOutOfMemory([&] { return parent.paint.update.subtract(rect), true; }, false);
        }
        if (parent.paint.update.isEmpty()) {
            parent.paint.erase = parent.paint.frame = false;
        }
        countPending(before, parent.paint.isPending());
    }
}

}  // namespace

void invalidate(Window& window, const RECT* rect, UINT flags) {
    if (!isShown(window)) {
        return;
    }
    invalidateTree(window, rect ? *rect : wholeRect(window), flags);
}

void validate(Window& window, const RECT* rect, UINT flags) {
    const bool before = window.paint.isPending();
    if (rect) {
        orOutOfMemory([&] { return window.paint.update.subtract(*rect), true; }, false);
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
            validate(*child, nullptr, flags);
        } else if (partOfChild(window, *child, *rect, part)) {
            validate(*child, &part, flags);
        }
    }
}

void exposeBehind(Window& parent, const RECT& rect) {
    RECT part = rect;
    OffsetRect(&part, parent.client.left - parent.rect.left, parent.client.top - parent.rect.top);
    invalidate(parent, &part, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void limitToWindow(Window& window) {
    const bool before = window.paint.isPending();
    orOutOfMemory([&] { return window.paint.update.intersect(wholeRect(window)), true; }, false);
    if (window.paint.update.isEmpty()) {
        window.paint.erase = window.paint.frame = false;
    }
    countPending(before, window.paint.isPending());
}

void beginPainting(Window& window) {
    validateParents(window);
    clearPaint(window);
}

void clearPaint(Window& window) {
    countPending(window.paint.isPending(), false);
    window.paint = PaintState{};
}

void clearInternalPaint(Window& window) {
    const bool before = window.paint.isPending();
    window.paint.internal = false;
    countPending(before, window.paint.isPending());
}

bool hasPending() {
    return g_pending > 0;
}

bool takePaint(MSG& message, const MessageFilter& filter) {
    if (g_pending == 0 || !filter.acceptsMessage(WM_PAINT)) {
        return false;
    }
    Window* window = findPending(desktop(), filter);
    if (!window) {
        return false;
    }
    clearInternalPaint(*window);
    message = MSG{window->handle, WM_PAINT, 0, 0, GetTickCount(), lastPointerPosition()};
    return true;
}

}  // namespace platform
