// Measuring and laying out text. Glyph shapes depend on the installed font, so drawn text is looked at by its extent.
#include "platform/graphics/window_dc.h"
#include "tests/support/canvas.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

class Text : public testing::Test {
protected:
    Text() {
        SelectObject(canvas_, platform::dialogFont(8));
        SetBkMode(canvas_, TRANSPARENT);
    }
    int widthOf(const std::string& text) const {
        SIZE size{};
        EXPECT_TRUE(GetTextExtentPoint32A(canvas_, text.data(), static_cast<int>(text.size()), &size));
        return size.cx;
    }
    // The rectangle that DT_CALCRECT makes of one at (10, 20) of the given width.
    SIZE measured(const char* text, UINT format, int width = 0) const {
        RECT rect = {10, 20, 10 + width, 20};
        const int height = DrawTextA(canvas_, text, -1, &rect, format | DT_CALCRECT);
        EXPECT_EQ(rect.left, 10);
        EXPECT_EQ(rect.top, 20);
        EXPECT_TRUE(height == rect.bottom - 20 || *text == 0);
        return {rect.right - 10, rect.bottom - 20};
    }
    // What is not the ground, as a rectangle.
    RECT ink() const {
        RECT box = {1000, 1000, -1, -1};
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (GetPixel(canvas_, x, y) != RGB(255, 255, 255)) {
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
                }
            }
        }
        return box;
    }
    RECT inkOf(const char* text, RECT rect, UINT format) {
        canvas_.fill({0, 0, kWidth, kHeight}, RGB(255, 255, 255));
        DrawTextA(canvas_, text, -1, &rect, format);
        return ink();
    }

    static constexpr int kWidth = 200;
    static constexpr int kHeight = 80;
    static constexpr int kLine = 13;
    Canvas canvas_{kWidth, kHeight, RGB(255, 255, 255)};
};

}  // namespace

TEST_F(Text, ExtentsAddUpAndFit) {
    int fit = -1;
    int extents[5] = {};
    SIZE size{};
    EXPECT_TRUE(GetTextExtentExPointA(canvas_, "Hello", 5, widthOf("Hell"), &fit, extents, &size));
    EXPECT_EQ(fit, 4);
    EXPECT_EQ(extents[3], widthOf("Hell"));
    EXPECT_EQ(size.cx, widthOf("Hello"));
    EXPECT_EQ(size.cy, kLine);
    EXPECT_TRUE(GetTextExtentExPointA(canvas_, "Hello", 5, widthOf("Hell") - 1, &fit, nullptr, &size));
    EXPECT_EQ(fit, 3);
    EXPECT_FALSE(GetTextExtentPoint32A(canvas_, "a", -1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(canvas_, nullptr, 1, &size));
    // The code page's letters have glyphs of their own.
    EXPECT_EQ(widthOf("\xC5"), widthOf("A"));
    EXPECT_GT(widthOf("\x85"), widthOf("."));
}

TEST_F(Text, OpaqueTextFillsItsCellAndTheGivenRectangle) {
    SetBkMode(canvas_, OPAQUE);
    SetBkColor(canvas_, kRed);
    const int advances[] = {10, 20, 30};
    EXPECT_TRUE(ExtTextOutA(canvas_, 5, 6, 0, nullptr, "   ", 3, advances));
    RECT box = ink();
    const RECT cell = {5, 6, 65, 6 + kLine};
    EXPECT_TRUE(EqualRect(&box, &cell));
    canvas_.fill({0, 0, kWidth, kHeight}, RGB(255, 255, 255));
    const RECT clip = {20, 10, 30, 12};
    ExtTextOutA(canvas_, 5, 6, ETO_OPAQUE | ETO_CLIPPED, &clip, "HHHHHHHH", 8, nullptr);
    box = ink();
    EXPECT_TRUE(EqualRect(&box, &clip));
    EXPECT_FALSE(TextOutA(canvas_, 0, 0, "a", -1));
    EXPECT_FALSE(ExtTextOutA(canvas_, 0, 0, 0, nullptr, nullptr, 3, nullptr));
}

TEST_F(Text, LinesEndAtEitherLineEnd) {
    EXPECT_EQ(measured("Hello\nWorlds", 0).cy, 2 * kLine);
    EXPECT_EQ(measured("Hello\nWorlds", 0).cx, widthOf("Worlds"));
    EXPECT_EQ(measured("Hello\r\nWorld", 0).cy, 2 * kLine);
    EXPECT_EQ(measured("Hello\n\nabc", 0).cy, 3 * kLine);
    EXPECT_EQ(measured("Hello\n", 0).cy, kLine);
    EXPECT_EQ(measured("Hello\nWorld", DT_SINGLELINE).cy, kLine);
    EXPECT_EQ(measured("", 0).cy, 0);
    EXPECT_EQ(measured("", DT_SINGLELINE).cy, kLine);
}

TEST_F(Text, WordsBreakWhereTheyNoLongerFit) {
    const SIZE fits = measured("Hello World foo", DT_WORDBREAK, widthOf("Hello World"));
    EXPECT_EQ(fits.cx, widthOf("Hello World"));
    EXPECT_EQ(fits.cy, 2 * kLine);
    EXPECT_EQ(measured("Hello World", DT_WORDBREAK, widthOf("Hello World") - 1).cy, 2 * kLine);
    const SIZE narrow = measured("Hello World foo", DT_WORDBREAK, 0);
    EXPECT_EQ(narrow.cy, 3 * kLine);
    EXPECT_EQ(narrow.cx, std::max(widthOf("Hello"), widthOf("World")));
    EXPECT_EQ(measured("Hello-World", DT_WORDBREAK, widthOf("Hello-")).cy, 2 * kLine);
    EXPECT_EQ(measured("aaa \nbbb", DT_WORDBREAK, widthOf("aaa")).cy, 2 * kLine);
}

TEST_F(Text, MnemonicsAreMarkedByTheAmpersand) {
    EXPECT_EQ(measured("&File", DT_SINGLELINE).cx, widthOf("File"));
    EXPECT_EQ(measured("a&&b", DT_SINGLELINE).cx, widthOf("a&b"));
    EXPECT_EQ(measured("&File", DT_SINGLELINE | DT_NOPREFIX).cx, widthOf("&File"));
    EXPECT_EQ(measured("a&", DT_SINGLELINE).cx, widthOf("a&"));
    TEXTMETRICA metrics{};
    GetTextMetricsA(canvas_, &metrics);
    const RECT all = {0, 0, kWidth, kHeight};
    const RECT line = inkOf("HH& ", all, DT_SINGLELINE);
    EXPECT_EQ(line.bottom, metrics.tmAscent + 2);
    EXPECT_EQ(line.right, widthOf("HH ") - 1);
    EXPECT_LT(inkOf("HH& ", all, DT_SINGLELINE | DT_HIDEPREFIX).bottom, metrics.tmAscent + 2);
}

TEST_F(Text, AlignsWithinTheRectangle) {
    const RECT base = inkOf("H", {0, 0, 100, 50}, DT_SINGLELINE);
    struct Case {
        UINT format;
        int dx;
        int dy;
    };
    const int width = widthOf("H");
    const Case cases[] = {
        {DT_CENTER, (100 - width) / 2, 0}, {DT_RIGHT, 100 - width, 0}, {DT_VCENTER, 0, 25 - kLine / 2},
        {DT_BOTTOM, 0, 50 - kLine},        {DT_NOPREFIX, 0, 0},
    };
    for (const Case& row : cases) {
        const RECT box = inkOf("H", {0, 0, 100, 50}, DT_SINGLELINE | row.format);
        EXPECT_EQ(box.left - base.left, row.dx) << row.format;
        EXPECT_EQ(box.top - base.top, row.dy) << row.format;
    }
}

TEST_F(Text, ClipsToTheRectangleUnlessToldNotTo) {
    const RECT rect = {10, 10, 30, 30};
    const RECT clipped = inkOf("HHHHHH\nHHHHHH\nHHHHHH", rect, 0);
    EXPECT_LE(clipped.right, 30);
    EXPECT_LE(clipped.bottom, 30);
    EXPECT_GT(inkOf("HHHHHH\nHHHHHH\nHHHHHH", rect, DT_NOCLIP).right, 30);
    EXPECT_EQ(inkOf("HH", {5000, 5000, 6000, 6000}, 0).right, -1);
}
