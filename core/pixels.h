// Lengths on screens of any fineness.
#pragma once

#include "framework/framework.h"

constexpr int kUsualDotsPerInch = 96;

// A length given in pixels of a screen of 96 dots an inch, in those of the context's.
inline int ScaledPixels(const CDC& context, int pixels) {
    const int dots = ::GetDeviceCaps(context.GetSafeHdc(), LOGPIXELSX);
    return (pixels * dots + kUsualDotsPerInch / 2) / kUsualDotsPerInch;
}
