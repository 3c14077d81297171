// The objects that a device context starts with.
#pragma once

#include "platform/graphics/gdi_objects.h"

namespace platform {

Pen& defaultPen();
Brush& defaultBrush();
Font& defaultFont();

}  // namespace platform
