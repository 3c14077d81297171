// The common behaviour of the pages.
#include "core/settings_page.h"

#include <cstring>

namespace {

CString TextOf(const CWnd* window) {
    CString text;
    window->GetWindowText(text);
    return text;
}

// The window class names of the controls that take text.
constexpr LPCSTR kFieldClasses[] = {"ComboBox", "Edit"};

// A window that reads so is taken for the sheet's button and is not checked. A field with just this text is therefore
// left unchecked, and unrecorded, by Enter.
constexpr LPCSTR kOkCaption = "OK";

bool IsField(HWND window) {
    char name[16] = {};
    GetClassNameA(window, name, sizeof name);
    for (LPCSTR fieldClass : kFieldClasses) {
        if (std::strcmp(name, fieldClass) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

CSettingsPage::CSettingsPage(UINT templateId) : CPropertyPage(templateId), m_pLastEditControl(GetActiveWindow()) {
    if (m_pLastEditControl == nullptr) {
        // A host without an active window is not a forced check.
        m_pLastEditControl = this;
    }
}

BOOL CSettingsPage::BeginChange() {
    const BOOL editable = GetSheet()->m_bEditable != 0;
    UpdateData(editable);
    return editable;
}

void CSettingsPage::RedrawControl(UINT id) {
    if (CWnd* control = GetDlgItem(static_cast<int>(id))) {
        control->Invalidate(TRUE);
        control->UpdateWindow();
    }
}

void CSettingsPage::SetDisabledBit(UINT id, BOOL disabled) {
    if (CWnd* control = GetDlgItem(static_cast<int>(id))) {
        control->ModifyStyle(disabled ? 0 : WS_DISABLED, disabled ? WS_DISABLED : 0);
    }
}

int CSettingsPage::IsCancelPending() const {
    if (m_bCancelled || m_bChecking) {
        return 1;
    }
    if (const CWnd* focus = GetFocus()) {
        const CString text = TextOf(focus);
        if (text == "Avbryt" || text == "Cancel") {
            return 1;
        }
    }
    return m_bFieldCheckOk == 0 ? 1 : 0;
}

BOOL CSettingsPage::OnSetActive() {
    OnShowing();
    UpdateData(FALSE);
    m_bModifyAllowed = GetSheet()->m_bEditable;
    if (m_bModifyAllowed == 0) {
        DisableFields();
    }
    OnShown();
    return CPropertyPage::OnSetActive();
}

// Check boxes and radio buttons stay enabled, so that a read-only sheet is as legible as any; their handlers undo the
// click.
void CSettingsPage::DisableFields() {
    for (CWnd* child = GetTopWindow(); child != nullptr; child = child->GetNextWindow()) {
        if (IsField(child->m_hWnd)) {
            child->ModifyStyle(0, WS_DISABLED);
        }
    }
}

// Makes an edit or combo box notify the page as if it lost the focus, which runs its check now.
void CSettingsPage::SendKillFocus(CWnd* focus) {
    focus->SendMessage(WM_KILLFOCUS);
}

BOOL CSettingsPage::OnKillActive() {
    if (CWnd* focus = GetFocus()) {
        const HWND parent = ::GetParent(focus->m_hWnd);
        // The focus is in a field of the page, or in the edit inside one of its combo boxes.
        const bool onPage = parent == m_hWnd || (parent != nullptr && ::GetParent(parent) == m_hWnd);
        const CString text = TextOf(focus);
        m_bFieldCheckOk = 1;
        if (onPage && text != kOkCaption) {
            const HWND focusWindow = focus->m_hWnd;
            m_pLastEditControl = nullptr;
            SendKillFocus(focus);
            if (!::IsWindow(m_hWnd)) {
                return FALSE;
            }
            ::SetFocus(focusWindow);
        }
    }
    if (m_bFieldCheckOk == 0) {
        m_bFieldCheckOk = 1;
        return FALSE;
    }
    return CPropertyPage::OnKillActive();
}

BOOL CSettingsPage::OnApply() {
    CWnd* focus = GetFocus();
    if (focus != nullptr && ::GetParent(focus->m_hWnd) == m_hWnd && TextOf(focus) != kOkCaption) {
        SendKillFocus(focus);
        // The host may have destroyed the sheet while the check's message box was up.
        if (!::IsWindow(m_hWnd)) {
            return FALSE;
        }
    }
    UpdateData(TRUE);
    GetSheet()->MergeSettings(&m_changes, &GetSheet()->m_workSettings);
    m_bModifyAllowed = 0;
    SetModified(FALSE);
    return CPropertyPage::OnApply();
}

void CSettingsPage::OnReset() {
    m_bCancelled = true;
    CPropertyPage::OnReset();
}
