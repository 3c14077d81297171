// The colours of the grey desktop, by the index of GetSysColor.
#pragma once

#include "platform/graphics/gdi_objects.h"

namespace platform {

constexpr int kSystemColourCount = 25;

// Black for an index outside the table.
Pixel systemPixel(int index);

// A brush as FillRect takes it: a handle, or a system colour's index plus 1. Null for neither.
const Brush* brushFromHandle(HBRUSH handle);

}  // namespace platform
