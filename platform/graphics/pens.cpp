#include "platform/graphics/pens.h"

#include <cstdlib>

namespace platform {

namespace {

// Dots and gaps of the dotted pen in pixels.
constexpr int kDotLength = 3;

// Draws single pixels of a path with a pen, keeping count for the pattern of a dotted one.
class Stroke {
public:
    explicit Stroke(DeviceContext& dc) : dc_(dc), pen_(*dc.state().pen) {}

    void line(POINT from, POINT to);
    void dot(int x, int y);

private:
    bool straight(POINT from, POINT to);

    DeviceContext& dc_;
    const Pen& pen_;
    int step_ = 0;
};

void Stroke::dot(int x, int y) {
    const bool patterned = pen_.style == PS_DOT && pen_.width == 1;
    const bool gap = patterned && step_ / kDotLength % 2 == 1;
    step_ = (step_ + 1) % (2 * kDotLength);
    if (!gap) {
        strokePixel(dc_, x, y, pen_);
    } else if (dc_.state().backMode == OPAQUE) {
        putPixel(dc_, x, y, pixelOf(dc_.state().backColour));
    }
}

// Solid lines along an axis are by far the most: they are filled at once.
bool Stroke::straight(POINT from, POINT to) {
    if (pen_.style != PS_SOLID || pen_.width != 1 || (from.x != to.x && from.y != to.y)) {
        return false;
    }
    if (from.x == to.x) {
        const int top = from.y < to.y ? from.y : to.y + 1;
        fillArea(dc_, {from.x, top, from.x + 1, top + std::abs(to.y - from.y)}, pen_.colour);
    } else {
        const int left = from.x < to.x ? from.x : to.x + 1;
        fillArea(dc_, {left, from.y, left + std::abs(to.x - from.x), from.y + 1}, pen_.colour);
    }
    return true;
}

void Stroke::line(POINT from, POINT to) {
    const RECT reach = dc_.clip().bounds();
    const RECT box = {std::min(from.x, to.x) - pen_.width, std::min(from.y, to.y) - pen_.width,
                      std::max(from.x, to.x) + pen_.width + 1, std::max(from.y, to.y) + pen_.width + 1};
    if (isEmpty(overlapOf(box, reach)) || straight(from, to)) {
        return;
    }
    const std::int64_t dx = std::abs(to.x - from.x);
    const std::int64_t dy = std::abs(to.y - from.y);
    const int stepX = from.x < to.x ? 1 : -1;
    const int stepY = from.y < to.y ? 1 : -1;
    const bool steep = dy > dx;
    const std::int64_t major = steep ? dy : dx;
    const std::int64_t minor = steep ? dx : dy;
    // A tie between two pixels goes to the upper or left one, whichever way the line runs.
    const bool towardsLower = (steep ? stepX : stepY) > 0;
    std::int64_t error = 2 * minor - major - (towardsLower ? 1 : 0);
    for (std::int64_t i = 0; i < major; ++i) {
        dot(from.x, from.y);
        if (error >= 0) {
            error -= 2 * major;
            (steep ? from.x : from.y) += steep ? stepX : stepY;
        }
        error += 2 * minor;
        (steep ? from.y : from.x) += steep ? stepY : stepX;
    }
}

}  // namespace

void strokePixel(DeviceContext& dc, int x, int y, const Pen& pen) {
    if (pen.style == PS_NULL) {
        return;
    }
    if (pen.width == 1) {
        putPixel(dc, x, y, pen.colour);
        return;
    }
    // A disc: rows of the square around the pixel that are shortened towards its corners.
    const int width = std::min(pen.width, 1 << 10);
    const int half = width / 2;
    for (int row = 0; row < width; ++row) {
        const int inset = discGap(width, row);
        const int top = y - half + row;
        fillArea(dc, {x - half + inset, top, x - half + width - inset, top + 1}, pen.colour);
    }
}

void strokePath(DeviceContext& dc, std::span<const POINT> points) {
    const Pen& pen = *dc.state().pen;
    if (pen.style == PS_NULL || dc.surface() == nullptr || points.size() < 2) {
        return;
    }
    Stroke stroke(dc);
    for (std::size_t i = 1; i < points.size(); ++i) {
        stroke.line(points[i - 1], points[i]);
    }
    if (pen.width > 1) {
        strokePixel(dc, points.back().x, points.back().y, pen);
    }
}

}  // namespace platform
