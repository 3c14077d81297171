// The common controls as objects: the tab control of a sheet, the track bar, the list view.
// Deliberately missing: messages that nobody above the framework sends.
#pragma once

#include "framework/window.h"

class CEdit;

class CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)

public:
    int GetCurSel() const;
    int SetCurSel(int index);
};

// Of 0 to 100.
class CSliderCtrl : public CWnd {
    DECLARE_DYNAMIC(CSliderCtrl)

public:
    int GetPos() const;
    // The nearest position in the range; the bar is drawn anew and tells nobody.
    void SetPos(int position);
};

// Rows (items) and columns (sub-items) count from 0; column 0 holds the labels. What names a row or column that does
// not exist fails: with -1 where an index is returned, else with FALSE or an empty text.
class CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)

public:
    // The width is in pixels; -1 leaves it to the control.
    int InsertColumn(int column, LPCSTR heading, int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    // The columns from the left, by their indexes.
    BOOL GetColumnOrderArray(LPINT order, int count) const;
    BOOL SetColumnOrderArray(int count, LPINT order);
    // LVS_EX_ styles; returns the former ones.
    DWORD SetExtendedStyle(DWORD style);

    int GetItemCount() const;
    int InsertItem(int item, LPCSTR text);
    BOOL DeleteAllItems();
    CString GetItemText(int item, int subItem) const;
    BOOL SetItemText(int item, int subItem, LPCSTR text);
    DWORD_PTR GetItemData(int item) const;
    BOOL SetItemData(int item, DWORD_PTR data);
    // The bits of the mask; -1 stands for all items.
    BOOL SetItemState(int item, UINT state, UINT mask);
    BOOL GetCheck(int item) const;
    BOOL SetCheck(int item, BOOL check = TRUE);
    // The next item after one (-1 for the first) for which the LVNI_ flags hold.
    int GetNextItem(int item, int flags) const;
    // Sorts by a comparison of two items' data, which is given the argument as well.
    BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR argument);

    BOOL EnsureVisible(int item, BOOL partlyIsEnough);
    // LVIR_ areas, in client coordinates.
    BOOL GetItemRect(int item, RECT* rect, UINT area) const;
    BOOL GetSubItemRect(int item, int subItem, int area, CRect& rect) const;

    // Begins the edit of an item's label; null when it is refused.
    CEdit* EditLabel(int item);
    // The edit while a label is edited, else null.
    CEdit* GetEditControl() const;
};

// Makes the window classes of those common controls known that a dialog template may name.
void AfxInitCommonControls();
