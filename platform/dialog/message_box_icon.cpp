// The pictures of message boxes, drawn from a few outlines, so that no picture resource is needed.
#include "platform/dialog/message_box_icon.h"

#include "platform/graphics/scale.h"

#include <array>
#include <cmath>
#include <span>
#include <vector>

namespace platform {

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kYellow = RGB(255, 222, 0);
constexpr COLORREF kRed = RGB(208, 32, 32);
constexpr COLORREF kDarkRed = RGB(128, 0, 0);
constexpr COLORREF kBlue = RGB(32, 80, 192);
constexpr COLORREF kDarkBlue = RGB(0, 0, 128);

constexpr int kBoxIconSize = 32;  // Pixels at 96 dots an inch, width and height, of all that follows.

// Brush and pen that are selected while the object lives.
class Colours {
public:
    Colours(HDC dc, COLORREF inside, COLORREF outline)
        : dc_(dc), brush_(CreateSolidBrush(inside)), pen_(CreatePen(PS_SOLID, lineWidth(), outline)) {
        oldBrush_ = SelectObject(dc, brush_);
        oldPen_ = SelectObject(dc, pen_);
    }
    ~Colours() {
        SelectObject(dc_, oldPen_);
        SelectObject(dc_, oldBrush_);
        DeleteObject(pen_);
        DeleteObject(brush_);
    }
    Colours(const Colours&) = delete;
    Colours& operator=(const Colours&) = delete;

private:
    HDC dc_;
    HBRUSH brush_;
    HPEN pen_;
    HGDIOBJ oldBrush_;
    HGDIOBJ oldPen_;
};

constexpr std::array kTriangle = {POINT{15, 1}, POINT{16, 1}, POINT{31, 29}, POINT{30, 30}, POINT{1, 30}, POINT{0, 29}};
constexpr std::array kCross = {POINT{8, 11},  POINT{11, 8},  POINT{16, 13}, POINT{21, 8},
                               POINT{24, 11}, POINT{19, 16}, POINT{24, 21}, POINT{21, 24},
                               POINT{16, 19}, POINT{11, 24}, POINT{8, 21},  POINT{13, 16}};

// Signs of straight strokes, each a filled rectangle.
constexpr std::array kExclamationMark = {RECT{14, 9, 18, 17}, RECT{15, 17, 17, 21}, RECT{14, 23, 18, 27}};
constexpr std::array kQuestionMark = {RECT{12, 6, 20, 9},   RECT{10, 8, 13, 12},  RECT{19, 8, 22, 14},
                                      RECT{17, 13, 20, 16}, RECT{15, 15, 18, 20}, RECT{15, 22, 18, 26}};
constexpr std::array kLetterI = {RECT{14, 6, 18, 10}, RECT{12, 12, 18, 14}, RECT{14, 12, 18, 24}, RECT{12, 23, 20, 25}};

// The middle of a pixel goes to the middle of one, so that what is symmetrical stays so.
LONG pixelOf(LONG coordinate) {
    const double size = toScale(kBoxIconSize);
    return static_cast<LONG>(std::lround((static_cast<double>(coordinate) + 0.5) * size / kBoxIconSize - 0.5));
}

// The same of the edges between pixels: half a pixel more is taken on either side.
RECT edgesOf(const RECT& stroke) {
    const double scale = static_cast<double>(toScale(kBoxIconSize)) / kBoxIconSize;
    const auto low = [scale](LONG edge) { return static_cast<LONG>(std::floor(static_cast<double>(edge) * scale)); };
    const auto high = [scale](LONG edge) { return static_cast<LONG>(std::ceil(static_cast<double>(edge) * scale)); };
    return {low(stroke.left), low(stroke.top), high(stroke.right), high(stroke.bottom)};
}

void drawOutline(HDC dc, POINT at, std::span<const POINT> outline) {
    std::vector<POINT> points(outline.begin(), outline.end());
    for (POINT& point : points) {
        point = {at.x + pixelOf(point.x), at.y + pixelOf(point.y)};
    }
    Polygon(dc, points.data(), static_cast<int>(points.size()));
}

void drawStrokes(HDC dc, POINT at, std::span<const RECT> strokes, COLORREF colour) {
    HBRUSH brush = CreateSolidBrush(colour);
    for (const RECT& each : strokes) {
        RECT stroke = edgesOf(each);
        OffsetRect(&stroke, at.x, at.y);
        FillRect(dc, &stroke, brush);
    }
    DeleteObject(brush);
}

void drawDisc(HDC dc, POINT at, COLORREF inside, COLORREF outline) {
    const Colours colours(dc, inside, outline);
    const int size = toScale(kBoxIconSize);
    Ellipse(dc, at.x, at.y, at.x + size, at.y + size);
}

}  // namespace

void drawBoxIcon(HDC dc, POINT at, UINT kind) {
    switch (kind) {
        case MB_ICONHAND: {
            drawDisc(dc, at, kRed, kDarkRed);
            const Colours colours(dc, kWhite, kWhite);
            drawOutline(dc, at, kCross);
            break;
        }
        case MB_ICONQUESTION:
            drawDisc(dc, at, kBlue, kDarkBlue);
            drawStrokes(dc, at, kQuestionMark, kWhite);
            break;
        case MB_ICONEXCLAMATION: {
            const Colours colours(dc, kYellow, kBlack);
            drawOutline(dc, at, kTriangle);
            drawStrokes(dc, at, kExclamationMark, kBlack);
            break;
        }
        case MB_ICONASTERISK:
            drawDisc(dc, at, kBlue, kDarkBlue);
            drawStrokes(dc, at, kLetterI, kWhite);
            break;
        default:
            break;
    }
}

}  // namespace platform
