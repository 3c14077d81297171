// Drawing of text at a place, for what lays text out.
#pragma once

#include "platform/graphics/font.h"
#include "platform/graphics/painting.h"

#include <string_view>

namespace platform {

// Draws the text with its upper left corner at `at`, within `limit` (both in surface coordinates), over a
// background when the context is opaque. `advances` has the distances from character to character; null for the font's.
void drawText(DeviceContext& dc, POINT at, std::string_view text, const INT* advances, const RECT& limit);

constexpr RECT kNoLimit = {-kFarthest, -kFarthest, kFarthest, kFarthest};

}  // namespace platform
