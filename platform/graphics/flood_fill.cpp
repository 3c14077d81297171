// ExtFloodFill: fills a connected area (by the four sides of a pixel) with the selected brush, within the clip.
#include "platform/graphics/painting.h"

#include <windows.h>

#include <vector>

using namespace platform;

namespace {

class FloodFill {
public:
    FloodFill(DeviceContext& dc, Pixel colour, bool toBorder)
        : dc_(dc),
          surface_(*dc.surface()),
          extent_(overlapOf(surface_.bounds(), dc.clip().bounds())),
          single_(dc.clip().rects().size() == 1),
          colour_(colour),
          toBorder_(toBorder),
          columns_(std::max(extent_.right - extent_.left, 0)),
          done_(static_cast<std::size_t>(columns_) *
                static_cast<std::size_t>(std::max(extent_.bottom - extent_.top, 0))) {}

    // False when the starting point is not part of an area to fill.
    bool fillFrom(POINT start, const Brush& brush);

private:
    bool belongs(int x, int y) const;
    std::vector<bool>::reference done(int x, int y) {
        return done_[static_cast<std::size_t>(y - extent_.top) * static_cast<std::size_t>(columns_) +
                     static_cast<std::size_t>(x - extent_.left)];
    }
    bool isOpen(int x, int y) { return belongs(x, y) && !done(x, y); }
    void fillRun(POINT seed, const Brush& brush);
    void addSeeds(int left, int right, int y);

    DeviceContext& dc_;
    Surface& surface_;
    const RECT extent_;
    const bool single_;  // The clip is one rectangle, that is `extent_`.
    const Pixel colour_;
    const bool toBorder_;
    const int columns_;
    // Pixels that were filled. The brush may have the colour that is being replaced, so colours alone do not tell.
    std::vector<bool> done_;
    std::vector<POINT> seeds_;
};

bool FloodFill::belongs(int x, int y) const {
    if (x < extent_.left || x >= extent_.right || y < extent_.top || y >= extent_.bottom) {
        return false;
    }
    return (single_ || dc_.clip().contains(x, y)) && (surface_.row(y)[x] == colour_) != toBorder_;
}

void FloodFill::addSeeds(int left, int right, int y) {
    bool inside = false;
    for (int x = left; x < right; ++x) {
        const bool open = isOpen(x, y);
        if (open && !inside) {
            seeds_.push_back({x, y});
        }
        inside = open;
    }
}

void FloodFill::fillRun(POINT seed, const Brush& brush) {
    int left = seed.x;
    int right = seed.x + 1;
    while (isOpen(left - 1, seed.y)) {
        --left;
    }
    while (isOpen(right, seed.y)) {
        ++right;
    }
    for (int x = left; x < right; ++x) {
        done(x, seed.y) = true;
    }
    if (!brush.hollow) {
        surface_.addDamage({left, seed.y, right, seed.y + 1});
        std::fill(surface_.row(seed.y) + left, surface_.row(seed.y) + right, brush.colour);
    }
    addSeeds(left, right, seed.y - 1);
    addSeeds(left, right, seed.y + 1);
}

bool FloodFill::fillFrom(POINT start, const Brush& brush) {
    if (!belongs(start.x, start.y)) {
        return false;
    }
    seeds_.push_back(start);
    while (!seeds_.empty()) {
        const POINT seed = seeds_.back();
        seeds_.pop_back();
        // Another run may have covered it meanwhile.
        if (isOpen(seed.x, seed.y)) {
            fillRun(seed, brush);
        }
    }
    return true;
}

}  // namespace

BOOL ExtFloodFill(HDC handle, int x, int y, COLORREF colour, UINT kind) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || dc->surface() == nullptr) {
        return FALSE;
    }
    FloodFill fill(*dc, pixelOf(colour), kind == FLOODFILLBORDER);
    return fill.fillFrom(toSurface(*dc, x, y), *dc->state().brush);
}
