// Drawing of lines with the selected pen.
#pragma once

#include "platform/graphics/painting.h"

#include <span>

namespace platform {

// Draws lines from point to point (surface coordinates), without the last point as documented for LineTo.
// A dotted pen goes on with its pattern from line to line.
void strokePath(DeviceContext& dc, std::span<const POINT> points);

// One pixel of an outline, as wide as the pen.
void strokePixel(DeviceContext& dc, int x, int y, const Pen& pen);

}  // namespace platform
