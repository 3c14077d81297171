// Rows that come, go, change and are sorted.
#include "platform/controls/list_view.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

// Where a row is after another one has come or gone.
int shifted(int row, int from, int by) {
    return row >= from ? row + by : row;
}

// Copies what fits. Returns the length of what was copied.
int copyText(const std::string& text, LPSTR buffer, int room) {
    if (!buffer || room <= 0) {
        return 0;
    }
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(room - 1));
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}

}  // namespace

int ListView::onLvmInsertItem(const LVITEMA& item) {
    if (item.iItem < 0 || item.iSubItem != 0) {
        return kNone;
    }
    const int row = std::min(item.iItem, items_.count());
    Row content;
    if ((item.mask & LVIF_TEXT) != 0 && item.pszText) {
        content.text = item.pszText;
    }
    content.param = (item.mask & LVIF_PARAM) != 0 ? item.lParam : 0;
    content.state = hasCheckBoxes() ? INDEXTOSTATEIMAGEMASK(1U) : 0U;
    items_.insert(row, std::move(content));
    selected_ = shifted(selected_, row, 1);
    focusedRow_ = shifted(focusedRow_, row, 1);
    editRow_ = shifted(editRow_, row, 1);
    editable_ = kNone;
    if (redraw_) {
        layout();
        invalidateRows(row);
    }
    const HWND window = window_;
    notifyRow(LVN_INSERTITEM, row);
    return isAlive(window) ? row : kNone;
}

bool ListView::onLvmGetItem(LVITEMA& item) const {
    if (!items_.has(item.iItem)) {
        return false;
    }
    if ((item.mask & LVIF_TEXT) != 0) {
        copyText(items_.text(item.iItem, item.iSubItem), item.pszText, item.cchTextMax);
    }
    if ((item.mask & LVIF_PARAM) != 0) {
        item.lParam = items_.at(item.iItem).param;
    }
    if ((item.mask & LVIF_STATE) != 0) {
        item.state = items_.at(item.iItem).state & item.stateMask;
    }
    return true;
}

bool ListView::onLvmSetItem(const LVITEMA& item) {
    const HWND window = window_;
    if (!items_.has(item.iItem)) {
        return false;
    }
    if ((item.mask & LVIF_TEXT) != 0 && !setText(item.iItem, item.iSubItem, item.pszText ? item.pszText : "")) {
        return false;
    }
    if ((item.mask & LVIF_PARAM) == 0) {
        return true;
    }
    if (notifyChange(LVN_ITEMCHANGING, item.iItem, LVIF_PARAM) || !isAlive(window) || !items_.has(item.iItem)) {
        return false;
    }
    if (items_.at(item.iItem).param != item.lParam) {
        items_.at(item.iItem).param = item.lParam;
        notifyChange(LVN_ITEMCHANGED, item.iItem, LVIF_PARAM);
    }
    return true;
}

int ListView::onLvmGetItemText(int row, LVITEMA& item) const {
    return items_.has(row) && item.iSubItem >= 0
               ? copyText(items_.text(row, item.iSubItem), item.pszText, item.cchTextMax)
               : 0;
}

// Of the first column alone the parent hears.
bool ListView::setText(int row, int column, const std::string& text) {
    if (!items_.has(row) || !hasColumn(column)) {
        return false;
    }
    const HWND window = window_;
    if (column == 0 && notifyChange(LVN_ITEMCHANGING, row, LVIF_TEXT)) {
        return false;
    }
    if (!isAlive(window) || !items_.has(row)) {
        return false;
    }
    if (items_.text(row, column) != text) {
        items_.setText(row, column, text);
        invalidateRow(row);
        if (column == 0) {
            notifyChange(LVN_ITEMCHANGED, row, LVIF_TEXT);
        }
    }
    return true;
}

bool ListView::onLvmDeleteItem(int row) {
    if (!items_.has(row)) {
        return false;
    }
    if (row == editRow_ && !endEdit(false)) {
        return false;
    }
    const HWND window = window_;
    const bool hadFocus = row == focusedRow_;
    setState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (!isAlive(window) || !items_.has(row)) {
        return false;
    }
    notifyRow(LVN_DELETEITEM, row);
    if (!isAlive(window) || !items_.has(row)) {
        return false;
    }
    items_.remove(row);
    selected_ = shifted(selected_ == row ? int{kNone} : selected_, row, -1);
    focusedRow_ = shifted(focusedRow_ == row ? int{kNone} : focusedRow_, row, -1);
    editRow_ = shifted(editRow_, row, -1);
    editable_ = kNone;
    if (hadFocus && items_.count() > 0) {
        focusedRow_ = std::min(row, items_.count() - 1);
        items_.at(focusedRow_).state |= LVIS_FOCUSED;
    }
    if (redraw_) {
        layout();
        invalidateRows(row);
        invalidateRow(focusedRow_);
        placeEdit();
    }
    return true;
}

void ListView::tellAllDeleted() {
    const HWND window = window_;
    const bool quietly = notifyRow(LVN_DELETEALLITEMS, kNone) != 0;
    for (int last = isAlive(window) && !quietly ? items_.count() - 1 : kNone; last >= 0; --last) {
        notifyRow(LVN_DELETEITEM, last);
        if (!isAlive(window)) {
            return;
        }
        if (items_.has(last)) {
            items_.remove(last);
        }
    }
    if (isAlive(window)) {
        items_.clear();
    }
}

bool ListView::onLvmDeleteAllItems() {
    const HWND window = window_;
    if (!endEdit(false)) {
        return false;
    }
    selected_ = focusedRow_ = editable_ = kNone;
    tellAllDeleted();
    if (isAlive(window) && redraw_) {
        layout();
        invalidateRows();
    }
    return true;
}

bool ListView::onLvmSortItems(PFNLVCOMPARE compare, LPARAM argument) {
    const HWND window = window_;
    if (!compare || !endEdit(true)) {
        return false;
    }
    const std::vector<int> order = items_.sorted(compare, argument);
    // A callback that changed the list has made the order worthless.
    if (!isAlive(window) || order.size() != static_cast<std::size_t>(items_.count())) {
        return false;
    }
    const auto placeOf = [&](int row) {
        const auto found = std::find(order.begin(), order.end(), row);
        return found != order.end() ? static_cast<int>(found - order.begin()) : int{kNone};
    };
    items_.reorder(order);
    selected_ = placeOf(selected_);
    focusedRow_ = placeOf(focusedRow_);
    editable_ = kNone;
    invalidateRows();
    return true;
}

int ListView::onLvmGetNextItem(int after, UINT flags) const {
    if ((flags & (LVNI_SELECTED | LVNI_FOCUSED)) == 0) {
        return items_.has(after + 1) ? after + 1 : kNone;
    }
    const int found = (flags & LVNI_SELECTED) != 0 ? selected_ : focusedRow_;
    const bool isBoth = (flags & LVNI_SELECTED) == 0 || (flags & LVNI_FOCUSED) == 0 || selected_ == focusedRow_;
    return found > after && isBoth ? found : kNone;
}

}  // namespace platform
