// Bitmaps: making them, from nothing, device-independent bits or a resource, and reading them back.
#include "platform/graphics/device_context.h"
#include "platform/graphics/dib.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

using namespace platform;

namespace {

// Writes one row as 24 or 32 bits a pixel; columns that the bitmap does not have are zero.
void writeRow(const Surface& surface, int y, const DibFormat& format, BYTE* to) {
    const int bytesPerPixel = format.bitsPerPixel / 8;
    const int columns = std::min(format.width, surface.width());
    const Pixel* from = surface.row(y);
    std::memset(to, 0, format.bytesPerRow());
    for (int x = 0; x < columns; ++x) {
        BYTE* pixel = to + std::ptrdiff_t{x} * bytesPerPixel;
        pixel[0] = static_cast<BYTE>(from[x]);
        pixel[1] = static_cast<BYTE>(from[x] >> 8);
        pixel[2] = static_cast<BYTE>(from[x] >> 16);
    }
}

// GetDIBits without bits: the header tells of the bitmap, in its own format when the caller names none.
int describeAsDib(const Bitmap& bitmap, BITMAPINFOHEADER& header) {
    if (header.biBitCount == 0) {
        header.biWidth = bitmap.surface.width();
        header.biHeight = bitmap.surface.height();
        header.biPlanes = 1;
        header.biBitCount = 32;
        header.biCompression = BI_RGB;
        header.biClrUsed = 0;
        header.biClrImportant = 0;
    }
    const auto format = dibFormat(header);
    if (!format) {
        return 0;
    }
    header.biSizeImage = static_cast<DWORD>(format->bitsSize());
    return bitmap.surface.height();
}

}  // namespace

namespace platform {

HBITMAP bitmapFromPackedDib(const void* data, std::size_t size) {
    BITMAPINFOHEADER header{};
    if (data == nullptr || size < sizeof header) {
        return nullptr;
    }
    // A resource need not be aligned for its structures.
    std::memcpy(&header, data, sizeof header);
    const auto format = dibFormat(header);
    if (!format || size < format->bitsOffset() || size - format->bitsOffset() < format->bitsSize()) {
        return nullptr;
    }
    const auto* bytes = static_cast<const BYTE*>(data);
    const DibPalette palette = dibPalette(*format, bytes + format->colourTableOffset);
    return static_cast<HBITMAP>(adoptObject(readDib(*format, palette, bytes + format->bitsOffset())));
}

}  // namespace platform

HBITMAP CreateCompatibleBitmap(HDC handle, int width, int height) {
    if (contextFromHandle(handle) == nullptr) {
        return nullptr;
    }
    // As documented: no size at all gives the bitmap of one pixel.
    if (width == 0 || height == 0) {
        return static_cast<HBITMAP>(defaultBitmap().handle);
    }
    return static_cast<HBITMAP>(adoptObject(makeBitmap(width, height)));
}

HBITMAP LoadBitmapA(HINSTANCE instance, LPCSTR name) {
    const HRSRC resource = FindResourceA(instance, name, RT_BITMAP);
    return bitmapFromPackedDib(LockResource(LoadResource(instance, resource)), SizeofResource(instance, resource));
}

int GetDIBits(HDC handle, HBITMAP bitmapHandle, UINT firstLine, UINT lines, LPVOID bits, LPBITMAPINFO info,
              UINT usage) {
    const Bitmap* bitmap = findObject<Bitmap>(static_cast<HGDIOBJ>(bitmapHandle));
    if (contextFromHandle(handle) == nullptr || bitmap == nullptr || info == nullptr || usage != DIB_RGB_COLORS) {
        return 0;
    }
    if (bits == nullptr) {
        return describeAsDib(*bitmap, info->bmiHeader);
    }
    const auto format = dibFormat(info->bmiHeader);
    if (!format || format->bitsPerPixel < 24) {
        return 0;
    }
    // Lines are numbered as they stand in the bits: from the bottom unless the header asks for top-down.
    const auto height = static_cast<UINT>(std::min(format->height, bitmap->surface.height()));
    const UINT end = firstLine < height ? firstLine + std::min(lines, height - firstLine) : firstLine;
    auto* row = static_cast<BYTE*>(bits);
    for (UINT line = firstLine; line < end; ++line) {
        const int y = static_cast<int>(format->topDown ? line : height - 1 - line);
        writeRow(bitmap->surface, y, *format, row);
        row += format->bytesPerRow();
    }
    return static_cast<int>(end - firstLine);
}
