// Pictures on owner-drawn buttons.
#include "core/preview.h"

#include "core/pixels.h"

namespace {

// In proportion to the screen, as far as the control has room: its font may be lower, or have grown less.
SIZE DrawnSize(const BITMAP& picture, SIZE control, const CDC& context) {
    SIZE drawn = {ScaledPixels(context, picture.bmWidth), ScaledPixels(context, picture.bmHeight)};
    if (drawn.cx > control.cx) {
        drawn = {control.cx, picture.bmHeight * control.cx / picture.bmWidth};
    }
    if (drawn.cy > control.cy) {
        drawn = {picture.bmWidth * control.cy / picture.bmHeight, control.cy};
    }
    return drawn;
}

}  // namespace

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
    const SIZE room = {client.right - client.left, client.bottom - client.top};
    const SIZE drawn = DrawnSize(size, room, *target);
    const CSelectObject selected(memory, bitmap.GetSafeHandle());
    const int left = item.rcItem.left + (room.cx - drawn.cx) / 2;
    const int top = item.rcItem.top + (room.cy - drawn.cy) / 2;
    // Lines that are repeated unevenly would be of two widths.
    const bool isEven = drawn.cx % size.bmWidth == 0 && drawn.cy % size.bmHeight == 0;
    const int formerMode = isEven ? 0 : ::SetStretchBltMode(item.hDC, HALFTONE);
    target->StretchBlt(left, top, drawn.cx, drawn.cy, &memory, 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
    if (!isEven) {
        ::SetStretchBltMode(item.hDC, formerMode);
    }
}
