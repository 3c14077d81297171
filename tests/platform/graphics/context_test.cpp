// Contexts of windows, damage, and extremes. What is painted is compared with the real system in tests/conformance.
#include "platform/graphics/window_dc.h"
#include "tests/support/canvas.h"

#include <gtest/gtest.h>

#include <memory>

TEST(Drawing, SurvivesSizesBeyondMeasure) {
    constexpr int kHuge = 0x7FFFFFFF;
    Canvas canvas(8, 4);
    Canvas source(4, 1);
    const RECT all = {-kHuge, -5, kHuge, kHuge};
    EXPECT_TRUE(DrawFocusRect(canvas, &all));
    EXPECT_TRUE(Ellipse(canvas, -kHuge, -kHuge, kHuge, kHuge));
    EXPECT_TRUE(BitBlt(canvas, kHuge, -kHuge, kHuge, kHuge, source, -kHuge, 5, SRCCOPY));
    EXPECT_TRUE(StretchBlt(canvas, 0, 0, kHuge, kHuge, source, 0, 0, kHuge, -kHuge, SRCCOPY));
    EXPECT_TRUE(StretchBlt(canvas, 0, 0, 8, 0, source, 0, 0, 4, 1, SRCCOPY));
    EXPECT_FALSE(BitBlt(canvas, 0, 0, 1, 1, source, 0, 0, 0x123456)) << "an operation that is not known";
}

TEST(WindowContext, OutlivesItsSurface) {
    auto surface = std::make_unique<platform::Surface>(8, 8);
    const HDC dc = platform::openWindowDc(nullptr, surface.get(), {0, 0}, platform::Region(RECT{0, 0, 100, 100}));
    surface->resize(4, 4);
    EXPECT_TRUE(PatBlt(dc, 0, 0, 100, 100, WHITENESS));
    surface.reset();
    EXPECT_TRUE(PatBlt(dc, 0, 0, 8, 8, WHITENESS));
    EXPECT_TRUE(TextOutA(dc, 0, 0, "abc", 3));
    EXPECT_TRUE(Ellipse(dc, 0, 0, 5, 5));
    EXPECT_EQ(GetPixel(dc, 1, 1), CLR_INVALID);
    const RECT rect = {0, 0, 5, 5};
    EXPECT_TRUE(DrawFocusRect(dc, &rect));
    EXPECT_FALSE(ExtFloodFill(dc, 0, 0, 0, FLOODFILLSURFACE));
    platform::closeWindowDc(dc);
}
