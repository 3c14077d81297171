// Pictures on owner-drawn buttons.
#include "core/preview.h"

#include "core/pixels.h"

void DrawCentredBitmap(const DRAWITEMSTRUCT& item, const CBitmap& bitmap) {
    BITMAP size{};
    RECT client{};
    CDC* target = CDC::FromHandle(item.hDC);
    CDC memory;
    // There is none where no memory was left for it.
    if (target == nullptr || !memory.CreateCompatibleDC(target) || bitmap.GetBitmap(&size) == 0 ||
        !GetClientRect(item.hwndItem, &client)) {
        return;
    }
    const int width = ScaledPixels(*target, size.bmWidth);
    const int height = ScaledPixels(*target, size.bmHeight);
    const CSelectObject selected(memory, bitmap.GetSafeHandle());
    const int left = item.rcItem.left + (client.right - client.left - width) / 2;
    const int top = item.rcItem.top + (client.bottom - client.top - height) / 2;
    // Lines that are repeated unevenly would be of two widths.
    const bool isEven = width % size.bmWidth == 0;
    const int formerMode = isEven ? 0 : ::SetStretchBltMode(item.hDC, HALFTONE);
    target->StretchBlt(left, top, width, height, &memory, 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
    if (!isEven) {
        ::SetStretchBltMode(item.hDC, formerMode);
    }
}
