// Painting of list boxes.
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/controls/list_box.h"
#include "platform/graphics/scale.h"

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
        drawOwnerRow(dc, index, ODA_DRAWENTIRE);
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
    ExtTextOutA(dc, static_cast<int>(row.left) + toScale(1), static_cast<int>(row.top), ETO_OPAQUE | ETO_CLIPPED, &row,
                text.data(), static_cast<UINT>(text.size()), nullptr);
    SetTextColor(dc, textColour);
    SetBkColor(dc, backColour);
    if (focused_ && index == caret_) {
        DrawFocusRect(dc, &row);
    }
}

// Shows that an entry is selected or no longer so: the owner draws it over what stands there, at once.
bool ListBox::drawChange(int index) {
    if (!isOwnerDrawn()) {
        invalidateRow(index);
        return true;
    }
    RECT client;
    GetClientRect(window_, &client);
    if (!items_.has(index) || index < top_ || rowRect(index).top >= client.bottom || !IsWindowVisible(window_)) {
        return true;
    }
    const HWND window = window_;
    const WindowDc dc(window);
    {
        const SelectedFont font(dc, font_);
        askColours(owner(), window, dc, WM_CTLCOLORLISTBOX);
        drawOwnerRow(dc, index, ODA_SELECT);
    }
    return IsWindow(window) != FALSE;
}

void ListBox::drawOwnerRow(HDC dc, int index, UINT action) {
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_LISTBOX;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    draw.itemID = static_cast<UINT>(index);
    draw.itemAction = action;
    draw.itemState = (index == current_ ? ODS_SELECTED : 0U) | (focused_ && index == caret_ ? ODS_FOCUS : 0U) |
                     (IsWindowEnabled(window_) ? 0U : ODS_DISABLED);
    draw.hwndItem = window_;
    draw.hDC = dc;
    draw.rcItem = rowRect(index);
    draw.itemData = items_.at(index).data;
    const int saved = SaveDC(dc);
    const RECT rows = rowsRect();
    IntersectClipRect(dc, rows.left, rows.top, rows.right, rows.bottom);
    SendMessageA(owner(), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
    RestoreDC(dc, saved);
}

}  // namespace platform
