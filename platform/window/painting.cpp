// Device contexts of windows and the painting bracket. What is visible is computed when a context is opened.
#include "platform/window/painting.h"

#include "platform/graphics/window_dc.h"
#include "platform/window/caret.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/top_level.h"
#include "platform/window/update_region.h"

namespace platform {
namespace {

// Upper left corner of the window on the surface of its top-level window.
POINT surfaceOrigin(const Window& window) {
    POINT origin{};
    const Window* up = &window;
    for (; up->parent && !isTopLevel(*up); up = up->parent) {
        origin.x += up->rect.left + up->parent->client.left - up->parent->rect.left;
        origin.y += up->rect.top + up->parent->client.top - up->parent->rect.top;
    }
    return origin;
}

RECT clientOnSurface(const Window& window) {
    const POINT origin = surfaceOrigin(window);
    RECT rect = window.client;
    OffsetRect(&rect, origin.x - window.rect.left, origin.y - window.rect.top);
    return rect;
}

void subtractSiblingsAbove(Region& region, const Window& window) {
    const RECT parentClient = clientOnSurface(*window.parent);
    for (const Window* above = window.previous; above; above = above->previous) {
        if (!above->has(WS_VISIBLE) || above->hasEx(WS_EX_TRANSPARENT)) {
            continue;
        }
        RECT rect = above->rect;
        OffsetRect(&rect, parentClient.left, parentClient.top);
        region.subtract(rect);
    }
}

void subtractChildren(Region& region, const Window& window) {
    const RECT client = clientOnSurface(window);
    for (const Window* child = window.firstChild; child; child = child->next) {
        if (!child->has(WS_VISIBLE) || child->hasEx(WS_EX_TRANSPARENT)) {
            continue;
        }
        RECT rect = child->rect;
        OffsetRect(&rect, client.left, client.top);
        region.subtract(rect);
    }
}

// Whether a parent that paints over its children has still to be painted: the child waits for it.
bool waitsForParent(const Window& window) {
    for (const Window* up = window.parent; up && up->parent; up = up->parent) {
        if (!up->paint.update.isEmpty() && !up->has(WS_CLIPCHILDREN)) {
            return true;
        }
    }
    return false;
}

// Sends WM_NCPAINT when the borders are invalid.
void paintFrame(HWND handle) {
    Window* window = findWindow(handle);
    if (!window || !window->paint.frame) {
        return;
    }
    window->paint.frame = false;
    SendMessageA(handle, WM_NCPAINT, 1, 0);
}

// The update region limited to the client area, in coordinates of the surface.
Region updateOnSurface(const Window& window) {
    Region region = window.paint.update;
    const POINT origin = surfaceOrigin(window);
    region.offset(origin.x, origin.y);
    return region;
}

// The part of the window (with `wholeWindow` the borders too) that is seen, in coordinates of the surface.
Region visibleRegion(const Window& window, bool wholeWindow) {
    const Window* top = &window;
    while (top->parent && !isTopLevel(*top)) {
        top = top->parent;
    }
    if (!top->parent || !isShown(window)) {
        return Region();
    }
    const POINT origin = surfaceOrigin(window);
    const RECT whole{origin.x, origin.y, origin.x + widthOf(window.rect), origin.y + heightOf(window.rect)};
    Region region(wholeWindow ? whole : clientOnSurface(window));
    if (window.has(WS_CLIPCHILDREN)) {
        subtractChildren(region, window);
    }
    for (const Window* level = &window; level != top; level = level->parent) {
        if (level->has(WS_CLIPSIBLINGS)) {
            subtractSiblingsAbove(region, *level);
        }
        region.intersect(clientOnSurface(*level->parent));
    }
    return region;
}

// A device context for the window, limited to `clip` where it is given. Closed by closeWindowDc.
HDC openDc(Window& window, bool wholeWindow, const Region* clip) {
    Region region = visibleRegion(window, wholeWindow);
    if (clip) {
        region.intersect(*clip);
    }
    Window* top = topLevelOf(window);
    const bool drawable = top && isShown(*top);
    const RECT client = clientOnSurface(window);
    const POINT origin = wholeWindow ? surfaceOrigin(window) : POINT{client.left, client.top};
    return openWindowDc(window.handle, drawable ? &surfaceOf(*top) : nullptr, origin, region);
}

}  // namespace

void eraseNow(HWND handle, bool withChildren) {
    Window* window = findWindow(handle);
    if (!window || !isShown(*window) || !hasPending()) {
        return;
    }
    if (!window->paint.update.isEmpty() && !waitsForParent(*window)) {
        paintFrame(handle);
        window = findWindow(handle);
        if (window && window->paint.erase) {
            const Region update = updateOnSurface(*window);
            const HDC dc = openDc(*window, false, &update);
            const bool erased = SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0) != 0;
            closeWindowDc(dc);
            window = findWindow(handle);
            if (window && erased) {
                window->paint.erase = false;
            }
        }
    }
    if (!window || !withChildren) {
        return;
    }
    for (const HWND child : childHandles(*window)) {
        eraseNow(child, true);
    }
}

namespace {

// The context that WM_PAINT draws into. Null when the window is gone.
HDC beginPaint(HWND window, PAINTSTRUCT& paint) {
    Window* found = findWindow(window);
    hideCaretOver(*found);
    paintFrame(window);
    found = findWindow(window);
    if (!found) {
        return nullptr;
    }
    const Region update = updateOnSurface(*found);
    const bool erase = found->paint.erase;
    beginPainting(*found);
    paint.hdc = openDc(*found, false, &update);
    if (erase) {
        paint.fErase = SendMessageA(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint.hdc), 0) ? FALSE : TRUE;
    }
    GetClipBox(paint.hdc, &paint.rcPaint);
    return paint.hdc;
}

}  // namespace
}  // namespace platform

using platform::Window;

HDC BeginPaint(HWND window, LPPAINTSTRUCT paint) {
    if (!paint || !platform::requireWindow(window)) {
        return nullptr;
    }
    *paint = PAINTSTRUCT{};
    const HDC dc = platform::orOutOfMemory([&] { return platform::beginPaint(window, *paint); }, nullptr);
    Window* found = dc ? nullptr : platform::findWindow(window);
    if (found) {
        // What cannot be painted now is left out.
        platform::clearPaint(*found);
        platform::restoreCaret();
    }
    return dc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint) {
    if (!paint || !paint->hdc) {
        return FALSE;
    }
    platform::closeWindowDc(paint->hdc);
    if (platform::isAlive(window)) {
        platform::restoreCaret();
    }
    return TRUE;
}

HDC GetDC(HWND window) {
    Window* found = window ? platform::requireWindow(window) : nullptr;
    return platform::orOutOfMemory(
        [&]() -> HDC {
            if (!window) {
                return platform::openWindowDc(nullptr, nullptr, POINT{}, platform::Region());
            }
            return found ? platform::openDc(*found, false, nullptr) : nullptr;
        },
        nullptr);
}

HDC GetWindowDC(HWND window) {
    Window* found = window ? platform::requireWindow(window) : nullptr;
    if (window && !found) {
        return nullptr;
    }
    return found ? platform::orOutOfMemory([&] { return platform::openDc(*found, true, nullptr); }, nullptr)
                 : GetDC(nullptr);
}

int ReleaseDC(HWND, HDC dc) {
    if (!dc) {
        return 0;
    }
    platform::closeWindowDc(dc);
    return 1;
}
