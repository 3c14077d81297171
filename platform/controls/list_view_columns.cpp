// The columns of a list view, which its header keeps.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_parts.h"

#include <algorithm>

namespace platform {

int ListView::onLvmInsertColumn(int index, const LVCOLUMNA& column) {
    HDITEMA head{};
    head.mask = ((column.mask & LVCF_TEXT) != 0 ? HDI_TEXT : 0U) | ((column.mask & LVCF_WIDTH) != 0 ? HDI_WIDTH : 0U);
    head.pszText = column.pszText;
    head.cxy = column.cx;
    const int count = columnCount();
    const int inserted = static_cast<int>(
        SendMessageA(header_, HDM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&head)));
    if (inserted != kNone) {
        if (inserted < count) {
            items_.insertColumn(inserted);
        }
        onHeaderChanged();
    }
    return inserted;
}

// Asked once, not for each row that is painted.
void ListView::onHeaderChanged() {
    if (!endEdit(true)) {
        return;
    }
    columns_.resize(static_cast<std::size_t>(SendMessageA(header_, HDM_GETITEMCOUNT, 0, 0)));
    contentWidth_ = 0;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        RECT rect{};
        SendMessageA(header_, HDM_GETITEMRECT, column, reinterpret_cast<LPARAM>(&rect));
        columns_[column] = {rect.left, rect.right};
        contentWidth_ = std::max(contentWidth_, static_cast<int>(rect.right));
    }
    layout();
    invalidateRows();
}

// As wide as its widest text.
void ListView::fitColumn(int column) {
    int widest = 0;
    const WindowDc dc(window_);
    {
        const SelectedFont selected(dc, font_);
        for (int row = 0; row < items_.count(); ++row) {
            const std::string& text = items_.text(row, column);
            SIZE size{};
            GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
            widest = std::max(widest, static_cast<int>(size.cx));
        }
    }
    const int beside = column != 0 ? 0 : kRowMargin + (hasCheckBoxes() ? kBoxSize : 0);
    HDITEMA head{};
    head.mask = HDI_WIDTH;
    head.cxy = beside + widest + 2 * kCellPadding;
    SendMessageA(header_, HDM_SETITEMA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&head));
}

}  // namespace platform
