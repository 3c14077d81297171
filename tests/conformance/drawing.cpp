// What drawing functions paint, as pictures of letters, and what device contexts and objects keep.
#include "tests/conformance/trace.h"

namespace {

// Two frames one in the other, the inner one open at a corner.
const Picture kFrames = {"KKKKKKKKKKKK", "KWWWWWWWWWWK", "KWWKKKKKWRWK", "KWWKWWWKWWWK",
                         "KWWKWWWKWWWK", "KWWKKKKWWWWK", "KWWWWWWWWWWK", "KKKKKKKKKKKK"};

void traceFloodFill(Trace& trace) {
    trace.section("flood fill");
    constexpr struct {
        const char* what;
        POINT at;
        COLORREF surface;
    } kFills[] = {
        {"all that is white", {1, 1}, kWhite},   {"all that is red", {9, 2}, kRed},
        {"from another colour", {0, 0}, kWhite}, {"outside", {12, 3}, kBlack},
        {"outside the clip", {1, 1}, kWhite},    {"within the clip", {2, 3}, kWhite},
    };
    HBRUSH blue = CreateSolidBrush(kBlue);
    for (const auto& row : kFills) {
        Canvas canvas(12, 8);
        canvas.paint(kFrames);
        SaveDC(canvas);
        SelectObject(canvas, blue);
        if (std::string(row.what).ends_with("clip")) {
            IntersectClipRect(canvas, 0, 2, 10, 5);
            ExcludeClipRect(canvas, 1, 4, 2, 5);
        }
        trace.line("gives %d", ExtFloodFill(canvas, row.at.x, row.at.y, row.surface, FLOODFILLSURFACE) != 0);
        RestoreDC(canvas, -1);
        tracePicture(trace, row.what, canvas);
    }
    DeleteObject(blue);
}

void traceCopies(Trace& trace) {
    trace.section("copies of pictures");
    Canvas source(12, 8);
    source.paint(kFrames);
    Canvas overlapping(12, 8);
    overlapping.paint(kFrames);
    BitBlt(overlapping, 2, 1, 12, 8, overlapping, 0, 0, SRCCOPY);
    tracePicture(trace, "onto itself", overlapping);
    constexpr struct {
        const char* what;
        int mode;
        RECT to;  // Position and size, as those of `from`.
        RECT from;
    } kStretches[] = {
        {"two thirds wider", COLORONCOLOR, {1, 1, 20, 12}, {0, 0, 12, 8}},
        {"two thirds as large, black kept", BLACKONWHITE, {2, 0, 8, 5}, {0, 0, 12, 8}},
        {"mirrored", COLORONCOLOR, {18, 10, -17, -9}, {0, 0, 12, 8}},
        {"a part, enlarged", COLORONCOLOR, {0, 0, 16, 12}, {7, 1, 4, 3}},
        {"beyond the edges", COLORONCOLOR, {-4, -2, 40, 20}, {0, 0, 12, 8}},
    };
    for (const auto& row : kStretches) {
        const Canvas target(24, 13);
        SetStretchBltMode(target, row.mode);
        StretchBlt(target, row.to.left, row.to.top, row.to.right, row.to.bottom, source, row.from.left, row.from.top,
                   row.from.right, row.from.bottom, SRCCOPY);
        tracePicture(trace, row.what, target);
    }
}

struct Part {
    const char* what;
    SIZE size;
    BOOL(CALLBACK* draw)(HDC dc, RECT* rect, UINT kind, UINT state);
    UINT kind;
    UINT state;
};

// Radio buttons are drawn with the ring of the classic font of symbols, which Wine only approaches.
constexpr Part kParts[] = {
    {"raised", {9, 6}, DrawEdge, EDGE_RAISED, BF_RECT | BF_MIDDLE},
    {"sunken", {9, 6}, DrawEdge, EDGE_SUNKEN, BF_RECT},
    {"etched", {9, 6}, DrawEdge, EDGE_ETCHED, BF_RECT},
    {"two sides", {9, 6}, DrawEdge, BDR_SUNKENOUTER, BF_TOP | BF_RIGHT},
    {"adjusted", {9, 6}, DrawEdge, EDGE_SUNKEN, BF_LEFT | BF_BOTTOM | BF_ADJUST},
    {"check box", {13, 13}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED},
    {"inactive", {13, 13}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE},
    {"button, pushed", {6, 5}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED},
    {"combo box", {16, 17}, DrawFrameControl, DFC_SCROLL, DFCS_SCROLLCOMBOBOX},
    {"combo box, pushed", {16, 17}, DrawFrameControl, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | DFCS_PUSHED},
};

void traceParts(Trace& trace) {
    trace.section("edges and frame controls");
    for (const Part& row : kParts) {
        const Canvas canvas(row.size.cx, row.size.cy);
        RECT rect = {0, 0, row.size.cx, row.size.cy};
        const bool drawn = row.draw(canvas, &rect, row.kind, row.state) != 0;
        trace.line("gives %d, leaves %d,%d to %d,%d", drawn, number(rect.left), number(rect.top), number(rect.right),
                   number(rect.bottom));
        tracePicture(trace, row.what, canvas);
    }
}

void traceShapesAndClips(Trace& trace) {
    trace.section("frames, shapes and clips");
    const RECT rect = {1, 0, 7, 6};
    const POINT arrow[] = {{9, 1}, {15, 1}, {12, 4}};
    const Canvas shapes(20, 7, kWhite);
    FrameRect(shapes, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    PatBlt(shapes, 19, 6, -4, -3, BLACKNESS);
    Polygon(shapes, arrow, 3);
    tracePicture(trace, "frame, block and arrow", shapes);
    const Canvas round(20, 7, kWhite);
    DrawFocusRect(round, &rect);
    Ellipse(round, 10, 0, 17, 7);
    tracePicture(trace, "focus and circle", round);

    const Canvas canvas(20, 7, kWhite);
    const auto state = [&](const char* what, int value) {
        RECT box{};
        GetClipBox(canvas, &box);
        trace.line("%s %d: clip %d,%d to %d,%d, text %06x", what, value, number(box.left), number(box.top),
                   number(box.right), number(box.bottom), static_cast<unsigned>(GetTextColor(canvas)));
    };
    state("saved", SaveDC(canvas));
    SetViewportOrgEx(canvas, 2, 1, nullptr);
    SetTextColor(canvas, kBlue);
    state("cut to a part", IntersectClipRect(canvas, 0, 0, 6, 4));
    state("without a part", ExcludeClipRect(canvas, 1, 0, 3, 2));
    const RECT hidden = {1, 0, 3, 2};
    const RECT half = {1, 0, 3, 3};
    trace.line("visible %d %d", RectVisible(canvas, &hidden), RectVisible(canvas, &half));
    PatBlt(canvas, -10, -10, 100, 100, BLACKNESS);
    state("saved", SaveDC(canvas));
    state("cut to a smaller part", IntersectClipRect(canvas, 3, 3, 4, 4));
    for (const int level : {0, 3, -3, 2, 1, 1}) {
        state("restored", RestoreDC(canvas, level));
    }
    tracePicture(trace, "painted", canvas);
}

}  // namespace

void traceDrawing(Trace& trace) {
    traceFloodFill(trace);
    traceCopies(trace);
    traceParts(trace);
    traceShapesAndClips(trace);
}
