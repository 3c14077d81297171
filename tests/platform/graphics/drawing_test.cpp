// Frames, edges, controls, shapes and fills as text pictures; the pictures are those that the system draws.
#include "canvas.h"

#include <functional>

namespace {

Picture drawn(int width, int height, const std::function<void(Canvas&)>& draw) {
    Canvas canvas(width, height);
    draw(canvas);
    return canvas.picture();
}

Picture edge(UINT kind, UINT flags) {
    return drawn(9, 6, [=](Canvas& canvas) {
        RECT rect = {0, 0, 9, 6};
        DrawEdge(canvas, &rect, kind, flags);
    });
}

Picture control(int width, int height, UINT kind, UINT state) {
    return drawn(width, height, [=](Canvas& canvas) {
        RECT rect = {0, 0, width, height};
        EXPECT_TRUE(DrawFrameControl(canvas, &rect, kind, state));
    });
}

}  // namespace

TEST(Edges, RaisedAndSunkenEdges) {
    EXPECT_EQ(edge(EDGE_RAISED, BF_RECT | BF_MIDDLE),
              (Picture{"ffffffffD", "fWWWWWWSD", "fWfffffSD", "fWfffffSD", "fSSSSSSSD", "DDDDDDDDD"}));
    EXPECT_EQ(edge(EDGE_SUNKEN, BF_RECT),
              (Picture{"SSSSSSSSW", "SDDDDDDfW", "SD.....fW", "SD.....fW", "SfffffffW", "WWWWWWWWW"}));
    EXPECT_EQ(edge(EDGE_ETCHED, BF_RECT),
              (Picture{"SSSSSSSSW", "SWWWWWWSW", "SW.....SW", "SW.....SW", "SSSSSSSSW", "WWWWWWWWW"}));
    EXPECT_EQ(edge(EDGE_RAISED, BF_RECT | BF_SOFT),
              (Picture{"WWWWWWWWD", "WffffffSD", "Wf.....SD", "Wf.....SD", "WSSSSSSSD", "DDDDDDDDD"}));
    EXPECT_EQ(edge(EDGE_SUNKEN, BF_RECT | BF_FLAT),
              (Picture{"SSSSSSSSS", "SfffffffS", "Sf.....fS", "Sf.....fS", "SfffffffS", "SSSSSSSSS"}));
    EXPECT_EQ(edge(EDGE_SUNKEN, BF_RECT | BF_MONO)[1], "KWWWWWWWK");
    EXPECT_EQ(edge(BDR_SUNKENOUTER, BF_TOP | BF_RIGHT),
              (Picture{"SSSSSSSSW", "........W", "........W", "........W", "........W", "........W"}));
    EXPECT_EQ(edge(BDR_RAISEDINNER, BF_LEFT)[2], "W........");
}

TEST(Edges, AdjustsTheRectangleAndRefusesContradictions) {
    Canvas canvas(9, 6);
    RECT rect = {0, 0, 9, 6};
    EXPECT_TRUE(DrawEdge(canvas, &rect, EDGE_SUNKEN, BF_LEFT | BF_BOTTOM | BF_ADJUST));
    const RECT expected = {2, 0, 9, 4};
    EXPECT_TRUE(EqualRect(&rect, &expected));
    EXPECT_FALSE(DrawEdge(canvas, &rect, BDR_RAISEDOUTER | BDR_SUNKENOUTER, BF_RECT));
    EXPECT_FALSE(DrawEdge(canvas, nullptr, EDGE_SUNKEN, BF_RECT));
}

TEST(FrameControls, CheckBoxAndRadioButton) {
    EXPECT_EQ(control(13, 13, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED),
              (Picture{"SSSSSSSSSSSSW", "SDDDDDDDDDDfW", "SDWWWWWWWWWfW", "SDWWWWWWWKWfW", "SDWWWWWWKKWfW",
                       "SDWWWWWKKKWfW", "SDWKWWKKKWWfW", "SDWKKKKKWWWfW", "SDWKKKKWWWWfW", "SDWWKKWWWWWfW",
                       "SDWWWWWWWWWfW", "SfffffffffffW", "WWWWWWWWWWWWW"}));
    EXPECT_EQ(control(13, 13, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE)[7], "SDfSSSSSffffW");
    const Picture radio = control(13, 13, DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_CHECKED);
    EXPECT_EQ(radio[0], ".............");
    EXPECT_EQ(radio[1], ".....SSSS....");
    EXPECT_EQ(radio[6], ".SDWWKKKKWWfW");
    EXPECT_EQ(radio[12], ".....WWWW....");
    EXPECT_EQ(control(13, 13, DFC_BUTTON, DFCS_BUTTONRADIO)[6], ".SDWWWWWWWWfW");
}

TEST(FrameControls, ButtonsShowWhenTheyArePushed) {
    EXPECT_EQ(control(6, 5, DFC_BUTTON, DFCS_BUTTONPUSH), (Picture{"WWWWWD", "WfffSD", "WfffSD", "WSSSSD", "DDDDDD"}));
    EXPECT_EQ(control(6, 5, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED)[1], "DSSSfW");
    const Picture arrow = control(16, 17, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
    EXPECT_EQ(arrow[6], "fWffKKKKKKKfffSD");
    EXPECT_EQ(arrow[9], "fWfffffKffffffSD");
    EXPECT_EQ(control(16, 17, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | DFCS_PUSHED)[7], "DSfffKKKKKKKfffW");
    EXPECT_EQ(control(16, 16, DFC_SCROLL, DFCS_SCROLLLEFT)[7], "fWfffKKKKfffffSD");
    Canvas canvas(4, 4);
    RECT rect = {0, 0, 4, 4};
    EXPECT_FALSE(DrawFrameControl(canvas, &rect, 99, 0));
}

TEST(Frames, FocusDotsMeetAtTheCorners) {
    Canvas canvas(7, 5, RGB(255, 255, 255));
    const RECT rect = {1, 0, 7, 4};
    DrawFocusRect(canvas, &rect);
    EXPECT_EQ(canvas.picture(), (Picture{"WWKWKWK", "WKWWWWW", "WWWWWWK", "WKWKWKW", "WWWWWWW"}));
    DrawFocusRect(canvas, &rect);
    EXPECT_EQ(canvas.picture(), Picture(5, "WWWWWWW"));
    const RECT huge = {-0x7FFFFFFF, -5, 0x7FFFFFFF, 0x7FFFFFFF};
    EXPECT_TRUE(DrawFocusRect(canvas, &huge));
}

TEST(Frames, FrameInvertAndReversedRectangles) {
    EXPECT_EQ(drawn(6, 4,
                    [](Canvas& canvas) {
                        const RECT rect = {1, 0, 6, 4};
                        FrameRect(canvas, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
                        const RECT reversed = {4, 3, 2, 1};
                        EXPECT_EQ(FrameRect(canvas, &reversed, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))), 0);
                        const RECT inverted = {0, 0, 2, 1};
                        InvertRect(canvas, &inverted);
                        PatBlt(canvas, 4, 2, -2, -1, WHITENESS);
                    }),
              (Picture{"?WKKKK", ".K...K", ".K.WWK", ".KKKKK"}));
}

TEST(Shapes, OutlineAndInside) {
    const auto shapes = [](int pen) {
        return drawn(20, 7, [pen](Canvas& canvas) {
            SelectObject(canvas, GetStockObject(pen));
            const POINT arrow[] = {{6, 1}, {12, 1}, {9, 4}};
            Polygon(canvas, arrow, 3);
            Ellipse(canvas, 13, 0, 20, 7);
        });
    };
    EXPECT_EQ(shapes(BLACK_PEN),
              (Picture{"...............KKK..", "......KKKKKKK.KWWWK.", ".......KWWWK.KWWWWWK", "........KWK..KWWWWWK",
                       ".........K...KWWWWWK", "..............KWWWK.", "...............KKK.."}));
    EXPECT_EQ(shapes(NULL_PEN)[1].substr(0, 12), "......WWWWWW");
    Canvas canvas(4, 4);
    EXPECT_TRUE(Ellipse(canvas, -0x7FFFFFFF, -0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF));
}

TEST(FloodFill, StaysWithinTheClip) {
    Canvas canvas(4, 3);
    canvas.paint({"....", ".RR.", "...."});
    SelectObject(canvas, GetStockObject(WHITE_BRUSH));
    IntersectClipRect(canvas, 0, 1, 3, 3);
    EXPECT_FALSE(ExtFloodFill(canvas, 0, 0, kGround, FLOODFILLSURFACE));
    EXPECT_TRUE(ExtFloodFill(canvas, 0, 1, kGround, FLOODFILLSURFACE));
    Canvas shown(4, 3);
    BitBlt(shown, 0, 0, 4, 3, canvas, 0, 0, SRCCOPY);
    EXPECT_EQ(shown.picture(), (Picture{"....", "WRR.", "WWW."}));
}
