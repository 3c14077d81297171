// Cancelled picks.
#include "core/opened_list.h"

#include <utility>

namespace {

int SelectionOf(HWND combo) {
    return static_cast<int>(::SendMessageA(combo, CB_GETCURSEL, 0, 0));
}

bool HasEditField(HWND combo) {
    constexpr LONG_PTR kKind = CBS_DROPDOWNLIST;
    return (::GetWindowLongPtrA(combo, GWL_STYLE) & kKind) == CBS_DROPDOWN;
}

}  // namespace

void COpenedList::OnOpened(HWND combo) {
    m_open = combo;
    m_confirmed = nullptr;
    m_nSelection = SelectionOf(combo);
    m_strText.Empty();
    if (HasEditField(combo)) {
        CWnd::FromHandle(combo)->GetWindowText(m_strText);
    }
}

void COpenedList::OnConfirmed(HWND combo) {
    m_confirmed = std::exchange(m_open, nullptr) == combo ? combo : nullptr;
}

void COpenedList::OnCancelled(HWND combo) {
    if (std::exchange(m_open, nullptr) != combo) {
        return;
    }
    if (SelectionOf(combo) != m_nSelection) {
        ::SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(m_nSelection), 0);
    }
    if (HasEditField(combo)) {
        AfxSetWindowText(combo, m_strText);
    }
}

void COpenedList::OnClosed(HWND combo) {
    if (std::exchange(m_confirmed, nullptr) != combo || !HasEditField(combo)) {
        return;
    }
    const int selection = SelectionOf(combo);
    if (selection >= 0) {
        CString entry;
        static_cast<CComboBox*>(CWnd::FromHandle(combo))->GetLBText(selection, entry);
        AfxSetWindowText(combo, entry);
    }
}
