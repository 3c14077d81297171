// The common controls' member functions as messages.

#include "framework/common_controls.h"

#include <algorithm>
#include <vector>

#include "framework/controls.h"

IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CSliderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

namespace {

constexpr UINT kUncheckedImage = 1;
constexpr UINT kCheckedImage = 2;

WPARAM IndexParameter(int index) {
    return static_cast<WPARAM>(index);
}

template <typename Structure>
LPARAM PointerParameter(Structure* structure) {
    return reinterpret_cast<LPARAM>(structure);
}

}  // namespace

int CTabCtrl::GetCurSel() const {
    return static_cast<int>(SendMessage(TCM_GETCURSEL));
}
int CTabCtrl::SetCurSel(int index) {
    return static_cast<int>(SendMessage(TCM_SETCURSEL, IndexParameter(index)));
}
int CSliderCtrl::GetPos() const {
    return static_cast<int>(SendMessage(TBM_GETPOS));
}
void CSliderCtrl::SetPos(int position) {
    SendMessage(TBM_SETPOS, TRUE, position);
}
int CListCtrl::InsertColumn(int column, LPCSTR heading, int format, int width, int subItem) {
    LVCOLUMNA inserted = {};
    inserted.mask = LVCF_TEXT | LVCF_FMT;
    inserted.pszText = const_cast<LPSTR>(heading);
    inserted.fmt = format;
    if (width != -1) {
        inserted.mask |= LVCF_WIDTH;
        inserted.cx = width;
    }
    if (subItem != -1) {
        inserted.mask |= LVCF_SUBITEM;
        inserted.iSubItem = subItem;
    }
    return static_cast<int>(SendMessage(LVM_INSERTCOLUMNA, IndexParameter(column), PointerParameter(&inserted)));
}

BOOL CListCtrl::GetColumnOrderArray(LPINT order, int count) const {
    return SendMessage(LVM_GETCOLUMNORDERARRAY, IndexParameter(count), PointerParameter(order)) != 0;
}
BOOL CListCtrl::SetColumnOrderArray(int count, LPINT order) {
    return SendMessage(LVM_SETCOLUMNORDERARRAY, IndexParameter(count), PointerParameter(order)) != 0;
}
DWORD CListCtrl::SetExtendedStyle(DWORD style) {
    return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style)));
}

int CListCtrl::GetItemCount() const {
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

int CListCtrl::InsertItem(int item, LPCSTR text) {
    LVITEMA inserted = {};
    inserted.mask = LVIF_TEXT;
    inserted.iItem = item;
    inserted.pszText = const_cast<LPSTR>(text);
    return static_cast<int>(SendMessage(LVM_INSERTITEMA, 0, PointerParameter(&inserted)));
}

BOOL CListCtrl::DeleteAllItems() {
    return SendMessage(LVM_DELETEALLITEMS) != 0;
}

// The message does not say how long a text is: the buffer grows until it holds all of it.
CString CListCtrl::GetItemText(int item, int subItem) const {
    std::vector<char> buffer(64);
    for (;;) {
        LVITEMA read = {};
        read.iSubItem = subItem;
        read.pszText = buffer.data();
        read.cchTextMax = static_cast<int>(buffer.size());
        buffer.front() = '\0';
        const auto length = static_cast<size_t>(
            std::max<LRESULT>(SendMessage(LVM_GETITEMTEXTA, IndexParameter(item), PointerParameter(&read)), 0));
        if (length + 1 < buffer.size()) {
            return {read.pszText, static_cast<int>(length)};
        }
        buffer.resize(2 * buffer.size());
    }
}

BOOL CListCtrl::SetItemText(int item, int subItem, LPCSTR text) {
    LVITEMA changed = {};
    changed.iSubItem = subItem;
    changed.pszText = const_cast<LPSTR>(text);
    return SendMessage(LVM_SETITEMTEXTA, IndexParameter(item), PointerParameter(&changed)) != 0;
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
    LVITEMA read = {};
    read.mask = LVIF_PARAM;
    read.iItem = item;
    SendMessage(LVM_GETITEMA, 0, PointerParameter(&read));
    return static_cast<DWORD_PTR>(read.lParam);
}

BOOL CListCtrl::SetItemData(int item, DWORD_PTR data) {
    LVITEMA changed = {};
    changed.mask = LVIF_PARAM;
    changed.iItem = item;
    changed.lParam = static_cast<LPARAM>(data);
    return SendMessage(LVM_SETITEMA, 0, PointerParameter(&changed)) != 0;
}

BOOL CListCtrl::SetItemState(int item, UINT state, UINT mask) {
    LVITEMA changed = {};
    changed.state = state;
    changed.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, IndexParameter(item), PointerParameter(&changed)) != 0;
}

BOOL CListCtrl::GetCheck(int item) const {
    const LRESULT state = SendMessage(LVM_GETITEMSTATE, IndexParameter(item), LVIS_STATEIMAGEMASK);
    return state == static_cast<LRESULT>(INDEXTOSTATEIMAGEMASK(kCheckedImage));
}

BOOL CListCtrl::SetCheck(int item, BOOL check) {
    return SetItemState(item, INDEXTOSTATEIMAGEMASK(check ? kCheckedImage : kUncheckedImage), LVIS_STATEIMAGEMASK);
}

int CListCtrl::GetNextItem(int item, int flags) const {
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, IndexParameter(item), flags));
}
BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, DWORD_PTR argument) {
    return SendMessage(LVM_SORTITEMS, argument, reinterpret_cast<LPARAM>(compare)) != 0;
}
BOOL CListCtrl::EnsureVisible(int item, BOOL partlyIsEnough) {
    return SendMessage(LVM_ENSUREVISIBLE, IndexParameter(item), partlyIsEnough) != 0;
}

BOOL CListCtrl::GetItemRect(int item, RECT* rect, UINT area) const {
    rect->left = static_cast<LONG>(area);
    return SendMessage(LVM_GETITEMRECT, IndexParameter(item), PointerParameter(rect)) != 0;
}

BOOL CListCtrl::GetSubItemRect(int item, int subItem, int area, CRect& rect) const {
    rect.left = area;
    rect.top = subItem;
    return SendMessage(LVM_GETSUBITEMRECT, IndexParameter(item), PointerParameter<RECT>(&rect)) != 0;
}

// The windows' class makes the temporary objects edits.
CEdit* CListCtrl::EditLabel(int item) {
    return static_cast<CEdit*>(FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELA, IndexParameter(item)))));
}
CEdit* CListCtrl::GetEditControl() const {
    return static_cast<CEdit*>(FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETEDITCONTROL))));
}

void AfxInitCommonControls() {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
}
