// What follows the fineness of the screen. It is fixed for a process, so CTest runs these at several.
#include "platform/graphics/scale.h"
#include "platform/graphics/window_dc.h"
#include "tests/support/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using platform::dotsPerInch;
using platform::lineWidth;
using platform::toScale;

// The columns of a row that have the letter: first and one past the last, equal for none.
std::pair<int, int> extent(const std::string& row, char letter) {
    const auto first = row.find(letter);
    return first == std::string::npos
               ? std::pair(0, 0)
               : std::pair(static_cast<int>(first), static_cast<int>(row.find_last_of(letter)) + 1);
}

Picture controlPicture(int side, UINT kind, UINT state) {
    const Canvas canvas(side, side);
    RECT rect = {0, 0, side, side};
    DrawFrameControl(canvas, &rect, kind, state);
    return canvas.picture();
}

TEST(Scale, GivesItsFigureToMetricsFontsAndDialogUnits) {
    const char* const wanted = std::getenv("TAVRIK_DPI");
    EXPECT_EQ(dotsPerInch(), wanted != nullptr ? std::atoi(wanted) : 96);
    const Canvas canvas(1, 1);
    EXPECT_EQ(GetDeviceCaps(canvas, LOGPIXELSY), dotsPerInch());
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), toScale(17));
    EXPECT_EQ(GetSystemMetrics(SM_CXEDGE), 2 * (dotsPerInch() / 96));
    EXPECT_FALSE(platform::wantDotsPerInch(120)) << "it is fixed by now";

    TEXTMETRICA font{};
    SelectObject(canvas, platform::dialogFont(8));
    GetTextMetricsA(canvas, &font);
    const SIZE base = platform::dialogBaseUnits(8);
    EXPECT_GE(base.cx, font.tmAveCharWidth);
    EXPECT_GE(base.cy, font.tmHeight);
    EXPECT_NEAR(static_cast<double>(base.cx) * 96 / dotsPerInch(), 6, 0.5);
    EXPECT_NEAR(static_cast<double>(base.cy) * 96 / dotsPerInch(), 13, 0.5);
}

TEST(Scale, KeepsRadioButtonsRoundAndTheirDotsInTheMiddle) {
    const int side = toScale(13);
    const Picture drawn = controlPicture(side, DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_CHECKED);
    const auto isDrawn = [&](int x, int y) {
        return drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] != '.';
    };
    // The ring may leave a pixel of the square free on two sides.
    int left = side;
    int right = 0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            left = isDrawn(x, y) ? std::min(left, x) : left;
            right = isDrawn(x, y) ? std::max(right, x + 1) : right;
        }
    }
    EXPECT_EQ(right - left, toScale(12));
    for (int y = left; y < right; ++y) {
        for (int x = left; x < right; ++x) {
            EXPECT_EQ(isDrawn(x, y), isDrawn(y, x)) << x << ' ' << y;
            EXPECT_EQ(isDrawn(x, y), isDrawn(left + right - 1 - x, y)) << x << ' ' << y;
        }
        const auto [dotLeft, dotRight] = extent(drawn[static_cast<std::size_t>(y)], 'K');
        if (dotLeft != dotRight) {
            EXPECT_EQ(dotLeft + dotRight, left + right);
        }
    }
}

TEST(Scale, DrawsEdgesAndFocusMarksAsThickAsLines) {
    const int side = 12 * lineWidth() + 1;
    Canvas canvas(side, side);
    RECT rect = {0, 0, side, side};
    DrawFocusRect(canvas, &rect);
    const Picture marked = canvas.picture();
    EXPECT_EQ(marked[0].substr(0, static_cast<std::size_t>(lineWidth())),
              std::string(static_cast<std::size_t>(lineWidth()), '?'));
    for (int y = lineWidth(); y < side - lineWidth(); ++y) {
        const std::string inside = marked[static_cast<std::size_t>(y)].substr(
            static_cast<std::size_t>(lineWidth()), static_cast<std::size_t>(side - 2 * lineWidth()));
        EXPECT_EQ(inside, std::string(inside.size(), '.'));
    }
    DrawFocusRect(canvas, &rect);
    EXPECT_EQ(canvas.count(kGround, 0, side), side * side) << "drawn twice it is gone";

    DrawEdge(canvas, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    EXPECT_EQ(rect.left, 2 * lineWidth());
    EXPECT_EQ(rect.bottom, side - 2 * lineWidth());
    const int within = rect.right - rect.left;
    EXPECT_EQ(canvas.count(kGround, 0, side), within * within);
}

}  // namespace
