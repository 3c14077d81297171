// What the window room asks of the graphics room: device contexts onto the surface of a top-level window.
#pragma once

#include "platform/graphics/region.h"
#include "platform/graphics/surface.h"

namespace platform {

// A device context that draws into `surface`, with its origin at `origin` and limited to `clip` (both in surface
// coordinates). A null surface gives a context that measures text and draws nothing. `window` is what
// WindowFromDC answers. The context starts with the default objects (black text, white background, opaque,
// system font) and is given back with closeWindowDc; contexts are pooled, so opening one is cheap.
HDC openWindowDc(HWND window, Surface* surface, POINT origin, const Region& clip);
void closeWindowDc(HDC dc);

// The font of dialogs at the given point size: every face name maps to the one sans-serif font that the system has.
// Owned by the graphics room; DeleteObject on it does nothing.
HFONT dialogFont(int pointSize);

// Average width and height of a character of that font, in pixels: four by eight dialog units.
SIZE dialogBaseUnits(int pointSize);

// Whether the system has a font at all. Without one text takes room and is not drawn.
bool isFontFound();

}  // namespace platform
