// Pictures on owner-drawn buttons.
#pragma once

#include "framework/framework.h"

// Copies a bitmap, in its own size, into the middle of the control that asks to be drawn.
void DrawCentredBitmap(const DRAWITEMSTRUCT& item, const CBitmap& bitmap);
