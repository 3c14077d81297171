#include "canvas.h"

namespace {

// Eight pixels that can be told apart by their red.
class Ramp : public Canvas {
public:
    explicit Ramp(int width) : Canvas(width, 1) {
        for (int x = 0; x < width; ++x) {
            SetPixel(*this, x, 0, RGB(x, 255, 255));
        }
    }
};

std::vector<int> reds(HDC dc, int count) {
    std::vector<int> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int x = 0; x < count; ++x) {
        values.push_back(GetRValue(GetPixel(dc, x, 0)));
    }
    return values;
}

}  // namespace

TEST(Blit, CopiesWhatTheSourceHasAndLeavesTheRest) {
    Canvas source(3, 2);
    source.paint({"RBW", "KSD"});
    Canvas target(6, 3);
    EXPECT_TRUE(BitBlt(target, 1, 0, 4, 3, source, -1, 0, SRCCOPY));
    EXPECT_EQ(target.picture(), (Picture{"..RBW.", "..KSD.", "......"}));
    EXPECT_TRUE(BitBlt(target, 0, 2, 2, 1, nullptr, 0, 0, BLACKNESS));
    EXPECT_TRUE(BitBlt(target, 4, 2, 2, 1, nullptr, 0, 0, WHITENESS));
    EXPECT_TRUE(BitBlt(target, 0, 2, 6, 1, nullptr, 0, 0, DSTINVERT));
    EXPECT_EQ(target.picture()[2], "WW??KK");
    EXPECT_FALSE(BitBlt(target, 0, 0, 1, 1, nullptr, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(target, 0, 0, 1, 1, source, 0, 0, 0x123456));
    EXPECT_TRUE(BitBlt(target, 0x7FFFFFFF, -0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, source, -0x7FFFFFFF, 5, SRCCOPY));
}

TEST(Blit, OverlappingCopiesKeepTheirSource) {
    Canvas canvas(5, 3);
    canvas.paint({"RBWK.", "SDRB.", "....."});
    BitBlt(canvas, 1, 1, 4, 2, canvas, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.picture(), (Picture{"RBWK.", "SRBWK", ".SDRB"}));
    BitBlt(canvas, 0, 0, 4, 2, canvas, 1, 1, SRCCOPY);
    EXPECT_EQ(canvas.picture(), (Picture{"RBWK.", "SDRBK", ".SDRB"}));
    // The same through a clip of several parts.
    ExcludeClipRect(canvas, 2, 1, 3, 2);
    BitBlt(canvas, 1, 0, 4, 3, canvas, 0, 0, SRCCOPY);
    Canvas copy(5, 3);
    BitBlt(copy, 0, 0, 5, 3, canvas, 0, 0, SRCCOPY);
    EXPECT_EQ(copy.picture(), (Picture{"RRBWK", "SSRRB", "..SDR"}));
}

TEST(Stretch, DropsAndRepeatsThePixelsThatTheSystemDoes) {
    struct Row {
        int from;
        int to;
        std::vector<int> pixels;
    };
    const Row rows[] = {
        {5, 8, {0, 0, 1, 2, 2, 3, 4, 4}},
        {8, 5, {1, 2, 4, 5, 7}},
        {16, 13, {0, 1, 3, 4, 5, 6, 8, 9, 10, 11, 13, 14, 15}},
        {2, 7, {0, 0, 0, 0, 1, 1, 1}},
        {7, 2, {3, 6}},
        {4, 6, {0, 0, 1, 2, 2, 3}},
        {64, 10, {5, 12, 18, 25, 31, 37, 44, 50, 57, 63}},
    };
    for (const Row& row : rows) {
        Ramp source(row.from);
        Canvas target(row.to, 1);
        SetStretchBltMode(target, COLORONCOLOR);
        EXPECT_TRUE(StretchBlt(target, 0, 0, row.to, 1, source, 0, 0, row.from, 1, SRCCOPY));
        EXPECT_EQ(reds(target, row.to), row.pixels) << row.from << " to " << row.to;
        EXPECT_TRUE(StretchBlt(target, row.to - 1, 0, -row.to, 1, source, 0, 0, row.from, 1, SRCCOPY));
        EXPECT_EQ(reds(target, row.to), std::vector<int>(row.pixels.rbegin(), row.pixels.rend()));
    }
}

TEST(Stretch, DefaultModeKeepsTheBlackOfDroppedPixels) {
    Canvas source(4, 1);
    source.paint({"WKWW"});
    Canvas target(2, 1);
    StretchBlt(target, 0, 0, 2, 1, source, 0, 0, 4, 1, SRCCOPY);
    EXPECT_EQ(target.picture(), Picture{"KW"});
}

TEST(Stretch, PixelsOutsideTheSourceLeaveTheTargetAlone) {
    Ramp source(4);
    Canvas target(8, 1);
    SetStretchBltMode(target, COLORONCOLOR);
    EXPECT_TRUE(StretchBlt(target, 0, 0, 8, 1, source, 2, 0, 4, 1, SRCCOPY));
    EXPECT_EQ(reds(target, 8), (std::vector<int>{2, 2, 3, 3, 1, 1, 1, 1}));
    EXPECT_TRUE(StretchBlt(target, 0, 0, 0x7FFFFFFF, 0x7FFFFFFF, source, 0, 0, 0x7FFFFFFF, -0x7FFFFFFF, SRCCOPY));
    EXPECT_TRUE(StretchBlt(target, 0, 0, 8, 0, source, 0, 0, 4, 1, SRCCOPY));
}
