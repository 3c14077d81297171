// The icon of all frames, as the window manager takes it.
#pragma once

#include <vector>

namespace platform {

// Width, height and pixels (0xAARRGGBB) of each size, one after the other.
const std::vector<long>& windowIcon();

}  // namespace platform
