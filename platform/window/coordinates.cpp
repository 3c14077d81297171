// Rectangles and points of windows, on the screen and in client areas.
#include "platform/window/window.h"

namespace platform {
namespace {

POINT originOf(const Window* window) {
    return window ? clientOrigin(*window) : POINT{};
}

bool moveOrigin(HWND handle, LPPOINT point, int sign) {
    const Window* window = requireWindow(handle);
    if (!window || !point) {
        return false;
    }
    const POINT origin = clientOrigin(*window);
    point->x += sign * origin.x;
    point->y += sign * origin.y;
    return true;
}

}  // namespace
}  // namespace platform

using platform::requireWindow;
using platform::Window;

BOOL GetWindowRect(HWND window, LPRECT rect) {
    const Window* found = requireWindow(window);
    if (!found || !rect) {
        return FALSE;
    }
    const POINT origin = platform::windowOrigin(*found);
    *rect = {origin.x, origin.y, origin.x + platform::widthOf(found->rect), origin.y + platform::heightOf(found->rect)};
    return TRUE;
}

BOOL GetClientRect(HWND window, LPRECT rect) {
    const Window* found = requireWindow(window);
    if (!found || !rect) {
        return FALSE;
    }
    *rect = {0, 0, platform::widthOf(found->client), platform::heightOf(found->client)};
    return TRUE;
}

BOOL ClientToScreen(HWND window, LPPOINT point) {
    return platform::moveOrigin(window, point, 1) ? TRUE : FALSE;
}

BOOL ScreenToClient(HWND window, LPPOINT point) {
    return platform::moveOrigin(window, point, -1) ? TRUE : FALSE;
}

int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
    const Window* source = from ? requireWindow(from) : nullptr;
    const Window* target = to ? requireWindow(to) : nullptr;
    if ((from && !source) || (to && !target) || !points) {
        return 0;
    }
    const POINT a = platform::originOf(source);
    const POINT b = platform::originOf(target);
    const int dx = a.x - b.x;
    const int dy = a.y - b.y;
    for (UINT i = 0; i < count; ++i) {
        points[i].x += dx;
        points[i].y += dy;
    }
    return static_cast<int>(MAKELONG(dx & 0xffff, dy & 0xffff));
}
