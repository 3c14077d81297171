// Pictures on owner-drawn buttons.
#include "core/preview.h"

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
    const CSelectObject selected(memory, bitmap.GetSafeHandle());
    const int left = item.rcItem.left + (client.right - client.left - size.bmWidth) / 2;
    const int top = item.rcItem.top + (client.bottom - client.top - size.bmHeight) / 2;
    target->BitBlt(left, top, size.bmWidth, size.bmHeight, &memory, 0, 0, SRCCOPY);
}
