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
    UINT GetState() const;
    void SetState(BOOL pressed);
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT style, BOOL redraw = TRUE);
};

class CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

public:
    // Positions count characters from 0; -1 as the end selects to the end. The caret is scrolled into view unless
    // noScroll says not to.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void GetSel(int& start, int& end) const;
    void ReplaceSel(LPCSTR text, BOOL canUndo = FALSE);
    void LimitText(int maxLength = 0);
    void SetLimitText(UINT maxLength);
    UINT GetLimitText() const;
    int LineLength(int line = -1) const;
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    BOOL GetModify() const;
    void SetModify(BOOL modified = TRUE);
};

class CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)

public:
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);
    int AddString(LPCSTR text);
    int InsertString(int index, LPCSTR text);
    void ResetContent();
    int GetText(int index, LPSTR buffer) const;
    void GetText(int index, CString& text) const;
};

// Indexes count from 0; the results are CB_ERR when there is no such item.
class CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

public:
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);
    int AddString(LPCSTR text);
    int InsertString(int index, LPCSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    // The first item after an index (wrapping around) that begins with, or is, the text.
    int FindString(int startAfter, LPCSTR text) const;
    int FindStringExact(int startAfter, LPCSTR text) const;
    int SelectString(int startAfter, LPCSTR text);
    int GetLBText(int index, LPSTR buffer) const;
    void GetLBText(int index, CString& text) const;
    int GetLBTextLen(int index) const;
    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);
    int SetItemHeight(int index, UINT height);
    int GetItemHeight(int index) const;
    BOOL LimitText(int maxLength);
    BOOL SetEditSel(int start, int end);
    void ShowDropDown(BOOL show = TRUE);
    BOOL GetDroppedState() const;
};

class CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)
};
