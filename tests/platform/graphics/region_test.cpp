#include "platform/graphics/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using platform::Region;

namespace {

constexpr int kSide = 24;

// The same operations on a plain grid of pixels, to compare with.
class Grid {
public:
    void set(const RECT& rect, bool value) {
        for (int y = rect.top; y < rect.bottom; ++y) {
            for (int x = rect.left; x < rect.right; ++x) {
                cells_[y][x] = value;
            }
        }
    }
    void keep(const RECT& rect) {
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                const bool inside = x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
                cells_[y][x] = cells_[y][x] && inside;
            }
        }
    }
    bool at(int x, int y) const { return cells_[y][x]; }

private:
    bool cells_[kSide][kSide] = {};
};

int coverOf(const Region& region, int x, int y) {
    int count = 0;
    for (const RECT& rect : region.rects()) {
        count += x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom ? 1 : 0;
    }
    return count;
}

}  // namespace

TEST(Region, StaysDisjointAndExactThroughRandomOperations) {
    std::mt19937 random(7);
    const auto coordinate = [&random] { return static_cast<int>(random() % kSide); };
    Region region;
    Grid grid;
    for (int step = 0; step < 2000; ++step) {
        const RECT rect = {coordinate(), coordinate(), coordinate() + 1, coordinate() + 1};
        switch (random() % 8) {
            case 0:
                region.intersect(rect);
                grid.keep(rect);
                break;
            case 1:
            case 2:
                region.subtract(rect);
                grid.set(rect, false);
                break;
            default:
                region.add(rect);
                grid.set(rect, true);
        }
        EXPECT_TRUE(std::none_of(region.rects().begin(), region.rects().end(),
                                 [](const RECT& own) { return IsRectEmpty(&own); }))
            << "step " << step;
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                ASSERT_EQ(coverOf(region, x, y), grid.at(x, y) ? 1 : 0) << "step " << step << " at " << x << "," << y;
            }
        }
    }
}
