#include "platform/graphics/dib.h"

#include <algorithm>

namespace platform {

namespace {

Pixel indexedPixel(const DibPalette& palette, const BYTE* row, int x, int bitsPerPixel) {
    const int bit = x * bitsPerPixel;
    const int shift = 8 - bitsPerPixel - bit % 8;
    const int mask = (1 << bitsPerPixel) - 1;
    return palette[static_cast<std::size_t>((row[bit / 8] >> shift) & mask)];
}

Pixel directPixel(const BYTE* bytes) {
    return static_cast<Pixel>(bytes[0]) | (static_cast<Pixel>(bytes[1]) << 8) | (static_cast<Pixel>(bytes[2]) << 16);
}

void readRow(const DibFormat& format, const DibPalette& palette, const BYTE* from, Pixel* to) {
    if (format.bitsPerPixel <= 8) {
        for (int x = 0; x < format.width; ++x) {
            to[x] = indexedPixel(palette, from, x, format.bitsPerPixel);
        }
        return;
    }
    const int bytesPerPixel = format.bitsPerPixel / 8;
    for (int x = 0; x < format.width; ++x) {
        to[x] = directPixel(from + std::ptrdiff_t{x} * bytesPerPixel);
    }
}

}  // namespace

std::size_t DibFormat::bytesPerRow() const {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
}

std::size_t DibFormat::bitsOffset() const {
    return colourTableOffset + static_cast<std::size_t>(colourCount) * sizeof(RGBQUAD);
}

std::size_t DibFormat::bitsSize() const {
    return bytesPerRow() * static_cast<std::size_t>(height);
}

std::optional<DibFormat> dibFormat(const BITMAPINFOHEADER& header) {
    constexpr DWORD kLargestHeader = 124;
    static constexpr int kDepths[] = {1, 4, 8, 24, 32};
    DibFormat format;
    format.bitsPerPixel = header.biBitCount;
    const bool knownDepth = std::find(std::begin(kDepths), std::end(kDepths), format.bitsPerPixel) != std::end(kDepths);
    const bool knownHeader = header.biSize >= sizeof(BITMAPINFOHEADER) && header.biSize <= kLargestHeader;
    const bool saneSize = header.biWidth >= 1 && header.biWidth <= kLargestBitmapSide && header.biHeight != 0 &&
                          header.biHeight >= -kLargestBitmapSide && header.biHeight <= kLargestBitmapSide;
    if (!knownDepth || !knownHeader || !saneSize || header.biCompression != BI_RGB) {
        return std::nullopt;
    }
    format.width = header.biWidth;
    format.height = std::abs(header.biHeight);
    format.topDown = header.biHeight < 0;
    format.colourTableOffset = header.biSize;
    const DWORD mostColours = format.bitsPerPixel <= 8 ? 1u << format.bitsPerPixel : 0u;
    // A table before direct pixels is a hint for displays of few colours: it is there to be skipped.
    constexpr DWORD kLargestTable = 256;
    const DWORD colours = header.biClrUsed != 0 ? header.biClrUsed : mostColours;
    if (colours > (mostColours != 0 ? mostColours : kLargestTable)) {
        return std::nullopt;
    }
    format.colourCount = static_cast<int>(colours);
    return format;
}

DibPalette dibPalette(const DibFormat& format, const BYTE* colourTable) {
    DibPalette palette{};
    if (format.bitsPerPixel <= 8) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(format.colourCount); ++i) {
            palette[i] = directPixel(colourTable + i * sizeof(RGBQUAD));
        }
    }
    return palette;
}

std::unique_ptr<Bitmap> readDib(const DibFormat& format, const DibPalette& palette, const BYTE* bits) {
    auto bitmap = makeBitmap(format.width, format.height);
    for (int y = 0; bitmap != nullptr && y < format.height; ++y) {
        readRow(format, palette, bits + rowIndex(format, y) * format.bytesPerRow(), bitmap->surface.row(y));
    }
    return bitmap;
}

}  // namespace platform
