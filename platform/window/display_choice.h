// The display in use.
#pragma once

#include "platform/display/display.h"

namespace platform {

// Selects one when none is selected yet: the X server where one answers, else memory.
Display& display();
bool isDisplaySelected();
// Whether the screen is gone for good: the X server ended, or closed the connection.
bool isDisplayLost();

}  // namespace platform
