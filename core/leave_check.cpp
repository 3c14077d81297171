// The check of fields as they are left.
#include "core/leave_check.h"

#include <utility>

namespace {

CString TextOf(HWND window) {
    CString text;
    CWnd::FromHandle(window)->GetWindowText(text);
    return text;
}

// A window that reads so is taken for the sheet's button and is not checked. A field with just this text is therefore
// left unchecked, and unrecorded, by Enter.
constexpr LPCSTR kOkCaption = "OK";

// The texts of the button that discards everything.
constexpr LPCSTR kCancelCaptions[] = {"Avbryt", "Cancel"};

// Makes an edit or combo box notify its parent as if it lost the focus, which runs its check now.
void SendKillFocus(HWND field) {
    ::SendMessageA(field, WM_KILLFOCUS, 0, 0);
}

}  // namespace

CLeaveCheck::CLeaveCheck(CWnd& window) : m_window(window) {
    Begin();
}

void CLeaveCheck::Begin() {
    m_bCancelled = false;
    m_bFieldCheckOk = 1;
    m_pLastEditControl = CWnd::GetActiveWindow();
    if (m_pLastEditControl == nullptr) {
        // A host without an active window is not a forced check.
        m_pLastEditControl = &m_window;
    }
}

int CLeaveCheck::IsCancelPending() const {
    return IsCheckPostponed() || m_bFieldCheckOk == 0 ? 1 : 0;
}

bool CLeaveCheck::IsCheckPostponed() const {
    if (m_bCancelled || m_bChecking) {
        return true;
    }
    if (const HWND focus = ::GetFocus()) {
        const CString text = TextOf(focus);
        for (LPCSTR caption : kCancelCaptions) {
            if (text == caption) {
                return true;
            }
        }
    }
    return false;
}

BOOL CLeaveCheck::MayLeave() {
    if (const HWND focus = ::GetFocus()) {
        const HWND parent = ::GetParent(focus);
        // The focus is in a field of the window, or in the edit inside one of its combo boxes.
        const bool inside = parent == m_window.m_hWnd || ::GetParent(parent) == m_window.m_hWnd;
        m_bFieldCheckOk = 1;
        if (inside && TextOf(focus) != kOkCaption) {
            m_pLastEditControl = nullptr;
            SendKillFocus(focus);
            // The host may have destroyed the window while the check's message box was up.
            if (m_window.m_hWnd == nullptr) {
                return FALSE;
            }
            ::SetFocus(focus);
        }
    }
    return std::exchange(m_bFieldCheckOk, 1) != 0;
}

BOOL CLeaveCheck::CommitFocusedField() {
    const HWND focus = ::GetFocus();
    if (::GetParent(focus) == m_window.m_hWnd && TextOf(focus) != kOkCaption) {
        SendKillFocus(focus);
    }
    return m_window.m_hWnd != nullptr;
}

CFieldCheck::CFieldCheck(CLeaveCheck& leaveCheck, CWnd* control, LastEdit lastEdit)
    : m_leaveCheck(leaveCheck), m_refocus(control) {
    leaveCheck.m_bChecking = true;
    if (lastEdit != LastEdit::LeftAlone && leaveCheck.m_pLastEditControl == nullptr) {
        leaveCheck.m_bFieldCheckOk = 0;
        m_refocus = lastEdit == LastEdit::Noted ? nullptr : control;
    } else if (lastEdit == LastEdit::Noted) {
        leaveCheck.m_pLastEditControl = control;
    }
}
