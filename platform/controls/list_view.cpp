// Messages and notifications of list views.
#include "platform/controls/list_view.h"

#include "platform/controls/control_base.h"
#include "platform/window/builtin_classes.h"

namespace platform {

void registerListViewClass() {
    registerControlClass<ListView>(WC_LISTVIEWA, 0);
}

bool ListView::has(DWORD style) const {
    return (styleOf(window_) & style) != 0;
}

LRESULT ListView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (onRowMessage(message, wParam, lParam, result) || onColumnMessage(message, wParam, lParam, result) ||
        onPlaceMessage(message, wParam, lParam, result) || onInput(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
        case WM_CREATE:
            onWmCreate();
            return 0;
        case WM_DESTROY:
            onWmDestroy();
            return 0;
        case WM_SIZE:
            layout();
            return 0;
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam));
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SETREDRAW:
            onWmSetRedraw(wParam != 0);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_ENABLE:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_NOTIFY:
            return onWmNotify(*reinterpret_cast<const NMHDR*>(lParam));
        case WM_COMMAND:
            onEditCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

bool ListView::onRowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int row = static_cast<int>(wParam);
    auto* const item = reinterpret_cast<LVITEMA*>(lParam);
    switch (message) {
        case LVM_GETITEMCOUNT:
            result = items_.count();
            return true;
        case LVM_GETITEMA:
            result = onLvmGetItem(*item);
            return true;
        case LVM_SETITEMA:
            result = onLvmSetItem(*item);
            return true;
        case LVM_INSERTITEMA:
            result = onLvmInsertItem(*item);
            return true;
        case LVM_DELETEITEM:
            result = onLvmDeleteItem(row);
            return true;
        case LVM_DELETEALLITEMS:
            result = onLvmDeleteAllItems();
            return true;
        case LVM_GETITEMTEXTA:
            result = onLvmGetItemText(row, *item);
            return true;
        case LVM_SETITEMTEXTA:
            result = setText(row, item->iSubItem, item->pszText ? item->pszText : "");
            return true;
        case LVM_GETITEMSTATE:
            result = items_.has(row) ? static_cast<LRESULT>(items_.at(row).state & static_cast<UINT>(lParam)) : 0;
            return true;
        case LVM_SETITEMSTATE:
            result = onLvmSetItemState(row, item->state, item->stateMask);
            return true;
        case LVM_GETNEXTITEM:
            result = onLvmGetNextItem(row, static_cast<UINT>(lParam));
            return true;
        case LVM_SORTITEMS:
            result = onLvmSortItems(reinterpret_cast<PFNLVCOMPARE>(lParam), static_cast<LPARAM>(wParam));
            return true;
        case LVM_EDITLABELA:
            result = reinterpret_cast<LRESULT>(onLvmEditLabel(row));
            return true;
        case LVM_GETEDITCONTROL:
            result = reinterpret_cast<LRESULT>(edit_);
            return true;
        default:
            return false;
    }
}

bool ListView::onColumnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int column = static_cast<int>(wParam);
    switch (message) {
        case LVM_INSERTCOLUMNA:
            result = onLvmInsertColumn(column, *reinterpret_cast<const LVCOLUMNA*>(lParam));
            return true;
        case LVM_GETHEADER:
            result = reinterpret_cast<LRESULT>(header_);
            return true;
        case LVM_SETCOLUMNORDERARRAY:
            result = SendMessageA(header_, HDM_SETORDERARRAY, wParam, lParam);
            return true;
        case LVM_GETCOLUMNORDERARRAY:
            result = SendMessageA(header_, HDM_GETORDERARRAY, wParam, lParam);
            return true;
        case LVM_SETEXTENDEDLISTVIEWSTYLE:
            result = static_cast<LRESULT>(exStyle_);
            onLvmSetExtendedListViewStyle(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
            return true;
        default:
            return false;
    }
}

bool ListView::onPlaceMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int row = static_cast<int>(wParam);
    switch (message) {
        case LVM_GETITEMRECT:
            result = onLvmGetItemRect(row, *reinterpret_cast<RECT*>(lParam));
            return true;
        case LVM_GETSUBITEMRECT:
            result = onLvmGetSubItemRect(row, *reinterpret_cast<RECT*>(lParam));
            return true;
        case LVM_ENSUREVISIBLE:
            result = onLvmEnsureVisible(row, lParam != FALSE);
            return true;
        case LVM_GETTOPINDEX:
            result = top_;
            return true;
        case LVM_GETCOUNTPERPAGE:
            result = page();
            return true;
        default:
            return false;
    }
}

void ListView::onWmCreate() {
    SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(styleOf(window_) | WS_CLIPCHILDREN));
    header_ = CreateWindowExA(0, WC_HEADERA, "", WS_CHILD | WS_VISIBLE | HDS_BUTTONS | HDS_FULLDRAG, 0, 0, 0, 0,
                              window_, nullptr, nullptr, nullptr);
    measure();
}

void ListView::onWmDestroy() {
    edit_ = nullptr;
    tellAllDeleted();
}

void ListView::onWmSetFont(HFONT font) {
    font_ = font;
    SendMessageA(header_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    measure();
}

// What has changed meanwhile is laid out and painted when drawing is switched on again.
void ListView::onWmSetRedraw(bool redraw) {
    redraw_ = redraw;
    if (redraw) {
        layout();
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void ListView::onWmFocus(bool focused) {
    focused_ = focused;
    invalidateRow(selected_);
    invalidateRow(focusedRow_);
    notify(focused ? NM_SETFOCUS : NM_KILLFOCUS);
}

// From the header. Of what it tells, the parent hears what is below.
LRESULT ListView::onWmNotify(const NMHDR& header) {
    const auto* const change = reinterpret_cast<const NMHEADERA*>(&header);
    const HWND window = window_;
    if (header.hwndFrom != header_) {
        return 0;
    }
    switch (header.code) {
        case HDN_ITEMCHANGEDA:
            onHeaderChanged();
            return 0;
        case HDN_ITEMCLICKA: {
            // What is being typed belongs to the row as it is now.
            if (!endEdit(true)) {
                return 0;
            }
            NMLISTVIEW click{};
            click.iItem = kNone;
            click.iSubItem = change->iItem;
            send(LVN_COLUMNCLICK, click);
            break;
        }
        case HDN_DIVIDERDBLCLICKA:
            fitColumn(change->iItem);
            break;
        case HDN_ENDTRACKA:
        case HDN_BEGINDRAG:
        case HDN_ENDDRAG:
            break;
        default:
            return 0;
    }
    return isAlive(window)
               ? SendMessageA(GetParent(window), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header))
               : 0;
}

LRESULT ListView::notify(UINT code) const {
    NMHDR header{};
    return send(code, header);
}

LRESULT ListView::notifyRow(UINT code, int row) const {
    NMLISTVIEW change{};
    change.iItem = row;
    change.lParam = items_.has(row) ? items_.at(row).param : 0;
    return send(code, change);
}

LRESULT ListView::notifyChange(UINT code, int row, UINT changed, UINT oldState, UINT newState) const {
    NMLISTVIEW change{};
    change.iItem = row;
    change.uNewState = newState;
    change.uOldState = oldState;
    change.uChanged = changed;
    change.lParam = items_.at(row).param;
    return send(code, change);
}

LRESULT ListView::notifyClick(UINT code, POINT at) const {
    const Cell cell = cellAt(at);
    NMITEMACTIVATE click{};
    click.iItem = cell.row;
    click.iSubItem = cell.column;
    click.ptAction = at;
    return send(code, click);
}

}  // namespace platform
