// Origin, clip, saved states, contexts of windows and damage.
#include "canvas.h"

#include <memory>

namespace {

bool equals(const RECT& rect, const RECT& expected) {
    return EqualRect(&rect, &expected);
}

}  // namespace

TEST(Clip, NarrowsInLogicalCoordinates) {
    Canvas canvas(8, 4);
    SetViewportOrgEx(canvas, 2, 1, nullptr);
    EXPECT_EQ(IntersectClipRect(canvas, 0, 0, 4, 2), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(canvas, 1, 0, 2, 1), COMPLEXREGION);
    RECT box{};
    EXPECT_EQ(GetClipBox(canvas, &box), COMPLEXREGION);
    EXPECT_TRUE(equals(box, {0, 0, 4, 2}));
    canvas.fill({-10, -10, 100, 100}, kRed);
    const RECT hidden = {1, 0, 2, 1};
    const RECT half = {1, 0, 2, 2};
    EXPECT_FALSE(RectVisible(canvas, &hidden));
    EXPECT_TRUE(RectVisible(canvas, &half));
    EXPECT_EQ(GetPixel(canvas, 1, 0), CLR_INVALID);
    EXPECT_EQ(IntersectClipRect(canvas, 50, 50, 60, 60), NULLREGION);

    Canvas shown(8, 4);
    BitBlt(shown, 0, 0, 8, 4, canvas, -2, -1, SRCCOPY);
    EXPECT_EQ(shown.picture(), (Picture{"........", "..R.RR..", "..RRRR..", "........"}));
}

TEST(Clip, SavedStatesComeBackByLevel) {
    Canvas canvas(10, 10);
    const HBRUSH brush = CreateSolidBrush(kRed);
    EXPECT_EQ(SaveDC(canvas), 1);
    IntersectClipRect(canvas, 2, 2, 5, 5);
    SelectObject(canvas, brush);
    SetTextColor(canvas, kBlue);
    EXPECT_EQ(SaveDC(canvas), 2);
    SelectObject(canvas, GetStockObject(BLACK_BRUSH));
    IntersectClipRect(canvas, 3, 3, 4, 4);
    EXPECT_FALSE(RestoreDC(canvas, 0));
    EXPECT_FALSE(RestoreDC(canvas, 3));
    EXPECT_FALSE(RestoreDC(canvas, -3));
    EXPECT_TRUE(RestoreDC(canvas, -1));
    RECT box{};
    GetClipBox(canvas, &box);
    EXPECT_TRUE(equals(box, {2, 2, 5, 5}));
    EXPECT_EQ(SelectObject(canvas, brush), brush);
    // A deleted object in a saved state lives as long as that.
    SaveDC(canvas);
    SelectObject(canvas, GetStockObject(WHITE_BRUSH));
    DeleteObject(brush);
    EXPECT_TRUE(RestoreDC(canvas, 2));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(WHITE_BRUSH)), brush);
    EXPECT_TRUE(RestoreDC(canvas, 1));
    EXPECT_EQ(GetTextColor(canvas), RGB(0, 0, 0));
    EXPECT_EQ(SelectObject(canvas, brush), nullptr);
    GetClipBox(canvas, &box);
    EXPECT_TRUE(equals(box, {0, 0, 10, 10}));
}

TEST(WindowContext, DrawsAtItsOriginWithinItsClipAndCountsDamage) {
    platform::Surface surface(20, 10);
    platform::Region clip(RECT{4, 2, 30, 30});
    clip.subtract({6, 0, 8, 30});
    const auto window = reinterpret_cast<HWND>(ULONG_PTR{42});
    const HDC dc = platform::openWindowDc(window, &surface, {5, 3}, clip);
    EXPECT_FALSE(surface.hasDamage());
    const RECT rect = {-9, 0, 4, 1};
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(surface.row(3)[3], 0u);
    EXPECT_EQ(surface.row(3)[4], 0x00FFFFFFu);
    EXPECT_EQ(surface.row(3)[6], 0u);
    EXPECT_EQ(surface.row(3)[8], 0x00FFFFFFu);
    EXPECT_TRUE(equals(surface.takeDamage(), {4, 3, 9, 4}));
    EXPECT_FALSE(surface.hasDamage());
    EXPECT_EQ(SelectObject(dc, CreateCompatibleBitmap(dc, 2, 2)), nullptr);
    platform::closeWindowDc(dc);
    EXPECT_EQ(SetTextColor(dc, 0), CLR_INVALID);
}

TEST(WindowContext, ComesFromThePoolAsNew) {
    platform::Surface surface(4, 4);
    const platform::Region all(surface.bounds());
    const HDC first = platform::openWindowDc(nullptr, &surface, {1, 1}, all);
    SetTextColor(first, kRed);
    SetBkMode(first, TRANSPARENT);
    SelectObject(first, GetStockObject(NULL_PEN));
    IntersectClipRect(first, 0, 0, 1, 1);
    SaveDC(first);
    platform::closeWindowDc(first);
    const HDC second = platform::openWindowDc(nullptr, &surface, {0, 0}, all);
    EXPECT_NE(first, second);
    EXPECT_EQ(GetTextColor(second), RGB(0, 0, 0));
    EXPECT_EQ(SelectObject(second, GetStockObject(NULL_PEN)), GetStockObject(BLACK_PEN));
    EXPECT_FALSE(RestoreDC(second, -1));
    RECT box{};
    EXPECT_EQ(GetClipBox(second, &box), SIMPLEREGION);
    EXPECT_TRUE(equals(box, {0, 0, 4, 4}));
    platform::closeWindowDc(second);
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
