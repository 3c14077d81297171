// Placements and their markers.
#include "pages/project/placement.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "core/numbers.h"

namespace {

struct Orientation {
    int angle;
    Rotation rotation;
};

constexpr Orientation kOrientations[] = {
    {0, {1, 0, 0, 1}},
    {90, {0, 1, -1, 0}},
    {-90, {0, -1, 1, 0}},
};

bool IsOrientation(int index) {
    return index >= 0 && index < static_cast<int>(std::size(kOrientations));
}

// The part of a text up to the separator, behind which the text goes on. Without one the text stays.
CString TakePart(LPCSTR& text, char separator, bool& found) {
    const char* end = std::strchr(text, separator);
    found = end != nullptr;
    if (!found) {
        return "";
    }
    CString part(text, static_cast<int>(end - text));
    text = end + 1;
    return part;
}

// Far beyond every window, and small enough to be added and subtracted.
constexpr double kFarthest = 1 << 24;

int Truncated(double number) {
    return static_cast<int>(std::clamp(number, -kFarthest, kFarthest));
}

// An extent times a text's height. Numbers that are none, as a wild text may hold, count as nothing.
int Scaled(int extent, double height) {
    const double scaled = extent * height;
    return scaled == scaled ? Truncated(scaled) : 0;
}

// The share of a length, truncated toward zero.
int Share(int length, int part, int whole) {
    const long long share = static_cast<long long>(length) * part / whole;
    return Truncated(static_cast<double>(share));
}

RECT EdgeBarRect(const RECT& box, int c, int thickness) {
    RECT bar = box;
    if (c < 0) {
        bar.top = box.bottom - thickness;
    } else if (c == 0) {
        bar.right = box.left + thickness;
    } else {
        bar.bottom = box.top + thickness;
    }
    return bar;
}

}  // namespace

void SetRotation(int orientation, Rotation& rotation) {
    if (IsOrientation(orientation)) {
        rotation = kOrientations[orientation].rotation;
    }
}

void ParsePlacement(LPCSTR text, Placement& placement) {
    bool found = false;
    if (const CString x = TakePart(text, ',', found); found) {
        placement.x = LeadingInteger(x);
    }
    if (const CString y = TakePart(text, ';', found); found) {
        placement.y = LeadingInteger(y);
    }
    if (const CString height = TakePart(text, ';', found); found) {
        placement.height = LeadingNumber(height);
    }
    placement.angle = LeadingInteger(text);
}

CString PlacementText(const Placement& placement) {
    CString text;
    text.Format("%d,%d;%s;%d", placement.x, placement.y, FixedText(placement.height, 6).GetString(), placement.angle);
    return text;
}

void SetPlacementAngle(int angle, Placement& placement) {
    for (size_t i = 0; i < std::size(kOrientations); ++i) {
        if (kOrientations[i].angle == angle) {
            placement.orientation = static_cast<int>(i);
            placement.rotation = kOrientations[i].rotation;
        }
    }
}

int AngleFromIndex(int orientation, int former) {
    return IsOrientation(orientation) ? kOrientations[orientation].angle : former;
}

// For each unit of the text's height the box is a twenty-fifth of the frame long and a fortieth high.
BOOL PlaceMarker(const RECT& frame, SIZE sheet, const Placement& placement, int barThickness, Marker& marker) {
    if (sheet.cx == 0 || sheet.cy == 0) {
        return FALSE;
    }
    const int frameWidth = frame.right - frame.left;
    const int frameHeight = frame.bottom - frame.top;
    const Rotation& r = placement.rotation;
    const int unitX = frameWidth / 25;
    const int unitY = frameHeight / 40;
    const int x = frame.left + Share(frameWidth, placement.x, sheet.cx);
    const int y = frame.bottom - Share(frameHeight, placement.y, sheet.cy);
    const int rise = Scaled(r.b * unitX + r.a * unitY, placement.height);
    const int run = Scaled(r.d * unitX + r.c * unitY, placement.height);
    const auto [top, bottom] = r.b >= 0 ? std::pair(y - rise, y) : std::pair(y, y - rise);
    const auto [left, right] = r.c >= 0 ? std::pair(x, x + run) : std::pair(x + run, x);
    marker.box = {left, top, right, bottom};
    marker.bar = EdgeBarRect(marker.box, r.c, barThickness);
    return TRUE;
}
