// What drawing functions paint, as pictures of letters, and what device contexts and objects keep.
#include "resources/resource.h"
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
        COLORREF limit;
        UINT kind;
    } kFills[] = {
        {"up to black", {1, 1}, kBlack, FLOODFILLBORDER},
        {"up to black, inside", {5, 4}, kBlack, FLOODFILLBORDER},
        {"all that is white", {1, 1}, kWhite, FLOODFILLSURFACE},
        {"all that is red", {9, 2}, kRed, FLOODFILLSURFACE},
        {"from the border itself", {0, 0}, kBlack, FLOODFILLBORDER},
        {"from another colour", {0, 0}, kWhite, FLOODFILLSURFACE},
        {"outside", {12, 3}, kBlack, FLOODFILLBORDER},
        {"outside the clip", {1, 1}, kWhite, FLOODFILLSURFACE},
        {"within the clip", {2, 3}, kWhite, FLOODFILLSURFACE},
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
        trace.line("gives %d", ExtFloodFill(canvas, row.at.x, row.at.y, row.limit, row.kind) != 0);
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
    BitBlt(overlapping, 0, 0, 10, 7, overlapping, 2, 1, SRCCOPY);
    tracePicture(trace, "and back", overlapping);
    constexpr struct {
        const char* what;
        int mode;
        RECT to;  // Position and size, as those of `from`.
        RECT from;
    } kStretches[] = {
        {"as it is", COLORONCOLOR, {-1, 5, 12, 8}, {0, 0, 12, 8}},
        {"twice as wide", COLORONCOLOR, {0, 0, 24, 8}, {0, 0, 12, 8}},
        {"two thirds wider", COLORONCOLOR, {1, 1, 20, 12}, {0, 0, 12, 8}},
        {"half as large", COLORONCOLOR, {0, 0, 6, 4}, {0, 0, 12, 8}},
        {"two thirds as large", COLORONCOLOR, {2, 0, 8, 5}, {0, 0, 12, 8}},
        {"two thirds as large, black kept", BLACKONWHITE, {2, 0, 8, 5}, {0, 0, 12, 8}},
        {"mirrored", COLORONCOLOR, {18, 10, -17, -9}, {0, 0, 12, 8}},
        {"a part, enlarged", COLORONCOLOR, {0, 0, 16, 12}, {7, 1, 4, 3}},
        {"a part outside", COLORONCOLOR, {0, 0, 24, 8}, {6, 0, 12, 8}},
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

// A frame around a red ground, and one around slanted lines.
Picture framed(bool slanted) {
    constexpr int kSide = 16;
    Picture rows;
    for (int y = 0; y < kSide; ++y) {
        rows.emplace_back(kSide, slanted ? 'W' : 'R');
        for (int x = 0; x < kSide; ++x) {
            const bool isFrame = x == 0 || y == 0 || x == kSide - 1 || y == kSide - 1;
            if (isFrame || (slanted && (2 * x + 3 * y) % 7 == 0)) {
                rows.back()[static_cast<std::size_t>(x)] = 'K';
            }
        }
    }
    return rows;
}

// A small square picture in squares of every size that an entry of a list may give it, its red ground filled.
void traceSwatches(Trace& trace, const char* what, HDC source, POINT from, int mode) {
    trace.section(std::string("swatches, ") + what);
    HBRUSH blue = CreateSolidBrush(kBlue);
    for (int side = 5; side <= 30; ++side) {
        const Canvas target(side + 2, side + 2);
        SetStretchBltMode(target, mode);
        StretchBlt(target, 1, 1, side, side, source, from.x, from.y, 16, 16, SRCCOPY);
        HGDIOBJ before = SelectObject(target, blue);
        const bool isFilled = ExtFloodFill(target, 2, 2, kRed, FLOODFILLSURFACE) != 0;
        SelectObject(target, before);
        tracePicture(trace, (std::to_string(side) + (isFilled ? ", filled" : "")).c_str(), target);
    }
    DeleteObject(blue);
}

void traceSwatches(Trace& trace) {
    constexpr POINT kArrowTip = {48, 22};  // In the picture of an arrow.
    Canvas ground(16, 16);
    ground.paint(framed(false));
    traceSwatches(trace, "red ground", ground, {0, 0}, BLACKONWHITE);
    Canvas lines(16, 16);
    lines.paint(framed(true));
    traceSwatches(trace, "lines", lines, {0, 0}, BLACKONWHITE);
    traceSwatches(trace, "lines, colours kept", lines, {0, 0}, COLORONCOLOR);

    HBITMAP bitmap = LoadBitmapA(instance(), MAKEINTRESOURCEA(IDB_ARROW_TEXT1));
    HDC dc = CreateCompatibleDC(lines);
    HGDIOBJ before = SelectObject(dc, bitmap);
    traceSwatches(trace, "of a resource", dc, kArrowTip, BLACKONWHITE);
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(bitmap);
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
    {"soft", {9, 6}, DrawEdge, EDGE_RAISED, BF_RECT | BF_SOFT},
    {"flat", {9, 6}, DrawEdge, EDGE_SUNKEN, BF_RECT | BF_FLAT},
    {"mono", {9, 6}, DrawEdge, EDGE_SUNKEN, BF_RECT | BF_MONO},
    {"two sides", {9, 6}, DrawEdge, BDR_SUNKENOUTER, BF_TOP | BF_RIGHT},
    {"one side", {9, 6}, DrawEdge, BDR_RAISEDINNER, BF_LEFT},
    {"adjusted", {9, 6}, DrawEdge, EDGE_SUNKEN, BF_LEFT | BF_BOTTOM | BF_ADJUST},
    {"contradictory", {9, 6}, DrawEdge, BDR_RAISEDOUTER | BDR_SUNKENOUTER, BF_RECT},
    {"check box", {13, 13}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED},
    {"inactive", {13, 13}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE},
    {"button", {6, 5}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONPUSH},
    {"button, pushed", {6, 5}, DrawFrameControl, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED},
    {"combo box", {16, 17}, DrawFrameControl, DFC_SCROLL, DFCS_SCROLLCOMBOBOX},
    {"combo box, pushed", {16, 17}, DrawFrameControl, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | DFCS_PUSHED},
    {"to the left", {16, 16}, DrawFrameControl, DFC_SCROLL, DFCS_SCROLLLEFT},
    {"of no kind", {4, 4}, DrawFrameControl, 99, 0},
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

void drawShapes(HDC dc, int pen) {
    SelectObject(dc, GetStockObject(WHITE_BRUSH));
    SelectObject(dc, GetStockObject(pen));
    const POINT arrow[] = {{6, 1}, {12, 1}, {9, 4}};
    Polygon(dc, arrow, 3);
    Ellipse(dc, 13, 0, 20, 7);
}

void drawFrames(HDC dc, Trace& trace) {
    auto* const black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    const RECT frame = {1, 0, 7, 6};
    const RECT reversed = {5, 4, 3, 2};
    trace.line("frame %d, reversed %d", FrameRect(dc, &frame, black), FrameRect(dc, &reversed, black));
    PatBlt(dc, 14, 5, -4, -3, BLACKNESS);
    BitBlt(dc, 15, 2, 2, 3, nullptr, 0, 0, WHITENESS);
    BitBlt(dc, 15, 3, 5, 1, nullptr, 0, 0, DSTINVERT);
    trace.line("from nowhere %d", BitBlt(dc, 0, 0, 4, 4, nullptr, 0, 0, SRCCOPY));
}

void drawClipped(HDC dc, Trace& trace) {
    SetViewportOrgEx(dc, 2, 1, nullptr);
    trace.line("cut to a part %d", IntersectClipRect(dc, 0, 0, 6, 4));
    trace.line("without a part %d", ExcludeClipRect(dc, 1, 0, 3, 2));
    RECT box{};
    trace.line("box %d", GetClipBox(dc, &box));
    trace.line("%d,%d to %d,%d", number(box.left), number(box.top), number(box.right), number(box.bottom));
    const RECT hidden = {1, 0, 3, 2};
    const RECT half = {1, 0, 3, 3};
    trace.line("visible %d %d", RectVisible(dc, &hidden), RectVisible(dc, &half));
    PatBlt(dc, -10, -10, 100, 100, BLACKNESS);
    trace.line("nothing left %d", IntersectClipRect(dc, 50, 50, 60, 60));
}

constexpr struct {
    const char* what;
    void (*draw)(HDC dc, Trace& trace);
} kDrawings[] = {
    {"focus",
     [](HDC dc, Trace&) {
         const RECT rect = {1, 0, 7, 4};
         DrawFocusRect(dc, &rect);
     }},
    {"frames", drawFrames},
    {"shapes", [](HDC dc, Trace&) { drawShapes(dc, BLACK_PEN); }},
    {"shapes without outline", [](HDC dc, Trace&) { drawShapes(dc, NULL_PEN); }},
    {"clip", drawClipped},
};

void traceDrawings(Trace& trace) {
    trace.section("frames, shapes and clips");
    for (const auto& row : kDrawings) {
        const Canvas canvas(20, 7, kWhite);
        const int saved = SaveDC(canvas);
        row.draw(canvas, trace);
        RestoreDC(canvas, saved);
        tracePicture(trace, row.what, canvas);
    }
}

void traceSavedStates(Trace& trace) {
    trace.section("saved states");
    const Canvas canvas(10, 10);
    HBRUSH brush = CreateSolidBrush(kRed);
    HGDIOBJ before = SelectObject(canvas, brush);
    const auto state = [&](const char* what, int value) {
        RECT box{};
        GetClipBox(canvas, &box);
        HGDIOBJ selected = SelectObject(canvas, before);
        SelectObject(canvas, selected);
        trace.line("%s %d: clip from %d to %d, text %06x, brush %d", what, value, number(box.left), number(box.right),
                   static_cast<unsigned>(GetTextColor(canvas)), selected == brush);
    };
    state("saved", SaveDC(canvas));
    IntersectClipRect(canvas, 2, 2, 5, 5);
    SetTextColor(canvas, kBlue);
    state("saved", SaveDC(canvas));
    SelectObject(canvas, GetStockObject(BLACK_BRUSH));
    IntersectClipRect(canvas, 3, 3, 4, 4);
    for (const int level : {0, 3, -3, -1, 2, 1, 1}) {
        state("restored", RestoreDC(canvas, level));
    }
    SelectObject(canvas, before);
    DeleteObject(brush);
}

void traceObjects(Trace& trace) {
    trace.section("objects");
    Canvas canvas(4, 1);
    HBRUSH brush = CreateSolidBrush(kRed);
    HGDIOBJ before = SelectObject(canvas, brush);
    trace.line("deleted %d", DeleteObject(brush));
    PatBlt(canvas, 0, 0, 1, 1, PATCOPY);
    trace.line("selected until now %d", SelectObject(canvas, before) == brush);
    trace.line("stock object deleted %d", DeleteObject(GetStockObject(WHITE_BRUSH)));
    trace.line("system brush deleted %d", DeleteObject(GetSysColorBrush(COLOR_BTNFACE)));
    const RECT second = {1, 0, 2, 1};
    const RECT third = {2, 0, 3, 1};
    FillRect(canvas, &second, GetSysColorBrush(COLOR_BTNFACE));
    FillRect(canvas, &third, reinterpret_cast<HBRUSH>(ULONG_PTR{COLOR_BTNSHADOW + 1}));
    tracePicture(trace, "painted", canvas);

    HDC other = CreateCompatibleDC(canvas);
    trace.line("bitmap of another context %d", SelectObject(other, canvas.bitmap()) != nullptr);
    HBITMAP own = CreateCompatibleBitmap(canvas, 5, 4);
    BITMAP description{};
    HGDIOBJ first = SelectObject(other, own);
    for (HGDIOBJ bitmap : {first, static_cast<HGDIOBJ>(own)}) {
        trace.line("described in whole %d, in part %d",
                   GetObjectA(bitmap, sizeof description, &description) == sizeof description,
                   GetObjectA(bitmap, 4, &description));
        trace.line("%d by %d, %d bits", number(description.bmWidth), number(description.bmHeight),
                   description.bmBitsPixel);
    }
    trace.line("context deleted %d", DeleteDC(other));
    trace.line("again %d", DeleteDC(other));
    DeleteObject(own);
}

}  // namespace

void traceDrawing(Trace& trace) {
    traceFloodFill(trace);
    traceCopies(trace);
    traceSwatches(trace);
    traceParts(trace);
    traceDrawings(trace);
    traceSavedStates(trace);
    traceObjects(trace);
}
