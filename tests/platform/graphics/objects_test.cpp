// Handles of objects: what is refused, what lives on while it is selected.
#include "canvas.h"

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

TEST(Objects, ADeletedBrushWorksUntilItIsDeselected) {
    Canvas canvas(2, 1);
    const HBRUSH brush = CreateSolidBrush(kRed);
    const HGDIOBJ previous = SelectObject(canvas, brush);
    EXPECT_TRUE(DeleteObject(brush));
    PatBlt(canvas, 0, 0, 1, 1, PATCOPY);
    EXPECT_EQ(canvas.picture(), Picture{"R."});
    EXPECT_EQ(SelectObject(canvas, previous), brush);
    EXPECT_EQ(SelectObject(canvas, brush), nullptr);
}

TEST(Objects, StockAndSystemObjectsSurviveDeletion) {
    Canvas canvas(1, 1);
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH)));
    EXPECT_NE(SelectObject(canvas, GetStockObject(WHITE_BRUSH)), nullptr);
    EXPECT_TRUE(DeleteObject(GetSysColorBrush(COLOR_BTNFACE)));
    EXPECT_TRUE(DeleteObject(platform::dialogFont(8)));
    const RECT all = {0, 0, 1, 1};
    FillRect(canvas, &all, GetSysColorBrush(COLOR_BTNFACE));
    EXPECT_EQ(canvas.picture(), Picture{"f"});
    FillRect(canvas, &all, reinterpret_cast<HBRUSH>(ULONG_PTR{COLOR_BTNSHADOW + 1}));
    EXPECT_EQ(canvas.picture(), Picture{"S"});
    EXPECT_EQ(GetSysColorBrush(99), nullptr);
}

TEST(Objects, ABitmapBelongsToOneContextAtATime) {
    Canvas canvas(3, 2);
    const HDC other = CreateCompatibleDC(canvas);
    EXPECT_EQ(SelectObject(other, canvas.bitmap()), nullptr);
    const HBITMAP own = CreateCompatibleBitmap(other, 5, 4);
    const HGDIOBJ first = SelectObject(other, own);
    BITMAP description{};
    EXPECT_EQ(GetObjectA(first, sizeof description, &description), static_cast<int>(sizeof description));
    EXPECT_EQ(description.bmWidth, 1);
    EXPECT_EQ(description.bmBitsPixel, 1);
    GetObjectA(own, sizeof description, &description);
    EXPECT_EQ(description.bmWidth, 5);
    EXPECT_EQ(description.bmHeight, 4);
    EXPECT_EQ(description.bmBitsPixel, 32);
    EXPECT_EQ(GetObjectA(own, 4, &description), 0);
    EXPECT_TRUE(DeleteDC(other));
    EXPECT_FALSE(DeleteDC(other));
    EXPECT_NE(SelectObject(canvas, own), nullptr);
    SelectObject(canvas, canvas.bitmap());
    DeleteObject(own);
}

TEST(Objects, ImpossibleBitmapsAreRefused) {
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, -1, 4), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, 32767, 32767), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(dc, 0x7FFFFFFF, 0x7FFFFFFF), nullptr);
    EXPECT_NE(CreateCompatibleBitmap(dc, 0, 0), nullptr);
    DeleteDC(dc);
}

TEST(Objects, RunningOutOfHandlesIsAnError) {
    std::vector<HBRUSH> brushes;
    while (const HBRUSH brush = CreateSolidBrush(kRed)) {
        brushes.push_back(brush);
        ASSERT_LE(brushes.size(), 70000u);
    }
    EXPECT_EQ(CreateCompatibleDC(nullptr), nullptr);
    for (const HBRUSH brush : brushes) {
        EXPECT_TRUE(DeleteObject(brush));
    }
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_NE(dc, nullptr);
    DeleteDC(dc);
}
