// The controls' member functions as messages.

#include "framework/controls.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

namespace {

LPARAM TextParameter(LPCSTR text) {
    return reinterpret_cast<LPARAM>(text);
}
WPARAM IndexParameter(int index) {
    return static_cast<WPARAM>(index);
}

// An item's text by the messages that tell its length and copy it; empty when there is no such item.
CString ItemText(const CWnd& list, int index, UINT lengthMessage, UINT textMessage) {
    CString text;
    const int length = static_cast<int>(list.SendMessage(lengthMessage, IndexParameter(index)));
    if (length > 0) {
        const LPSTR buffer = text.GetBuffer(length + 1);
        list.SendMessage(textMessage, IndexParameter(index), TextParameter(buffer));
        text.ReleaseBuffer();
    }
    return text;
}

}  // namespace

int CButton::GetCheck() const {
    return static_cast<int>(SendMessage(BM_GETCHECK));
}
void CButton::SetCheck(int check) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}
void CEdit::SetSel(int start, int end, BOOL noScroll) {
    SendMessage(EM_SETSEL, IndexParameter(start), end);
    if (!noScroll) {
        SendMessage(EM_SCROLLCARET);
    }
}

void CEdit::SetLimitText(UINT maxLength) {
    SendMessage(EM_LIMITTEXT, maxLength);
}
int CEdit::LineLength(int line) const {
    return static_cast<int>(SendMessage(EM_LINELENGTH, IndexParameter(line)));
}
BOOL CEdit::SetReadOnly(BOOL readOnly) {
    return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)) != 0;
}
int CListBox::GetCurSel() const {
    return static_cast<int>(SendMessage(LB_GETCURSEL));
}
int CListBox::SetCurSel(int index) {
    return static_cast<int>(SendMessage(LB_SETCURSEL, IndexParameter(index)));
}
int CListBox::AddString(LPCSTR text) {
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, TextParameter(text)));
}
void CListBox::ResetContent() {
    SendMessage(LB_RESETCONTENT);
}
int CComboBox::GetCurSel() const {
    return static_cast<int>(SendMessage(CB_GETCURSEL));
}
int CComboBox::SetCurSel(int index) {
    return static_cast<int>(SendMessage(CB_SETCURSEL, IndexParameter(index)));
}
int CComboBox::AddString(LPCSTR text) {
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, TextParameter(text)));
}
void CComboBox::ResetContent() {
    SendMessage(CB_RESETCONTENT);
}
int CComboBox::FindString(int startAfter, LPCSTR text) const {
    return static_cast<int>(SendMessage(CB_FINDSTRING, IndexParameter(startAfter), TextParameter(text)));
}
int CComboBox::GetLBText(int index, LPSTR buffer) const {
    return static_cast<int>(SendMessage(CB_GETLBTEXT, IndexParameter(index), TextParameter(buffer)));
}
void CComboBox::GetLBText(int index, CString& text) const {
    text = ItemText(*this, index, CB_GETLBTEXTLEN, CB_GETLBTEXT);
}
int CComboBox::GetLBTextLen(int index) const {
    return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, IndexParameter(index)));
}
DWORD_PTR CComboBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, IndexParameter(index)));
}
int CComboBox::SetItemData(int index, DWORD_PTR data) {
    return static_cast<int>(SendMessage(CB_SETITEMDATA, IndexParameter(index), static_cast<LPARAM>(data)));
}
BOOL CComboBox::LimitText(int maxLength) {
    return SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(maxLength)) != 0;
}
BOOL CComboBox::SetEditSel(int start, int end) {
    return SendMessage(CB_SETEDITSEL, 0, MAKELONG(start, end)) != 0;
}
