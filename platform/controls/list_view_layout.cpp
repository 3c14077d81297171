// Where the parts of a list view are, and what of its rows is in view.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_parts.h"
#include "platform/graphics/scale.h"

#include <algorithm>
#include <limits>

namespace platform {
namespace {

constexpr int kWideLine = 6;  // Pixels at 96 dots an inch by which an arrow scrolls sideways.

}  // namespace

void ListView::measure() {
    const WindowDc dc(window_);
    TEXTMETRICA metrics;
    {
        const SelectedFont selected(dc, font_);
        GetTextMetricsA(dc, &metrics);
    }
    textHeight_ = metrics.tmHeight;
    rowHeight_ = std::max(textHeight_, hasCheckBoxes() ? toScale(kBoxSize) + 1 : 1);
    RECT around = {0, 0, 0, std::numeric_limits<LONG>::max()};
    WINDOWPOS head{};
    HDLAYOUT layoutOfHead = {&around, &head};
    SendMessageA(header_, HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layoutOfHead));
    headHeight_ = head.cy;
    layout();
    InvalidateRect(window_, nullptr, FALSE);
}

// Each bar leaves less room for what the other one scrolls.
void ListView::layout() {
    RECT client;
    GetClientRect(window_, &client);
    const int width = contentWidth_;
    const POINT scrolledBefore = {left_, top_};
    const RECT nothing = {client.right, client.bottom, client.right, client.bottom};
    bool isWide = width > client.right;
    int shown = 0;
    const auto layOutBar = [&] {
        RECT room = client;
        room.bottom -= isWide ? GetSystemMetrics(SM_CYHSCROLL) : 0;
        shown = std::max(static_cast<int>(room.bottom - headHeight_) / rowHeight_, 1);
        bar_.layout(room, items_.count(), shown, top_, false);
    };
    layOutBar();
    if (!isWide && width > bar_.rect().left) {
        isWide = true;
        layOutBar();
    }
    top_ = std::clamp(top_, 0, std::max(items_.count() - shown, 0));
    layOutBar();
    const RECT room = {0, 0, bar_.rect().left, client.bottom};
    left_ = std::clamp(left_, 0, std::max(width - static_cast<int>(room.right), 0));
    wideBar_.layout(isWide ? room : nothing, isWide ? width : 0, room.right, left_, false, toScale(kWideLine));
    SetWindowPos(header_, nullptr, -left_, 0, room.right + left_, headHeight_, SWP_NOZORDER | SWP_NOACTIVATE);
    const RECT corner = {bar_.rect().left, wideBar_.rect().top, client.right, client.bottom};
    for (const RECT& beside : {bar_.rect(), wideBar_.rect(), corner}) {
        InvalidateRect(window_, &beside, FALSE);
    }
    if (left_ != scrolledBefore.x || top_ != scrolledBefore.y) {
        invalidateRows();
    }
}

RECT ListView::rowsRect() const {
    RECT rect;
    GetClientRect(window_, &rect);
    rect.top = std::min(static_cast<LONG>(headHeight_), rect.bottom);
    if (bar_.isShown()) {
        rect.right = bar_.rect().left;
    }
    if (wideBar_.isShown()) {
        rect.bottom = std::max(rect.top, wideBar_.rect().top);
    }
    return rect;
}

int ListView::page() const {
    const RECT rows = rowsRect();
    return std::max(static_cast<int>(rows.bottom - rows.top) / rowHeight_, 1);
}

// Over all columns.
RECT ListView::rowRect(int row) const {
    const int top = headHeight_ + (row - top_) * rowHeight_;
    return {-left_, top, contentWidth_ - left_, top + rowHeight_};
}

RECT ListView::cellRect(int row, int column) const {
    RECT rect = rowRect(row);
    const Across across = hasColumn(column) ? columns_[static_cast<std::size_t>(column)] : Across{};
    rect.left = across.left - left_;
    rect.right = across.right - left_;
    return rect;
}

RECT ListView::labelRect(int row) const {
    RECT rect = cellRect(row, 0);
    rect.left = std::min(rect.right, rect.left + toScale(kRowMargin) + (hasCheckBoxes() ? toScale(kBoxSize) : 0));
    return rect;
}

// The check box as far as its column goes.
RECT ListView::boxRect(int row) const {
    RECT rect = cellRect(row, 0);
    const LONG left = rect.left + toScale(kRowMargin);
    rect.right = std::min(rect.right, hasCheckBoxes() ? left + toScale(kBoxSize) : left);
    rect.left = std::min(rect.right, left);
    return rect;
}

// The label as far as its text goes.
RECT ListView::selectRect(HDC dc, int row) const {
    const std::string& text = items_.at(row).text;
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    RECT rect = labelRect(row);
    rect.right = std::min(rect.right, rect.left + size.cx + 2 * toScale(kCellPadding));
    return rect;
}

// The part that is wanted stands in rect.left.
bool ListView::onLvmGetItemRect(int row, RECT& rect) const {
    if (!items_.has(row)) {
        return false;
    }
    switch (rect.left) {
        case LVIR_BOUNDS:
            rect = rowRect(row);
            return true;
        case LVIR_LABEL:
            rect = labelRect(row);
            return true;
        case LVIR_SELECTBOUNDS: {
            const WindowDc dc(window_);
            {
                const SelectedFont selected(dc, font_);
                rect = selectRect(dc, row);
            }
            return true;
        }
        default:
            return false;
    }
}

// The column stands in rect.top. The bounds of the first one are those of the whole row.
bool ListView::onLvmGetSubItemRect(int row, RECT& rect) const {
    const int column = rect.top;
    if (column == 0) {
        return onLvmGetItemRect(row, rect);
    }
    if (!items_.has(row) || !hasColumn(column)) {
        return false;
    }
    rect = cellRect(row, column);
    return true;
}

ListView::Cell ListView::rowAt(POINT at) const {
    const RECT rows = rowsRect();
    Cell hit;
    hit.column = 0;
    const int row = top_ + static_cast<int>(at.y - rows.top) / rowHeight_;
    if (!PtInRect(&rows, at) || !items_.has(row)) {
        return hit;
    }
    const RECT label = labelRect(row);
    const RECT box = boxRect(row);
    if (PtInRect(&label, at)) {
        hit.row = row;
        hit.flags = LVHT_ONITEMLABEL;
    } else if (PtInRect(&box, at)) {
        hit.row = row;
        hit.flags = LVHT_ONITEMSTATEICON;
    }
    return hit;
}

ListView::Cell ListView::cellAt(POINT at) const {
    const RECT rows = rowsRect();
    Cell hit;
    const auto isMet = [&](const Across& across) { return at.x + left_ >= across.left && at.x + left_ < across.right; };
    if (const auto met = std::find_if(columns_.begin(), columns_.end(), isMet); met != columns_.end()) {
        hit.column = static_cast<int>(met - columns_.begin());
    }
    const int row = top_ + static_cast<int>(at.y - rows.top) / rowHeight_;
    if (hit.column != kNone && PtInRect(&rows, at) && items_.has(row)) {
        hit.row = row;
    }
    return hit;
}

bool ListView::onLvmEnsureVisible(int row, bool partly) {
    if (!items_.has(row)) {
        return false;
    }
    const RECT rows = rowsRect();
    const int wholeRows = page();
    const bool peeps = partly && row == top_ + wholeRows && (rows.bottom - rows.top) % rowHeight_ != 0;
    if (row < top_) {
        scrollTo(row, left_);
    } else if (row >= top_ + wholeRows && !peeps) {
        scrollTo(row - wholeRows + 1, left_);
    }
    return true;
}

// A label edit would stay where its row no longer is, so it ends first.
void ListView::scrollTo(int top, int left) {
    const RECT rows = rowsRect();
    const int oldTop = top_;
    const int oldLeft = left_;
    const auto limited = [&] {
        top = std::clamp(top, 0, std::max(items_.count() - page(), 0));
        left = std::clamp(left, 0, std::max(contentWidth_ - static_cast<int>(rows.right), 0));
    };
    limited();
    if ((top == oldTop && left == oldLeft) || !endEdit(true)) {
        return;
    }
    limited();
    top_ = top;
    left_ = left;
    if (redraw_) {
        layout();
        invalidateRows();
    }
}

void ListView::invalidateRow(int row) const {
    if (redraw_ && row >= top_ && items_.has(row)) {
        RECT rect = rowsRect();
        rect.top = headHeight_ + (row - top_) * rowHeight_;
        rect.bottom = std::min(rect.bottom, rect.top + rowHeight_);
        if (rect.top < rect.bottom) {
            InvalidateRect(window_, &rect, FALSE);
        }
    }
}

// From that row to the end of the view.
void ListView::invalidateRows(int from) const {
    if (!redraw_) {
        return;
    }
    RECT rect = rowsRect();
    const int rowsAbove = std::clamp(from - top_, 0, page() + 1);
    rect.top = std::min(rect.bottom, rect.top + rowsAbove * rowHeight_);
    if (rect.top < rect.bottom) {
        InvalidateRect(window_, &rect, FALSE);
    }
}

}  // namespace platform
