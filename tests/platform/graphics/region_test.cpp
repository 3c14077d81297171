#include "platform/graphics/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using platform::Region;

namespace {

constexpr int kSide = 24;

bool isInside(const RECT& rect, int x, int y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

enum class Operation { Add, Subtract, Intersect };

}  // namespace

// Compared with the same operations on a plain grid of pixels.
TEST(Region, StaysDisjointAndExactThroughRandomOperations) {
    constexpr Operation kOperations[] = {Operation::Add, Operation::Add, Operation::Subtract, Operation::Intersect};
    std::mt19937 random(7);
    const auto coordinate = [&random] { return static_cast<int>(random() % kSide); };
    Region region;
    bool grid[kSide][kSide] = {};
    for (int step = 0; step < 2000; ++step) {
        const RECT rect = {coordinate(), coordinate(), coordinate() + 1, coordinate() + 1};
        const Operation operation = kOperations[random() % std::size(kOperations)];
        if (operation == Operation::Add) {
            region.add(rect);
        } else if (operation == Operation::Subtract) {
            region.subtract(rect);
        } else {
            region.intersect(rect);
        }
        EXPECT_TRUE(std::none_of(region.rects().begin(), region.rects().end(),
                                 [](const RECT& own) { return IsRectEmpty(&own); }))
            << "step " << step;
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                bool& cell = grid[y][x];
                if (operation == Operation::Intersect) {
                    cell = cell && isInside(rect, x, y);
                } else if (isInside(rect, x, y)) {
                    cell = operation == Operation::Add;
                }
                const auto cover = std::count_if(region.rects().begin(), region.rects().end(),
                                                 [=](const RECT& own) { return isInside(own, x, y); });
                ASSERT_EQ(cover, cell ? 1 : 0) << "step " << step << " at " << x << "," << y;
            }
        }
    }
}
