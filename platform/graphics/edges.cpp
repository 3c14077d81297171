// DrawEdge: raised and sunken edges of two lines. Diagonals are left out.
#include "platform/graphics/painting.h"
#include "platform/graphics/scale.h"
#include "platform/graphics/system_colours.h"

#include <windows.h>

using namespace platform;

namespace {

constexpr UINT kOuterBits = BDR_RAISEDOUTER | BDR_SUNKENOUTER;
constexpr UINT kInnerBits = BDR_RAISEDINNER | BDR_SUNKENINNER;
constexpr int kNone = -1;

// System colour indexes of one line of an edge, kNone where nothing is drawn.
struct LineColours {
    int leftTop;
    int rightBottom;
};
constexpr LineColours kNothing = {kNone, kNone};

struct EdgeColours {
    LineColours outer;
    LineColours inner;
};

LineColours normalLine(UINT bit, bool soft) {
    switch (bit) {
        case BDR_RAISEDOUTER:
            return {soft ? COLOR_3DHIGHLIGHT : COLOR_3DLIGHT, COLOR_3DDKSHADOW};
        case BDR_SUNKENOUTER:
            return {soft ? COLOR_3DDKSHADOW : COLOR_3DSHADOW, COLOR_3DHIGHLIGHT};
        case BDR_RAISEDINNER:
            return {soft ? COLOR_3DLIGHT : COLOR_3DHIGHLIGHT, COLOR_3DSHADOW};
        case BDR_SUNKENINNER:
            return {soft ? COLOR_3DSHADOW : COLOR_3DDKSHADOW, COLOR_3DLIGHT};
        default:
            return kNothing;
    }
}

// The documented result is FALSE for an edge that is both raised and sunken; what can be told of it is drawn still.
bool contradicts(UINT edge) {
    return (edge & kOuterBits) == kOuterBits || (edge & kInnerBits) == kInnerBits;
}

EdgeColours coloursOf(UINT edge, UINT flags) {
    const UINT outer = edge & kOuterBits;
    const UINT inner = edge & kInnerBits;
    if ((flags & (BF_MONO | BF_FLAT)) != 0) {
        const bool mono = (flags & BF_MONO) != 0;
        const int outerColour = mono ? COLOR_WINDOWFRAME : COLOR_BTNSHADOW;
        const int innerColour = mono ? COLOR_WINDOW : COLOR_BTNFACE;
        if (outer == 0) {
            return {inner != 0 ? LineColours{innerColour, innerColour} : kNothing, kNothing};
        }
        return {{outerColour, outerColour}, inner != 0 ? LineColours{innerColour, innerColour} : kNothing};
    }
    const bool soft = (flags & BF_SOFT) != 0;
    if (outer == 0) {
        return {normalLine(inner, soft), kNothing};  // A lone inner edge stands where the outer one would.
    }
    return {normalLine(outer, soft), outer == kOuterBits ? kNothing : normalLine(inner, soft)};
}

void drawLine(DeviceContext& dc, const RECT& area, LineColours colours, UINT sides) {
    const int width = lineWidth();
    if (colours.leftTop != kNone && (sides & BF_TOP) != 0) {
        fillArea(dc, {area.left, area.top, area.right, area.top + width}, systemPixel(colours.leftTop));
    }
    if (colours.leftTop != kNone && (sides & BF_LEFT) != 0) {
        fillArea(dc, {area.left, area.top, area.left + width, area.bottom}, systemPixel(colours.leftTop));
    }
    if (colours.rightBottom != kNone && (sides & BF_BOTTOM) != 0) {
        fillArea(dc, {area.left, area.bottom - width, area.right, area.bottom}, systemPixel(colours.rightBottom));
    }
    if (colours.rightBottom != kNone && (sides & BF_RIGHT) != 0) {
        fillArea(dc, {area.right - width, area.top, area.right, area.bottom}, systemPixel(colours.rightBottom));
    }
}

RECT shrunk(const RECT& rect, UINT sides) {
    const int width = lineWidth();
    return {rect.left + ((sides & BF_LEFT) != 0 ? width : 0), rect.top + ((sides & BF_TOP) != 0 ? width : 0),
            rect.right - ((sides & BF_RIGHT) != 0 ? width : 0), rect.bottom - ((sides & BF_BOTTOM) != 0 ? width : 0)};
}

}  // namespace

BOOL DrawEdge(HDC handle, LPRECT rect, UINT edge, UINT flags) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || rect == nullptr) {
        return FALSE;
    }
    const POINT offset = dc->offset();
    const RECT area = {limited(std::int64_t{rect->left} + offset.x), limited(std::int64_t{rect->top} + offset.y),
                       limited(std::int64_t{rect->right} + offset.x), limited(std::int64_t{rect->bottom} + offset.y)};
    const EdgeColours colours = coloursOf(edge, flags);
    const RECT second = shrunk(area, flags);
    drawLine(*dc, area, colours.outer, flags);
    drawLine(*dc, second, colours.inner, flags);

    const bool drawn = (flags & (BF_MONO | BF_FLAT)) != 0 || !contradicts(edge);
    const UINT lines = ((edge & kOuterBits) != 0 ? 1u : 0u) + ((edge & kInnerBits) != 0 ? 1u : 0u);
    if (drawn && (flags & BF_MIDDLE) != 0) {
        RECT middle = lines > 0 ? second : area;
        middle = lines > 1 ? shrunk(middle, flags) : middle;
        fillArea(*dc, middle, systemPixel((flags & BF_MONO) != 0 ? COLOR_WINDOW : COLOR_BTNFACE));
    }
    if ((flags & BF_ADJUST) != 0) {
        for (UINT i = 0; i < lines; ++i) {
            *rect = shrunk(*rect, flags);
        }
    }
    return drawn;
}
