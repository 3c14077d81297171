// Painting of list boxes.
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/controls/list_box.h"

namespace platform {

void ListBox::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void ListBox::paint(HDC dc) {
    const SelectedFont font(dc, font_);
    const HBRUSH background = askColours(owner(), window_, dc, WM_CTLCOLORLISTBOX);
    if (!IsWindowEnabled(window_)) {
        SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    }
    RECT rest = rowsRect();
    const HWND window = window_;
    for (int index = top_; items_.has(index) && rest.top < rest.bottom; ++index) {
        const RECT row = rowRect(index);
        if (RectVisible(dc, &row)) {
            paintRow(dc, index, background);
            if (!IsWindow(window)) {
                return;
            }
        }
        rest.top = row.bottom;
    }
    if (rest.top < rest.bottom) {
        FillRect(dc, &rest, background);
    }
    bar_.paint(dc);
}

void ListBox::paintRow(HDC dc, int index, HBRUSH background) {
    const RECT row = rowRect(index);
    if (isOwnerDrawn()) {
        FillRect(dc, &row, background);
        drawOwnerRow(dc, index, row);
        return;
    }
    const bool selected = index == current_;
    const COLORREF textColour = GetTextColor(dc);
    const COLORREF backColour = GetBkColor(dc);
    if (selected) {
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    }
    const std::string& text = items_.at(index).text;
    ExtTextOutA(dc, row.left + 1, row.top, ETO_OPAQUE | ETO_CLIPPED, &row, text.data(), static_cast<UINT>(text.size()),
                nullptr);
    SetTextColor(dc, textColour);
    SetBkColor(dc, backColour);
    if (focused_ && index == caret_) {
        DrawFocusRect(dc, &row);
    }
}

void ListBox::drawOwnerRow(HDC dc, int index, const RECT& rect) {
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_LISTBOX;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    draw.itemID = static_cast<UINT>(index);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.itemState = (index == current_ ? ODS_SELECTED : 0U) | (focused_ && index == caret_ ? ODS_FOCUS : 0U) |
                     (IsWindowEnabled(window_) ? 0U : ODS_DISABLED);
    draw.hwndItem = window_;
    draw.hDC = dc;
    draw.rcItem = rect;
    draw.itemData = items_.at(index).data;
    const int saved = SaveDC(dc);
    SendMessageA(owner(), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
    RestoreDC(dc, saved);
}

}  // namespace platform
