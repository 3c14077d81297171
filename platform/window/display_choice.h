// The display in use.
#pragma once

#include "platform/display/display.h"

namespace platform {

// Selects one when none is selected yet: the X server where one answers, else memory.
Display& display();
bool isDisplaySelected();

}  // namespace platform
