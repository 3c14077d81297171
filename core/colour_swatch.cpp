// Swatches of the palette's colours.
#include "core/colour_swatch.h"

void DrawItemBitmap(const CBitmap& bitmap, CDC& target, const RECT& item) {
    BITMAP size{};
    CDC memory;
    if (bitmap.GetBitmap(&size) == 0 || !memory.CreateCompatibleDC(&target)) {
        return;
    }
    const CSelectObject selected(memory, bitmap.GetSafeHandle());
    const int side = item.bottom - item.top - 5;
    target.StretchBlt(item.left + 3, item.top + 3, side, side, &memory, 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
}

void DrawItemSwatch(const CBitmap& swatch, CDC& target, const RECT& item, COLORREF colour) {
    constexpr COLORREF kInterior = RGB(255, 0, 0);
    DrawItemBitmap(swatch, target, item);
    const CBrush brush(colour);
    const CSelectObject selected(target, brush.GetSafeHandle());
    // The first pixel inside of the frame, which is drawn as much larger as the swatch.
    const int frame = 1 + (item.bottom - item.top - 5) / 16;
    target.ExtFloodFill(item.left + 3 + frame, item.top + 3 + frame, kInterior, FLOODFILLSURFACE);
}
