// A page's side of the sheet: its window, and the sheet's notifications as virtual functions.

#include "framework/property_page.h"

#include <utility>

#include "framework/exception.h"
#include "framework/message_routing.h"
#include "framework/sheet_view.h"

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

BEGIN_MESSAGE_MAP(CPropertyPage, CDialog)
END_MESSAGE_MAP()

// Called by the system just before it creates a page's window, which becomes the object's, and when it forgets the
// page.
UINT CALLBACK AfxPropPageCallback(HWND, UINT message, PROPSHEETPAGEA* page) {
    CPropertyPage* object = reinterpret_cast<CPropertyPage*>(page->lParam);
    try {
        if (message == PSPCB_CREATE) {
            object->m_firstSetActive = true;
            object->m_isNew = true;
            AfxHookWindowCreate(object);
        } else if (message == PSPCB_RELEASE && object->m_isInSheet) {
            // The system drops a page whose window it could not create, and goes on with the others.
            object->m_isInSheet = false;
            AfxFailModalOutOfMemory();
            AfxFailModal(AfxFailure::WindowGone);
        }
    } catch (...) {
        AfxReportException();
        return FALSE;
    }
    return TRUE;
}

CPropertyPage::CPropertyPage(UINT templateId) : CDialog(templateId), m_psp() {
    m_psp.dwSize = sizeof m_psp;
    m_psp.dwFlags = PSP_USECALLBACK;
    m_psp.pszTemplate = MAKEINTRESOURCEA(templateId);
    m_psp.pfnDlgProc = AfxDlgProc;
    m_psp.lParam = reinterpret_cast<LPARAM>(this);
    m_psp.pfnCallback = AfxPropPageCallback;
}

// A page that goes before its sheet takes along what was entered on it.
void CPropertyPage::PostNcDestroy() {
    if (m_isInSheet) {
        AfxFailModal(AfxFailure::WindowGone);
    }
    CDialog::PostNcDestroy();
}

void CPropertyPage::Place() {
    const bool isNew = std::exchange(m_isNew, false);
    if (m_view != nullptr) {
        m_view->Place(m_hWnd, isNew);
    }
}

void CPropertyPage::BringIntoView(HWND control) {
    if (m_view != nullptr) {
        m_view->BringIntoView(m_hWnd, control);
    }
}

BOOL CPropertyPage::OnSetActive() {
    if (!m_firstSetActive) {
        UpdateData(FALSE);
    }
    m_firstSetActive = false;
    return TRUE;
}

BOOL CPropertyPage::OnKillActive() {
    return UpdateData(TRUE);
}

BOOL CPropertyPage::OnApply() {
    OnOK();
    return TRUE;
}

void CPropertyPage::OnReset() {
    OnCancel();
}

BOOL CPropertyPage::OnQueryCancel() {
    return TRUE;
}

void CPropertyPage::OnOK() {}

void CPropertyPage::OnCancel() {}

void CPropertyPage::SetModified(BOOL changed) {
    if (m_hWnd != nullptr) {
        ::SendMessageA(::GetParent(m_hWnd), changed ? PSM_CHANGED : PSM_UNCHANGED, reinterpret_cast<WPARAM>(m_hWnd), 0);
    }
}

// The sheet translates keys for its pages.
BOOL CPropertyPage::PreTranslateMessage(MSG*) {
    return FALSE;
}

void CPropertyPage::EndDialog(int result) {
    if (CWnd* sheet = GetParent()) {
        sheet->EndModalLoop(result);
    }
}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (CDialog::OnNotify(wParam, lParam, result)) {
        return TRUE;
    }
    const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom != m_hWnd && header->hwndFrom != ::GetParent(m_hWnd)) {
        return FALSE;
    }
    switch (header->code) {
        case PSN_SETACTIVE:
            Place();
            *result = OnSetActive() ? 0 : -1;
            return TRUE;
        case PSN_KILLACTIVE:
            *result = OnKillActive() ? FALSE : TRUE;
            return TRUE;
        case PSN_APPLY:
            *result = OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
            return TRUE;
        case PSN_RESET:
            OnReset();
            return TRUE;
        case PSN_QUERYCANCEL:
            *result = OnQueryCancel() ? FALSE : TRUE;
            return TRUE;
        default:
            return FALSE;
    }
}
