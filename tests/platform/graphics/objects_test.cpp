// Handles of objects: which are refused, and which live on.
#include "platform/graphics/window_dc.h"
#include "tests/support/canvas.h"

#include <gtest/gtest.h>

TEST(Objects, DeadAndInventedHandlesAreRefused) {
    Canvas canvas(4, 4);
    const HBRUSH brush = CreateSolidBrush(kRed);
    EXPECT_NE(SelectObject(canvas, brush), nullptr);
    EXPECT_EQ(SelectObject(canvas, GetStockObject(WHITE_BRUSH)), brush);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(SelectObject(canvas, brush), nullptr);
    // The slot is taken again; the old handle still names nothing.
    const HBRUSH next = CreateSolidBrush(kBlue);
    EXPECT_NE(next, brush);
    EXPECT_EQ(SelectObject(canvas, brush), nullptr);
    DeleteObject(next);
    for (const ULONG_PTR value : {ULONG_PTR{1}, ULONG_PTR{0x12345678}, ~ULONG_PTR{0}, ULONG_PTR{0xFFFF0000}}) {
        const auto garbage = reinterpret_cast<HGDIOBJ>(value);
        EXPECT_FALSE(DeleteObject(garbage));
        EXPECT_EQ(SelectObject(canvas, garbage), nullptr);
        EXPECT_EQ(SetTextColor(static_cast<HDC>(garbage), 0), CLR_INVALID);
        EXPECT_EQ(GetObjectA(garbage, 0, nullptr), 0);
    }
    EXPECT_EQ(SetTextColor(static_cast<HDC>(GetStockObject(BLACK_PEN)), 0), CLR_INVALID);
}

// Wine forgets it, which leaves the saved state with a handle that names nothing.
TEST(Objects, ADeletedBrushLivesAsLongAsASavedState) {
    const Canvas canvas(1, 1);
    const HBRUSH brush = CreateSolidBrush(kRed);
    SelectObject(canvas, brush);
    SaveDC(canvas);
    SelectObject(canvas, GetStockObject(WHITE_BRUSH));
    DeleteObject(brush);
    EXPECT_TRUE(RestoreDC(canvas, -1));
    EXPECT_EQ(SelectObject(canvas, GetStockObject(WHITE_BRUSH)), brush);
    EXPECT_EQ(SelectObject(canvas, brush), nullptr);
}

TEST(Objects, ImpossibleBitmapsAreRefused) {
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, -1, 4), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, 32767, 32767), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, 0x7FFFFFFF, 0x7FFFFFFF), nullptr);
    EXPECT_NE(CreateCompatibleBitmap(dc, 0, 0), nullptr);
    DeleteDC(dc);
}
