// Pictures on owner-drawn buttons.
#pragma once

#include "framework/framework.h"

// Copies a bitmap, as large as it is on a screen of 96 dots an inch, into the middle of the control that asks to be
// drawn.
void DrawCentredBitmap(const DRAWITEMSTRUCT& item, const CBitmap& bitmap);
