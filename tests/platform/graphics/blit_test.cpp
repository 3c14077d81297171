#include "canvas.h"

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

// What the pixels of a stretch are is compared with the real system in tests/conformance.
TEST(Stretch, SurvivesSizesBeyondMeasure) {
    Canvas source(4, 1);
    Canvas target(8, 1);
    EXPECT_TRUE(StretchBlt(target, 0, 0, 0x7FFFFFFF, 0x7FFFFFFF, source, 0, 0, 0x7FFFFFFF, -0x7FFFFFFF, SRCCOPY));
    EXPECT_TRUE(StretchBlt(target, 0, 0, 8, 0, source, 0, 0, 4, 1, SRCCOPY));
}
