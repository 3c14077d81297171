// The system's standard controls as objects: the messages of each under the names of member functions.
// Deliberately missing: messages that nobody above the framework sends.
#pragma once

#include "framework/window.h"

class CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)
};

class CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

public:
    int GetCheck() const;
    void SetCheck(int check);
};

class CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

public:
    // Positions count characters from 0; -1 as the end selects to the end. The caret is scrolled into view unless
    // noScroll says not to.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void SetLimitText(UINT maxLength);
    int LineLength(int line = -1) const;
    BOOL SetReadOnly(BOOL readOnly = TRUE);
};

class CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)

public:
    int GetCurSel() const;
    int SetCurSel(int index);
    int AddString(LPCSTR text);
    void ResetContent();
};

// Indexes count from 0; the results are CB_ERR when there is no such item.
class CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

public:
    int GetCurSel() const;
    int SetCurSel(int index);
    int AddString(LPCSTR text);
    void ResetContent();
    // The first item after an index (wrapping around) that begins with the text.
    int FindString(int startAfter, LPCSTR text) const;
    int GetLBText(int index, LPSTR buffer) const;
    void GetLBText(int index, CString& text) const;
    int GetLBTextLen(int index) const;
    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);
    BOOL LimitText(int maxLength);
    BOOL SetEditSel(int start, int end);
};

class CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)
};
