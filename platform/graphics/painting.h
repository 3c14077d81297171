// The primitives that all drawing comes down to: spans of pixels within a context's clip, counted as damage.
#pragma once

#include "platform/graphics/device_context.h"

#include <windows.h>

#include <algorithm>

namespace platform {

// Coordinates farther out than any screen are cut off here, so that sums of a few of them fit into an int.
constexpr int kFarthest = 1 << 27;
inline int limited(std::int64_t coordinate) {
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, -kFarthest, kFarthest));
}

inline RECT overlapOf(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}
inline bool isEmpty(const RECT& rect) {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

POINT toSurface(const DeviceContext& dc, int x, int y);
// Edges in either order.
RECT toSurface(const DeviceContext& dc, std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom);

// The area of a width and height as the block transfers take them: from a negative one the area reaches to the left or
// upwards and includes the pixel at x or y itself.
RECT blockOnSurface(const DeviceContext& dc, std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height);

// Calls paint(part) for each part of `area` (surface coordinates) that the context may draw on.
template <class Paint>
void paintVisible(DeviceContext& dc, const RECT& area, Paint paint) {
    Surface* surface = dc.surface();
    if (surface == nullptr) {
        return;
    }
    const RECT reach = overlapOf(area, surface->bounds());
    for (const RECT& rect : dc.clip().rects()) {
        const RECT part = overlapOf(reach, rect);
        if (!isEmpty(part)) {
            surface->addDamage(part);
            paint(part);
        }
    }
}

// Whether the context may draw on the pixel; false without a surface.
bool isVisible(const DeviceContext& dc, int x, int y);

// How far the pixels of that row of a disc are from the sides of the square around it.
int discGap(int size, int row);

// All in surface coordinates.
void fillArea(DeviceContext& dc, const RECT& area, Pixel pixel);
void invertArea(DeviceContext& dc, const RECT& area);
void putPixel(DeviceContext& dc, int x, int y, Pixel pixel);

}  // namespace platform
