// Lines and shapes: outlined with the pen, filled with the brush. Self-crossing polygons are filled alternately.
#include "platform/graphics/pens.h"

#include <windows.h>

#include <vector>

using namespace platform;

namespace {

std::vector<POINT> pathOf(const DeviceContext& dc, const POINT* points, int count) {
    std::vector<POINT> path;
    path.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i < count; ++i) {
        path.push_back(toSurface(dc, points[i].x, points[i].y));
    }
    return path;
}

// The first pixel whose centre is not left of where the side crosses the row.
int crossing(POINT upper, POINT lower, int y) {
    const std::int64_t dx = std::int64_t{lower.x} - upper.x;
    const std::int64_t dy = std::int64_t{lower.y} - upper.y;
    const std::int64_t scaled = dx * (y - upper.y);
    const std::int64_t floor = scaled >= 0 ? scaled / dy : -((-scaled + dy - 1) / dy);
    return limited(upper.x + floor + (scaled - floor * dy != 0 ? 1 : 0));
}

void fillPolygon(DeviceContext& dc, const std::vector<POINT>& path, Pixel pixel) {
    const RECT reach = dc.surface() == nullptr ? RECT{} : overlapOf(dc.clip().bounds(), dc.surface()->bounds());
    std::vector<int> crossings;
    for (int y = reach.top; y < reach.bottom; ++y) {
        crossings.clear();
        for (std::size_t i = 0; i < path.size(); ++i) {
            const POINT a = path[i];
            const POINT b = path[(i + 1) % path.size()];
            const POINT upper = a.y <= b.y ? a : b;
            const POINT lower = a.y <= b.y ? b : a;
            if (y >= upper.y && y < lower.y) {
                crossings.push_back(crossing(upper, lower, y));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            fillArea(dc, {crossings[i], y, crossings[i + 1], y + 1}, pixel);
        }
    }
}

// The outline of an ellipse that touches the sides of `box` (right and bottom exclusive): for each row from the middle
// outwards, the columns of the left half; the other three quarters are mirror images. Integer midpoint method.
template <class Use>
void walkEllipse(const RECT& box, Use use) {
    std::int64_t width = box.right - box.left - 1;
    std::int64_t height = box.bottom - box.top - 1;
    const std::int64_t oddHeight = height & 1;
    std::int64_t dx = 4 * (1 - width) * height * height;
    std::int64_t dy = 4 * (oddHeight + 1) * width * width;
    std::int64_t error = dx + dy + oddHeight * width * width;
    int left = box.left;
    int right = box.right - 1;
    int lower = box.top + static_cast<int>((height + 1) / 2);
    int upper = lower - static_cast<int>(oddHeight);
    const std::int64_t stepY = 8 * width * width;
    const std::int64_t stepX = 8 * height * height;
    do {
        use(left, right, upper, lower);
        const std::int64_t doubled = 2 * error;
        const bool outwards = doubled <= dy;
        const bool inwards = doubled >= dx || !outwards;
        if (outwards) {
            ++lower;
            --upper;
            error += dy += stepY;
        }
        if (inwards) {
            ++left;
            --right;
            error += dx += stepX;
        }
    } while (left <= right);
    // A very flat ellipse ends before its tips.
    while (lower - upper <= height) {
        use(left - 1, right + 1, upper--, lower++);
    }
}

void fillEllipse(DeviceContext& dc, const RECT& box, Pixel pixel) {
    walkEllipse(box, [&](int left, int right, int upper, int lower) {
        fillArea(dc, {left, upper, right + 1, upper + 1}, pixel);
        if (lower != upper) {
            fillArea(dc, {left, lower, right + 1, lower + 1}, pixel);
        }
    });
}

}  // namespace

BOOL Polygon(HDC handle, const POINT* points, int count) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || points == nullptr || count < 2) {
        return FALSE;
    }
    std::vector<POINT> path = pathOf(*dc, points, count);
    if (!dc->state().brush->hollow) {
        fillPolygon(*dc, path, dc->state().brush->colour);
    }
    path.push_back(path.front());
    strokePath(*dc, path);
    return TRUE;
}

BOOL Ellipse(HDC handle, int left, int top, int right, int bottom) {
    // Beyond these coordinates the products of the midpoint method would not fit into 64 bits.
    constexpr RECT kReach = {-32768, -32768, 32767, 32767};
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    const RECT box = overlapOf(toSurface(*dc, left, top, right, bottom), kReach);
    if (isEmpty(box)) {
        return TRUE;
    }
    if (!dc->state().brush->hollow) {
        fillEllipse(*dc, box, dc->state().brush->colour);
    }
    const Pen& pen = *dc->state().pen;
    if (pen.style != PS_NULL) {
        walkEllipse(box, [&](int l, int r, int upper, int lower) {
            strokePixel(*dc, l, upper, pen);
            strokePixel(*dc, r, upper, pen);
            strokePixel(*dc, l, lower, pen);
            strokePixel(*dc, r, lower, pen);
        });
    }
    return TRUE;
}
