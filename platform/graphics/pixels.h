// Pixels of a surface (0x00RRGGBB) and colours of the window API (0x00BBGGRR).
#pragma once

#include <windows.h>

#include <cstdint>

namespace platform {

using Pixel = std::uint32_t;

constexpr Pixel kWhite = 0x00FFFFFF;
constexpr Pixel kBlack = 0x00000000;

// The two differ in the order of red and blue only, so one exchange serves both ways.
constexpr std::uint32_t exchangeRedAndBlue(std::uint32_t value) {
    return ((value & 0xFFu) << 16) | (value & 0xFF00u) | ((value >> 16) & 0xFFu);
}
constexpr Pixel pixelOf(COLORREF colour) {
    return exchangeRedAndBlue(colour);
}
constexpr COLORREF colourOf(Pixel pixel) {
    return exchangeRedAndBlue(pixel);
}

}  // namespace platform
