// Swatches of the palette's colours, as the items of lists show them.
#pragma once

#include "framework/framework.h"

// Draws a whole bitmap into the square at the left of a list item, 3 pixels from its left and upper edge and 5 pixels
// lower than the item.
void DrawItemBitmap(const CBitmap& bitmap, CDC& target, const RECT& item);

// The same with the swatch bitmap, whose red interior takes the colour.
void DrawItemSwatch(const CBitmap& swatch, CDC& target, const RECT& item, COLORREF colour);
