// How a list view looks, and what of it the parent draws.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_parts.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

constexpr UINT kTextFormat = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;

void drawText(HDC dc, const std::string& text, RECT rect) {
    rect.left += toScale(kCellPadding);
    rect.right -= toScale(kCellEnd);
    if (rect.left < rect.right) {
        DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &rect, kTextFormat);
    }
}

}  // namespace

void ListView::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) {
        if (redraw_) {
            paint(dc);
        }
    });
}

// Asks the parent how it wants to draw. `row` is kNone for the list as a whole.
LRESULT ListView::askDrawing(HDC dc, DWORD stage, const RECT& rect, int row, int column) const {
    NMLVCUSTOMDRAW draw{};
    draw.nmcd.dwDrawStage = stage;
    draw.nmcd.hdc = dc;
    draw.nmcd.rc = rect;
    if (row != kNone) {
        draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
        draw.nmcd.uItemState =
            (row == selected_ ? CDIS_SELECTED : 0U) | (focused_ && row == focusedRow_ ? CDIS_FOCUS : 0U);
        draw.nmcd.lItemlParam = items_.at(row).param;
        draw.iSubItem = column;
    }
    draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
    draw.clrTextBk = GetSysColor(COLOR_WINDOW);
    const int saved = SaveDC(dc);
    const LRESULT answer = send(NM_CUSTOMDRAW, draw);
    RestoreDC(dc, saved);
    return answer;
}

// Only rows in sight are painted, and of these only what is to be painted anew.
void ListView::paint(HDC dc) {
    const HWND window = window_;
    RECT client;
    GetClientRect(window, &client);
    if (!RectVisible(dc, &client)) {
        return;
    }
    const SelectedFont selected(dc, font_);
    const RECT rows = rowsRect();
    FillRect(dc, &rows, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(IsWindowEnabled(window) ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    const LRESULT answer = askDrawing(dc, CDDS_PREPAINT, client);
    if (!isAlive(window)) {
        return;
    }
    if ((answer & CDRF_SKIPDEFAULT) == 0) {
        const int saved = SaveDC(dc);
        IntersectClipRect(dc, rows.left, rows.top, rows.right, rows.bottom);
        const int end = top_ + page() + 1;
        for (int row = top_; row < end && items_.has(row); ++row) {
            const RECT rect = rowRect(row);
            if (!RectVisible(dc, &rect)) {
                continue;
            }
            if ((answer & CDRF_NOTIFYITEMDRAW) == 0) {
                paintRow(dc, row);
            } else if (!paintAskedRow(dc, row)) {
                return;
            }
        }
        RestoreDC(dc, saved);
    }
    bar_.paint(dc);
    wideBar_.paint(dc);
    if (bar_.isShown() && wideBar_.isShown()) {
        const RECT corner = {bar_.rect().left, bar_.rect().bottom, client.right, client.bottom};
        FillRect(dc, &corner, GetSysColorBrush(COLOR_BTNFACE));
    }
}

// Returns false when the window died.
bool ListView::paintAskedRow(HDC dc, int row) {
    const HWND window = window_;
    const LRESULT answer = askDrawing(dc, CDDS_ITEMPREPAINT, rowRect(row), row);
    const bool asks = (answer & CDRF_NOTIFYSUBITEMDRAW) != 0;
    for (int column = 0; (answer & CDRF_SKIPDEFAULT) == 0 && isAlive(window) && column < columnCount(); ++column) {
        const RECT rect = column == 0 ? rowRect(row) : cellRect(row, column);
        const LRESULT ofCell =
            asks && items_.has(row) ? askDrawing(dc, CDDS_ITEMPREPAINT | CDDS_SUBITEM, rect, row, column) : 0;
        if (isAlive(window) && items_.has(row) && (ofCell & CDRF_SKIPDEFAULT) == 0) {
            paintCell(dc, row, column);
        }
    }
    return isAlive(window);
}

void ListView::paintRow(HDC dc, int row) const {
    for (int column = 0; column < columnCount(); ++column) {
        paintCell(dc, row, column);
    }
}

void ListView::paintCell(HDC dc, int row, int column) const {
    if (column != 0) {
        drawText(dc, items_.text(row, column), cellRect(row, column));
        return;
    }
    const RECT room = boxRect(row);
    const UINT image = items_.at(row).state & LVIS_STATEIMAGEMASK;
    if (image != 0 && RectVisible(dc, &room)) {
        const LONG size = toScale(kBoxSize);
        const LONG top = room.top + (rowHeight_ - size) / 2;
        RECT box = {room.left, top, room.left + size, top + size};
        const int saved = SaveDC(dc);
        IntersectClipRect(dc, room.left, room.top, room.right, room.bottom);
        DrawFrameControl(dc, &box, DFC_BUTTON,
                         DFCS_BUTTONCHECK | DFCS_FLAT | (image == INDEXTOSTATEIMAGEMASK(2U) ? DFCS_CHECKED : 0U));
        RestoreDC(dc, saved);
    }
    paintLabel(dc, row);
}

void ListView::paintLabel(HDC dc, int row) const {
    if (row == editRow_ && edit_) {
        return;
    }
    const RECT highlight = selectRect(dc, row);
    const COLORREF before = GetTextColor(dc);
    if (row == selected_ && (focused_ || has(LVS_SHOWSELALWAYS))) {
        FillRect(dc, &highlight, GetSysColorBrush(focused_ ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
        SetTextColor(dc, GetSysColor(focused_ ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    }
    drawText(dc, items_.at(row).text, labelRect(row));
    SetTextColor(dc, before);
    if (focused_ && row == focusedRow_) {
        DrawFocusRect(dc, &highlight);
    }
}

}  // namespace platform
