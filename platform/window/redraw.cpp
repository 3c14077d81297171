// RedrawWindow and the functions that are it with other arguments: what is invalid, noted and painted on demand.
#include "platform/window/out_of_memory.h"
#include "platform/window/painting.h"
#include "platform/window/top_level.h"
#include "platform/window/update_region.h"

namespace platform {
namespace {

void paintTree(HWND handle, bool withChildren) {
    Window* window = findWindow(handle);
    if (!window || !window->has(WS_VISIBLE) || !hasPending()) {
        return;
    }
    if (window->paint.isPending()) {
        clearInternalPaint(*window);
        SendMessageA(handle, WM_PAINT, 0, 0);
        window = findWindow(handle);
    }
    if (!window || !withChildren || !hasPending()) {
        return;
    }
    for (const HWND child : childHandles(*window)) {
        paintTree(child, true);
    }
}

// Sends WM_PAINT to the window, and to those inside it, that have something to paint.
void updateNow(HWND handle, bool withChildren) {
    const Window* window = findWindow(handle);
    if (!window || !hasPending() || !isShown(*window)) {
        return;
    }
    paintTree(handle, withChildren);
    presentAll();
}

}  // namespace
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
        platform::validate(*found, rect ? &part : nullptr, flags);
    }
    if ((flags & RDW_NOERASE) && !(flags & RDW_ERASE)) {
        found->paint.erase = false;
    }
    const HWND handle = found->handle;
    return platform::orOutOfMemory(
        [&] {
            if (flags & RDW_ERASENOW) {
                platform::eraseNow(handle, !(flags & RDW_NOCHILDREN));
            }
            if (flags & RDW_UPDATENOW) {
                platform::updateNow(handle, !(flags & RDW_NOCHILDREN));
            }
            return TRUE;
        },
        FALSE);
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
