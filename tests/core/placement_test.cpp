// Placements of automatic texts: their stored form and the marker that shows them.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "pages/project/placement.h"

namespace {

TEST(Placements, AreReadAsFarAsTheirSeparatorsGo) {
    struct Case {
        const char* text;
        int x;
        int y;
        double height;
        int angle;
        const char* written;
    };
    // Before each: 1,2;3.5;90.
    const Case cases[] = {
        {"20,10;2.5;-90", 20, 10, 2.5, -90, "20,10;2.500000;-90"},
        {" 20 , 10; 2.5x;0 ", 20, 10, 2.5, 0, "20,10;2.500000;0"},
        {"90", 1, 2, 3.5, 90, "1,2;3.500000;90"},
        {"", 1, 2, 3.5, 0, "1,2;3.500000;0"},
        {"7,8", 7, 2, 3.5, 8, "7,2;3.500000;8"},
        {"7;8", 1, 7, 3.5, 8, "1,7;3.500000;8"},
        {"7,8;9", 7, 8, 3.5, 9, "7,8;3.500000;9"},
        {",;;", 0, 0, 0, 0, "0,0;0.000000;0"},
        {"1;2;3,4;5;6;7", 1, 4, 5, 6, "1,4;5.000000;6"},
        {"99999999999,-99999999999;-1e2;1", INT_MAX, -INT_MAX, -100, 1, "2147483647,-2147483647;-100.000000;1"},
        {"a,b;inf;nan", 0, 0, 0, 0, "0,0;0.000000;0"},
        {"+7,8;+2.5;+90", 7, 8, 2.5, 90, "7,8;2.500000;90"},
        {"+-7;+-8;9", 1, 0, 0, 9, "1,0;0.000000;9"},
        {"7;1e-999;9", 1, 7, 0, 9, "1,7;0.000000;9"},
        {"7;1e999;9", 1, 7, HUGE_VAL, 9, "1,7;inf;9"},
        {"7;-1e999;9", 1, 7, -HUGE_VAL, 9, "1,7;-inf;9"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Placement placement{.height = 3.5, .y = 2, .x = 1};
        ParsePlacement(c.text, placement);
        EXPECT_EQ(placement.x, c.x);
        EXPECT_EQ(placement.y, c.y);
        EXPECT_EQ(placement.height, c.height);
        EXPECT_EQ(placement.angle, c.angle);
        EXPECT_STREQ(PlacementText(placement), c.written);
    }
}

TEST(Placements, TurnByTheThreeAnglesOnly) {
    Placement placement;
    SetPlacementAngle(45, placement);
    EXPECT_EQ(placement.orientation, 1);
    EXPECT_EQ(placement.rotation.b, 0) << "not even set yet";
    SetPlacementAngle(-90, placement);
    EXPECT_EQ(placement.orientation, 2);
    SetPlacementAngle(270, placement);
    SetRotation(3, placement.rotation);
    SetRotation(-1, placement.rotation);
    EXPECT_EQ(placement.orientation, 2);
    const Rotation& r = placement.rotation;
    EXPECT_TRUE(r.a == 0 && r.b == -1 && r.c == 1 && r.d == 0);
    EXPECT_EQ(AngleFromIndex(0, 7), 0);
    EXPECT_EQ(AngleFromIndex(1, 7), 90);
    EXPECT_EQ(AngleFromIndex(2, 7), -90);
    EXPECT_EQ(AngleFromIndex(3, 7), 7);
    EXPECT_EQ(AngleFromIndex(-1, 7), 7);
}

void ExpectRect(const RECT& actual, const RECT& expected) {
    EXPECT_EQ(actual.left, expected.left);
    EXPECT_EQ(actual.top, expected.top);
    EXPECT_EQ(actual.right, expected.right);
    EXPECT_EQ(actual.bottom, expected.bottom);
}

// On a frame of 130 by 85 pixels at (200, 10) a unit of height is 5 wide and 2 high.
TEST(Markers, StandWhereTheirTextsStart) {
    struct Case {
        int x;
        int y;
        double height;
        int angle;
        RECT box;
        RECT bar;
    };
    const Case cases[] = {
        {0, 0, 3, 0, {200, 89, 215, 95}, {200, 89, 203, 95}},
        {0, 0, 3, 90, {194, 80, 200, 95}, {194, 92, 200, 95}},
        {0, 0, 3, -90, {200, 95, 206, 110}, {200, 95, 206, 98}},
        // Both products are truncated before they are subtracted: 46.4 and 40.5 pixels.
        {100, 100, 2.5, 0, {246, 50, 258, 55}, {246, 50, 249, 55}},
        {100, 100, 2.75, 90, {241, 42, 246, 55}, {241, 52, 246, 55}},
        {-100, -100, 2.75, -90, {154, 135, 159, 148}, {154, 135, 159, 138}},
        {100, 100, 0, 0, {246, 55, 246, 55}, {246, 55, 249, 55}},
        {100, 100, 0, 90, {246, 55, 246, 55}, {246, 52, 246, 55}},
    };
    const RECT frame = {200, 10, 330, 95};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.x << "," << c.y << ";" << c.height << ";" << c.angle);
        Placement placement{.height = c.height, .y = c.y, .x = c.x};
        SetPlacementAngle(c.angle, placement);
        Marker marker{};
        ASSERT_TRUE(PlaceMarker(frame, {280, 210}, placement, 3, marker));
        ExpectRect(marker.box, c.box);
        ExpectRect(marker.bar, c.bar);
    }
}

TEST(Markers, OfWildNumbersStayWithinBounds) {
    const RECT frame = {200, 10, 330, 95};
    Marker marker{};
    EXPECT_FALSE(PlaceMarker(frame, {0, 210}, {}, 3, marker));
    EXPECT_FALSE(PlaceMarker(frame, {280, 0}, {}, 3, marker));
    for (const int angle : {0, 90, -90}) {
        for (const double height : {1e300, -1e300, HUGE_VAL, std::nan("")}) {
            Placement placement{.height = height, .y = INT_MIN, .x = INT_MAX};
            SetPlacementAngle(angle, placement);
            ASSERT_TRUE(PlaceMarker(frame, {1, 1}, placement, 3, marker));
            EXPECT_GT(std::max(marker.box.left, marker.box.right), 1 << 23);
            EXPECT_GT(marker.box.bottom, 0);
        }
    }
}

}  // namespace
