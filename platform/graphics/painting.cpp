#include "platform/graphics/painting.h"

#include <cwchar>

namespace platform {

POINT toSurface(const DeviceContext& dc, int x, int y) {
    const POINT offset = dc.offset();
    return {limited(std::int64_t{x} + offset.x), limited(std::int64_t{y} + offset.y)};
}

RECT toSurface(const DeviceContext& dc, std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
    const POINT offset = dc.offset();
    return {limited(std::min(left, right) + offset.x), limited(std::min(top, bottom) + offset.y),
            limited(std::max(left, right) + offset.x), limited(std::max(top, bottom) + offset.y)};
}

RECT blockOnSurface(const DeviceContext& dc, std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
    return toSurface(dc, width < 0 ? x + 1 : x, height < 0 ? y + 1 : y, width < 0 ? x + width + 1 : x + width,
                     height < 0 ? y + height + 1 : y + height);
}

bool isVisible(const DeviceContext& dc, int x, int y) {
    const Surface* surface = dc.surface();
    return surface != nullptr && x >= 0 && y >= 0 && x < surface->width() && y < surface->height() &&
           dc.clip().contains(x, y);
}

int discGap(int size, int row) {
    const int distance = std::abs(2 * row + 1 - size);
    int gap = 0;
    while ((size - 1 - 2 * gap) * (size - 1 - 2 * gap) + distance * distance > size * size) {
        ++gap;
    }
    return gap;
}

void fillArea(DeviceContext& dc, const RECT& area, Pixel pixel) {
    constexpr int kNarrow = 16;
    paintVisible(dc, area, [surface = dc.surface(), pixel](const RECT& part) {
        const int count = part.right - part.left;
        for (int y = part.top; y < part.bottom; ++y) {
            Pixel* row = surface->row(y) + part.left;
            if (count < kNarrow) {
                std::fill_n(row, count, pixel);
            } else {
                // The C library fills as fast as memory takes it.
                static_assert(sizeof(wchar_t) == sizeof(Pixel));
                std::wmemset(reinterpret_cast<wchar_t*>(row), static_cast<wchar_t>(pixel),
                             static_cast<std::size_t>(count));
            }
        }
    });
}

void invertArea(DeviceContext& dc, const RECT& area) {
    paintVisible(dc, area, [surface = dc.surface()](const RECT& part) {
        for (int y = part.top; y < part.bottom; ++y) {
            std::transform(surface->row(y) + part.left, surface->row(y) + part.right, surface->row(y) + part.left,
                           [](Pixel pixel) { return pixel ^ kWhite; });
        }
    });
}

void putPixel(DeviceContext& dc, int x, int y, Pixel pixel) {
    if (isVisible(dc, x, y)) {
        dc.surface()->addDamage({x, y, x + 1, y + 1});
        dc.surface()->row(y)[x] = pixel;
    }
}

}  // namespace platform
