// Cancelled picks.
#include "core/opened_list.h"

namespace {

int SelectionOf(HWND combo) {
    return static_cast<int>(::SendMessageA(combo, CB_GETCURSEL, 0, 0));
}

bool HasEditField(HWND combo) {
    constexpr LONG_PTR kKind = CBS_DROPDOWNLIST;
    return (::GetWindowLongPtrA(combo, GWL_STYLE) & kKind) == CBS_DROPDOWN;
}

}  // namespace

void COpenedList::Remember(HWND combo) {
    m_combo = combo;
    m_nSelection = SelectionOf(combo);
    m_strText.Empty();
    if (HasEditField(combo)) {
        CWnd::FromHandle(combo)->GetWindowText(m_strText);
    }
}

void COpenedList::PutBack(HWND combo) {
    if (combo != m_combo) {
        return;
    }
    if (SelectionOf(combo) != m_nSelection) {
        ::SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(m_nSelection), 0);
    }
    if (HasEditField(combo)) {
        AfxSetWindowText(combo, m_strText);
    }
    Forget();
}
