// Selection, focus and check marks of rows.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"

namespace platform {
namespace {

constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1U);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2U);

}  // namespace

// -1 for all rows, of which no more than one can be selected.
bool ListView::onLvmSetItemState(int row, UINT state, UINT mask) {
    if (row != kNone) {
        return setState(row, state, mask);
    }
    if ((state & mask & LVIS_SELECTED) != 0) {
        return false;
    }
    const HWND window = window_;
    for (int each = 0; isAlive(window) && each < items_.count(); ++each) {
        setState(each, state, mask);
    }
    return true;
}

// A row that gets the selection or the focus takes it from the one that has it. The focus is taken from that row even
// when it is the same one, as observed.
bool ListView::setState(int row, UINT state, UINT mask) {
    if (!items_.has(row)) {
        return false;
    }
    const HWND window = window_;
    const auto exists = [&] { return isAlive(window) && items_.has(row); };
    mask &= LVIS_SELECTED | LVIS_FOCUSED | LVIS_STATEIMAGEMASK;
    const UINT before = items_.at(row).state;
    const UINT after = (before & ~mask) | (state & mask);
    if (notifyChange(LVN_ITEMCHANGING, row, LVIF_STATE, before, after) || !exists()) {
        return false;
    }
    if (after == before) {
        return true;
    }
    items_.at(row).state = after;
    if ((mask & LVIS_SELECTED) != 0) {
        if ((after & LVIS_SELECTED) != 0 && selected_ != kNone && selected_ != row) {
            setState(selected_, 0, LVIS_SELECTED);
        }
        if (!exists()) {
            return false;
        }
        selected_ = (after & LVIS_SELECTED) != 0 ? row : selected_ == row ? int{kNone} : selected_;
    }
    if ((mask & LVIS_FOCUSED) != 0) {
        if ((after & LVIS_FOCUSED) != 0 && focusedRow_ != kNone) {
            setState(focusedRow_, 0, LVIS_FOCUSED);
        }
        if (!exists()) {
            return false;
        }
        focusedRow_ = (after & LVIS_FOCUSED) != 0 ? row : focusedRow_ == row ? int{kNone} : focusedRow_;
        items_.at(row).state = after;
    }
    invalidateRow(row);
    notifyChange(LVN_ITEMCHANGED, row, LVIF_STATE, before, after);
    return true;
}

bool ListView::deselect(int row) {
    const HWND window = window_;
    if (row != kNone) {
        setState(row, 0, LVIS_SELECTED);
    }
    return isAlive(window);
}

bool ListView::selectAlone(int row) {
    const HWND window = window_;
    if (selected_ != row && !deselect(selected_)) {
        return false;
    }
    setState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return isAlive(window);
}

void ListView::toggleCheck(int row) {
    if (items_.has(row)) {
        const bool checked = (items_.at(row).state & LVIS_STATEIMAGEMASK) == kChecked;
        setState(row, checked ? kUnchecked : kChecked, LVIS_STATEIMAGEMASK);
    }
}

// A mask of 0 stands for all bits.
void ListView::onLvmSetExtendedListViewStyle(DWORD mask, DWORD style) {
    const bool hadCheckBoxes = hasCheckBoxes();
    exStyle_ = mask != 0 ? (exStyle_ & ~mask) | (style & mask) : style;
    const DWORD dragging = (exStyle_ & LVS_EX_HEADERDRAGDROP) != 0 ? HDS_DRAGDROP : 0U;
    SetWindowLongA(header_, GWL_STYLE, static_cast<LONG>((styleOf(header_) & ~DWORD{HDS_DRAGDROP}) | dragging));
    if (hadCheckBoxes == hasCheckBoxes()) {
        return;
    }
    for (int row = 0; row < items_.count(); ++row) {
        UINT& state = items_.at(row).state;
        state = (state & ~UINT{LVIS_STATEIMAGEMASK}) | (hasCheckBoxes() ? kUnchecked : 0U);
    }
    measure();
}

}  // namespace platform
