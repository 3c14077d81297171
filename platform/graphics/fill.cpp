// Filling, framing and inverting rectangles, and single pixels.
#include "platform/graphics/painting.h"
#include "platform/graphics/scale.h"
#include "platform/graphics/system_colours.h"

#include <windows.h>

using namespace platform;

namespace {

RECT rectOnSurface(const DeviceContext& dc, const RECT& rect) {
    return blockOnSurface(dc, rect.left, rect.top, std::int64_t{rect.right} - rect.left,
                          std::int64_t{rect.bottom} - rect.top);
}

// One side of a dotted frame, walked pixel by pixel.
struct DottedRun {
    POINT from;
    int dx;
    int dy;
    int count;
};

// Inverts every second pixel of the run; `step` is the number of pixels of the frame that were walked before it.
void invertDotted(DeviceContext& dc, const DottedRun& run, int step) {
    const Surface& surface = *dc.surface();
    // Pixels beyond the surface need no visit: a rectangle may be far larger than that.
    const int start = run.dx + run.dy > 0 ? -(run.from.x * run.dx + run.from.y * run.dy) : 0;
    const int end = run.dx > 0   ? surface.width() - run.from.x
                    : run.dx < 0 ? run.from.x + 1
                    : run.dy > 0 ? surface.height() - run.from.y
                                 : run.from.y + 1;
    for (int i = std::max(start, 0); i < std::min(run.count, end); ++i) {
        const int x = run.from.x + i * run.dx;
        const int y = run.from.y + i * run.dy;
        if ((step + i) % 2 == 0 && isVisible(dc, x, y)) {
            putPixel(dc, x, y, surface.row(y)[x] ^ kWhite);
        }
    }
}

// The same by squares as wide as a line.
void invertDottedSquares(DeviceContext& dc, const RECT& area, int width) {
    const RECT reach = overlapOf(area, dc.clip().bounds());
    const RECT inside = {area.left + width, area.top + width, area.right - width, area.bottom - width};
    for (int y = reach.top; y < reach.bottom; ++y) {
        const bool onSide = y < inside.top || y >= inside.bottom;
        for (int x = reach.left; x < reach.right; ++x) {
            if (!onSide && x >= inside.left && x < inside.right) {
                x = inside.right - 1;  // Nothing to be done up to the other side.
            } else if (((x - area.left) / width + (y - area.top) / width) % 2 == 0) {
                invertArea(dc, {x, y, x + 1, y + 1});
            }
        }
    }
}

}  // namespace

BOOL PatBlt(HDC handle, int x, int y, int width, int height, DWORD operation) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    const RECT area = blockOnSurface(*dc, x, y, width, height);
    switch (operation) {
        case PATCOPY:
            if (!dc->state().brush->hollow) {
                fillArea(*dc, area, dc->state().brush->colour);
            }
            return TRUE;
        case WHITENESS:
            fillArea(*dc, area, kWhite);
            return TRUE;
        case BLACKNESS:
            fillArea(*dc, area, kBlack);
            return TRUE;
        case DSTINVERT:
            invertArea(*dc, area);
            return TRUE;
        default:
            return FALSE;
    }
}

int FillRect(HDC handle, LPCRECT rect, HBRUSH brushHandle) {
    DeviceContext* dc = contextFromHandle(handle);
    const Brush* brush = brushFromHandle(brushHandle);
    if (dc == nullptr || rect == nullptr || brush == nullptr) {
        return 0;
    }
    if (!brush->hollow) {
        fillArea(*dc, rectOnSurface(*dc, *rect), brush->colour);
    }
    return 1;
}

int FrameRect(HDC handle, LPCRECT rect, HBRUSH brushHandle) {
    DeviceContext* dc = contextFromHandle(handle);
    const Brush* brush = brushFromHandle(brushHandle);
    if (dc == nullptr || brush == nullptr || IsRectEmpty(rect)) {
        return 0;
    }
    const RECT area = rectOnSurface(*dc, *rect);
    if (!brush->hollow) {
        fillArea(*dc, {area.left, area.top, area.left + 1, area.bottom}, brush->colour);
        fillArea(*dc, {area.right - 1, area.top, area.right, area.bottom}, brush->colour);
        fillArea(*dc, {area.left, area.top, area.right, area.top + 1}, brush->colour);
        fillArea(*dc, {area.left, area.bottom - 1, area.right, area.bottom}, brush->colour);
    }
    return 1;
}

BOOL InvertRect(HDC handle, LPCRECT rect) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || rect == nullptr) {
        return FALSE;
    }
    invertArea(*dc, rectOnSurface(*dc, *rect));
    return TRUE;
}

BOOL DrawFocusRect(HDC handle, LPCRECT rect) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || rect == nullptr) {
        return FALSE;
    }
    const RECT area = toSurface(*dc, rect->left, rect->top, rect->right, rect->bottom);
    if (dc->surface() == nullptr || isEmpty(area)) {
        return TRUE;
    }
    if (lineWidth() > 1) {
        invertDottedSquares(*dc, area, lineWidth());
        return TRUE;
    }
    // The dots run from the upper right corner against the clock, so that they meet at the corners as on the system.
    const int width = area.right - area.left - 1;
    const int height = area.bottom - area.top - 1;
    const DottedRun sides[] = {{{area.right - 1, area.top}, -1, 0, width},
                               {{area.left, area.top}, 0, 1, height},
                               {{area.left, area.bottom - 1}, 1, 0, width},
                               {{area.right - 1, area.bottom - 1}, 0, -1, height}};
    int step = 0;
    for (const DottedRun& side : sides) {
        invertDotted(*dc, side, step);
        step += side.count;
    }
    return TRUE;
}

COLORREF SetPixel(HDC handle, int x, int y, COLORREF colour) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return CLR_INVALID;
    }
    const POINT at = toSurface(*dc, x, y);
    putPixel(*dc, at.x, at.y, pixelOf(colour));
    return colour & 0x00FFFFFF;
}

COLORREF GetPixel(HDC handle, int x, int y) {
    const DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return CLR_INVALID;
    }
    const POINT at = toSurface(*dc, x, y);
    return isVisible(*dc, at.x, at.y) ? colourOf(dc->surface()->row(at.y)[at.x]) : CLR_INVALID;
}
