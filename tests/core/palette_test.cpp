// The stored palette against the rule that its values follow.
#include "core/palette.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Rgb = std::array<int, 3>;

Rgb Components(COLORREF colour) {
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

// number = 10 + 10 * hue + 2 * level + shade; hue factors in quarters, so that all arithmetic is whole.
Rgb RampColour(int number) {
    constexpr int kValues[] = {255, 204, 153, 127, 76};
    const int hue = (number - 10) / 10;
    const int value = kValues[(number - 10) % 10 / 2];
    const bool pale = number % 2 != 0;
    const int t = hue % 4;
    const Rgb quarters[] = {{4, t, 0}, {4 - t, 4, 0}, {0, 4, t}, {0, 4 - t, 4}, {t, 0, 4}, {4, 0, 4 - t}};
    Rgb rgb{};
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        const int quarter = quarters[hue / 4][i];
        rgb[i] = pale ? value * (4 + quarter) / 8 : value * quarter / 4;
    }
    return rgb;
}

TEST(Palette, FollowsTheRampRule) {
    for (int number = 10; number <= 249; ++number) {
        EXPECT_EQ(Components(GetAciColor(number)), RampColour(number)) << "colour " << number;
    }
}

TEST(Palette, HasTheFixedColours) {
    struct Case {
        int number;
        Rgb rgb;
    };
    const Case cases[] = {{0, {0, 0, 82}},      {1, {255, 0, 0}},    {6, {255, 0, 255}},    {7, {255, 255, 255}},
                          {9, {192, 192, 192}}, {250, {51, 51, 51}}, {255, {255, 255, 255}}};
    for (const Case& c : cases) {
        EXPECT_EQ(Components(GetAciColor(c.number)), c.rgb) << "colour " << c.number;
    }
}

TEST(Palette, PacksTheOtherForms) {
    EXPECT_EQ(Components(GetAciInverseColor(21)), (Rgb{0, 96, 128}));
    EXPECT_EQ(GetAciColor15(1), 0xF800);
    EXPECT_EQ(GetAciColor15(3), 0x03E0);
    EXPECT_EQ(GetAciColor15(5), 0x001F);
    EXPECT_EQ(GetAciColor15(7), 0xFBFF) << "bit 10 stays 0";
    EXPECT_EQ(GetAciColor15(8), 0x8210);
}

}  // namespace
