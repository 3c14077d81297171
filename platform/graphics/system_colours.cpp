#include "platform/graphics/system_colours.h"

#include <array>

namespace platform {

namespace {

constexpr Pixel kFace = 0x00D4D0C8;
constexpr Pixel kShadow = 0x00808080;

constexpr std::array<Pixel, kSystemColourCount> kSystemColours = {
    kFace,       // Scroll bar
    0x003A6EA5,  // Desktop
    0x000A246A,  // Active caption
    kShadow,     // Inactive caption
    kFace,       // Menu
    kWhite,      // Window
    kBlack,      // Window frame
    kBlack,      // Menu text
    kBlack,      // Window text
    kWhite,      // Caption text
    kFace,       // Active border
    kFace,       // Inactive border
    kShadow,     // Application workspace
    0x000A246A,  // Highlight
    kWhite,      // Highlighted text
    kFace,       // Button face
    kShadow,     // Button shadow
    kShadow,     // Greyed text
    kBlack,      // Button text
    kFace,       // Inactive caption text
    kWhite,      // Button highlight
    0x00404040,  // Dark shadow
    kFace,       // Light edge
    kBlack,      // Tooltip text
    0x00FFFFE1,  // Tooltip background
};

}  // namespace

Pixel systemPixel(int index) {
    return index >= 0 && index < kSystemColourCount ? kSystemColours[static_cast<std::size_t>(index)] : kBlack;
}

const Brush* brushFromHandle(HBRUSH handle) {
    const auto value = reinterpret_cast<ULONG_PTR>(handle);
    if (value != 0 && value <= kSystemColourCount) {
        return findObject<Brush>(GetSysColorBrush(static_cast<int>(value) - 1));
    }
    return findObject<Brush>(handle);
}

}  // namespace platform

using namespace platform;

COLORREF GetSysColor(int index) {
    return colourOf(systemPixel(index));
}

HBRUSH GetSysColorBrush(int index) {
    static const auto kBrushes = [] {
        std::array<HBRUSH, kSystemColourCount> brushes{};
        for (std::size_t i = 0; i < brushes.size(); ++i) {
            brushes[i] = static_cast<HBRUSH>(makePermanent(std::make_unique<Brush>(kSystemColours[i])).handle);
        }
        return brushes;
    }();
    return index >= 0 && index < kSystemColourCount ? kBrushes[static_cast<std::size_t>(index)] : nullptr;
}
