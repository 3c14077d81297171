// The colours of the grey desktop, by the index of GetSysColor.
#pragma once

#include "platform/graphics/pixels.h"

namespace platform {

constexpr int kSystemColourCount = 25;

// Black for an index outside the table.
Pixel systemPixel(int index);

}  // namespace platform
