// DrawFrameControl: push buttons, check boxes, radio buttons and the arrows of scroll bars and combo boxes.
// Captions, size grips and menu marks are left out.
#include "platform/graphics/painting.h"
#include "platform/graphics/scale.h"
#include "platform/graphics/system_colours.h"

#include <windows.h>

#include <span>
#include <string_view>

using namespace platform;

namespace {

// Pictures are rows of text: one character a pixel.
using Picture = std::span<const std::string_view>;

constexpr int kTickSize = 7;
constexpr int kTickThickness = 3;

// The ring of a radio button, 12 pixels wide; W is what the inside has. On finer screens it is drawn as a circle.
constexpr std::string_view kRadio[] = {
    "    SSSS    ",  //
    "  SSDDDDSS  ",  //
    " SDDWWWWDDH ",  //
    " SDWWWWWWLH ",  //
    "SDWWWWWWWWLH",  //
    "SDWWWWWWWWLH",  //
    "SDWWWWWWWWLH",  //
    "SDWWWWWWWWLH",  //
    " SDWWWWWWLH ",  //
    " SLLWWWWLLH ",  //
    "  HHLLLLHH  ",  //
    "    HHHH    ",
};

constexpr std::string_view kRadioDot[] = {
    " KK ",  //
    "KKKK",  //
    "KKKK",  //
    " KK ",
};

// Colours of the letters of a picture that differ from use to use.
struct Inks {
    int mark;    // K
    int inside;  // W
};

int colourIndex(char letter, Inks inks) {
    switch (letter) {
        case 'K':
            return inks.mark;
        case 'W':
            return inks.inside;
        case 'S':
            return COLOR_3DSHADOW;
        case 'D':
            return COLOR_3DDKSHADOW;
        case 'L':
            return COLOR_3DLIGHT;
        default:
            return COLOR_3DHIGHLIGHT;
    }
}

void drawPicture(DeviceContext& dc, POINT at, Picture picture, Inks inks) {
    for (std::size_t y = 0; y < picture.size(); ++y) {
        const std::string_view row = picture[y];
        for (std::size_t x = 0; x < row.size(); ++x) {
            if (row[x] != ' ') {
                putPixel(dc, at.x + static_cast<int>(x), at.y + static_cast<int>(y),
                         systemPixel(colourIndex(row[x], inks)));
            }
        }
    }
}

int edgeWidth() {
    return 2 * lineWidth();
}

RECT inset(const RECT& rect, int pixels) {
    return {rect.left + pixels, rect.top + pixels, rect.right - pixels, rect.bottom - pixels};
}

// The largest square in the middle of a rectangle.
RECT middleSquare(const RECT& rect) {
    const int side = std::min(rect.right - rect.left, rect.bottom - rect.top);
    const int left = rect.left + (rect.right - rect.left - side) / 2;
    const int top = rect.top + (rect.bottom - rect.top - side) / 2;
    return {left, top, left + side, top + side};
}

RECT onSurface(const DeviceContext& dc, const RECT& rect) {
    return toSurface(dc, rect.left, rect.top, rect.right, rect.bottom);
}

int insideColour(UINT state) {
    return (state & (DFCS_INACTIVE | DFCS_PUSHED)) != 0 ? COLOR_BTNFACE : COLOR_WINDOW;
}

int markColour(UINT state) {
    return (state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_WINDOWTEXT;
}

void drawPushButton(HDC handle, RECT rect, UINT state) {
    const bool down = (state & DFCS_PUSHED) != 0;
    const UINT flat = (state & DFCS_FLAT) != 0 ? BF_FLAT : 0u;
    DrawEdge(handle, &rect, down ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_SOFT | flat);
}

// Two strokes at right angles, each column as thick as the others; the knee is two columns wide.
void drawTick(DeviceContext& dc, const RECT& inside, Pixel pixel) {
    const int width = toScale(kTickSize);
    const int thickness = toScale(kTickThickness);
    const int knee = toScale(2);  // The column at the right of the knee's middle.
    const int rise = width - 1 - knee;
    const int left = inside.left + (inside.right - inside.left - width) / 2;
    const int top = inside.top + (inside.bottom - inside.top - rise - thickness) / 2;
    for (int column = 0; column < width; ++column) {
        const int y = top + rise - std::max({knee - 1 - column, column - knee, 0});
        fillArea(dc, {left + column, y, left + column + 1, y + thickness}, pixel);
    }
}

void drawCheckBox(HDC handle, DeviceContext& dc, const RECT& rect, UINT state) {
    RECT square = middleSquare(rect);
    const RECT inside = inset(onSurface(dc, square), edgeWidth());
    fillArea(dc, inside, systemPixel(insideColour(state)));
    DrawEdge(handle, &square, EDGE_SUNKEN, BF_RECT | ((state & DFCS_FLAT) != 0 ? BF_FLAT : 0u));
    if ((state & DFCS_CHECKED) != 0) {
        drawTick(dc, inside, systemPixel(markColour(state)));
    }
}

// A disc that fills the square, of another colour in its lower right half.
void drawDisc(DeviceContext& dc, POINT at, int size, int colour, int lowerColour) {
    for (int row = 0; row < size; ++row) {
        const int gap = discGap(size, row);
        const int half = std::clamp(size - row, gap, size - gap);
        const int y = at.y + row;
        fillArea(dc, {at.x + gap, y, at.x + half, y + 1}, systemPixel(colour));
        fillArea(dc, {at.x + half, y, at.x + size - gap, y + 1}, systemPixel(lowerColour));
    }
}

// The ring and the dot of a screen for which the pictures are too small: discs, each on top of the one before it.
void drawRadioDiscs(DeviceContext& dc, POINT at, UINT state) {
    const int size = toScale(static_cast<int>(std::size(kRadio)));
    const int line = lineWidth();
    drawDisc(dc, at, size, COLOR_3DSHADOW, COLOR_3DHIGHLIGHT);
    drawDisc(dc, {at.x + line, at.y + line}, size - 2 * line, COLOR_3DDKSHADOW, COLOR_3DLIGHT);
    const int inside = insideColour(state);
    drawDisc(dc, {at.x + 2 * line, at.y + 2 * line}, size - 4 * line, inside, inside);
    if ((state & DFCS_CHECKED) != 0) {
        const int dotSize = toScale(static_cast<int>(std::size(kRadioDot)));
        const int margin = (size - dotSize) / 2;  // The same on all sides.
        drawDisc(dc, {at.x + margin, at.y + margin}, size - 2 * margin, markColour(state), markColour(state));
    }
}

void drawRadioButton(DeviceContext& dc, const RECT& rect, UINT state) {
    const RECT square = onSurface(dc, middleSquare(rect));
    const int size = static_cast<int>(std::size(kRadio));
    const int dotSize = static_cast<int>(std::size(kRadioDot));
    const int margin = (square.right - square.left - toScale(size) + 1) / 2;
    const POINT ring = {square.left + margin, square.top + margin};
    if (toScale(size) != size) {
        drawRadioDiscs(dc, ring, state);
        return;
    }
    drawPicture(dc, ring, kRadio, {COLOR_WINDOWTEXT, insideColour(state)});
    if ((state & DFCS_CHECKED) != 0) {
        const POINT dot = {ring.x + (size - dotSize) / 2, ring.y + (size - dotSize) / 2};
        drawPicture(dc, dot, kRadioDot, {markColour(state), COLOR_WINDOW});
    }
}

// A triangle with its tip towards `direction`; its lines are 1, 3, 5 ... pixels long.
void drawArrow(DeviceContext& dc, const RECT& rect, UINT direction, POINT shift, Pixel pixel) {
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const int lines = (std::min(width, height) + 3) / 4;
    const bool sideways = direction == DFCS_SCROLLLEFT || direction == DFCS_SCROLLRIGHT;
    const bool tipFirst = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLLEFT;
    const int along = ((sideways ? width : height) - lines - (tipFirst ? 1 : 0)) / 2;
    const int middle = ((sideways ? height : width) - 1) / 2;
    for (int i = 0; i < lines; ++i) {
        const int reach = tipFirst ? i : lines - 1 - i;
        const RECT line = {middle - reach, along + i, middle + reach + 1, along + i + 1};
        const int x = rect.left + shift.x;
        const int y = rect.top + shift.y;
        fillArea(dc,
                 sideways ? RECT{x + line.top, y + line.left, x + line.bottom, y + line.right}
                          : RECT{x + line.left, y + line.top, x + line.right, y + line.bottom},
                 pixel);
    }
}

void drawScrollButton(HDC handle, DeviceContext& dc, RECT rect, UINT state) {
    const bool pushed = (state & DFCS_PUSHED) != 0;
    const UINT flat = (state & DFCS_FLAT) != 0 ? BF_FLAT : 0u;
    const UINT direction = (state & 0x00FF) == DFCS_SCROLLCOMBOBOX ? DFCS_SCROLLDOWN : state & DFCS_SCROLLRIGHT;
    const RECT area = onSurface(dc, rect);
    DrawEdge(handle, &rect, pushed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_MIDDLE | (pushed ? BF_SOFT : 0u) | flat);
    const int shift = pushed ? lineWidth() : 0;
    if ((state & DFCS_INACTIVE) != 0) {
        drawArrow(dc, area, direction, {shift + lineWidth(), shift + lineWidth()}, systemPixel(COLOR_3DHIGHLIGHT));
    }
    drawArrow(dc, area, direction, {shift, shift},
              systemPixel((state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_BTNTEXT));
}

}  // namespace

BOOL DrawFrameControl(HDC handle, LPRECT rect, UINT kind, UINT state) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || rect == nullptr || (kind != DFC_BUTTON && kind != DFC_SCROLL)) {
        return FALSE;
    }
    const RECT area = {limited(rect->left), limited(rect->top), limited(rect->right), limited(rect->bottom)};
    const bool isPushButton = (state & DFCS_BUTTONPUSH) != 0;
    if (kind == DFC_SCROLL) {
        drawScrollButton(handle, *dc, area, state);
    } else if (isPushButton) {
        drawPushButton(handle, area, state);
    } else if ((state & DFCS_BUTTONRADIO) != 0) {
        drawRadioButton(*dc, area, state);
    } else {
        drawCheckBox(handle, *dc, area, state);
    }
    if ((state & DFCS_ADJUSTRECT) != 0 && (kind == DFC_SCROLL || isPushButton)) {
        *rect = inset(area, edgeWidth());
    }
    return TRUE;
}
