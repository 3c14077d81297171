// Device-independent bitmaps: what their headers say, and reading their pixels.
#pragma once

#include "platform/graphics/gdi_objects.h"

#include <array>
#include <memory>
#include <optional>

namespace platform {

struct DibFormat {
    int width = 0;
    int height = 0;  // Always positive.
    bool topDown = false;
    int bitsPerPixel = 0;               // 1, 4, 8, 24 or 32.
    std::size_t colourTableOffset = 0;  // From the start of the header, in bytes.
    int colourCount = 0;                // Entries of the colour table; 0 without one.

    std::size_t bytesPerRow() const;
    std::size_t bitsOffset() const;  // Of a packed bitmap, from the start of the header.
    std::size_t bitsSize() const;
};

// Null for a compressed bitmap, an unknown depth, or sizes that no bitmap here can have.
std::optional<DibFormat> dibFormat(const BITMAPINFOHEADER& header);

// Row `line` counted from the top, wherever it stands in the bits.
inline std::size_t rowIndex(const DibFormat& format, int line) {
    return static_cast<std::size_t>(format.topDown ? line : format.height - 1 - line);
}

using DibPalette = std::array<Pixel, 256>;  // Unused entries are black.
DibPalette dibPalette(const DibFormat& format, const BYTE* colourTable);
std::unique_ptr<Bitmap> readDib(const DibFormat& format, const DibPalette& palette, const BYTE* bits);

// A bitmap made from a packed device-independent bitmap as it stands in a resource (header, colour table, bits);
// null when the data are not a bitmap of 1, 4, 8, 24 or 32 bits a pixel that fits into `size` bytes.
HBITMAP bitmapFromPackedDib(const void* data, std::size_t size);

}  // namespace platform
