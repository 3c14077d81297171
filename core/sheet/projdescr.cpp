// The settings sheet.
#include "core/sheet/projdescr.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "core/setting_keys.h"
#include "resources/resource.h"

// The library's one application object, without a name, so the framework calls it as the module's file. The sheet
// borrows this name; the host's application is never touched.
static CWinApp g_application;

namespace {

void CopyText(char* buffer, const CString& text) {
    std::memcpy(buffer, text.GetString(), static_cast<size_t>(text.GetLength()) + 1);
}

}  // namespace

IMPLEMENT_DYNAMIC(projdescr, CPropertySheet)

BEGIN_MESSAGE_MAP(projdescr, CPropertySheet)
ON_WM_CREATE()
END_MESSAGE_MAP()

projdescr::projdescr(UINT captionId, CWnd* parent, UINT firstPage) : CSettingsSheet(captionId, parent, firstPage) {
    BorrowApplicationName();
}

projdescr::projdescr(LPCSTR caption, CWnd* parent, UINT firstPage) : CSettingsSheet(caption, parent, firstPage) {
    BorrowApplicationName();
}

projdescr::~projdescr() {
    // The buffer is at least as long as it was when the name was saved from it.
    CopyText(g_application.m_pszAppName, m_strSavedAppName);
}

// While the sheet lives, message boxes without a caption of their own say what they are about: a wrong value.
void projdescr::BorrowApplicationName() {
    CString caption;
    if (!caption.LoadString(IDS_VALUE_ERROR)) {
        AfxMessageBox("Error Loading String: IDS_VALUE_ERROR");
    }
    m_strSavedAppName = g_application.m_pszAppName;
    if (m_strSavedAppName.GetLength() < caption.GetLength()) {
        char* longer = static_cast<char*>(std::malloc(static_cast<size_t>(caption.GetLength()) + 2));
        if (longer == nullptr) {
            throw std::bad_alloc();
        }
        std::free(g_application.m_pszAppName);
        g_application.m_pszAppName = longer;
    }
    CopyText(g_application.m_pszAppName, caption);
}

void projdescr::AddLoadedPage(CSettingsPage& page) {
    page.LoadSettings(m_pHostSettings);
    AddPage(&page);
}

void projdescr::LoadConnectPage() {
    m_pageConnect.m_pWorkSettings = &m_workSettings;
    m_pageConnect.m_bEditable = m_bEditable;
    m_pageConnect.LoadSettings(m_pHostSettings);
    if (m_pageCrossRef.m_bConnectActive != 0) {
        AddPage(&m_pageConnect);
    }
}

INT_PTR projdescr::DoModal() {
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
    AddLoadedPage(m_pageProject);
    m_pageProject.m_bOptionalPages = m_bOptionalPages;
    AddLoadedPage(m_pageCircuit);
    AddLoadedPage(m_pageTextColor);
    AddLoadedPage(m_pageExternal);
    AddLoadedPage(m_pageForm);
    if (m_bOptionalPages != 0) {
        AddLoadedPage(m_pageCrossRef);
        m_nBetPrefix = GetSettingNumber(m_pHostSettings, kKeyBetPrefix);
        m_nCoordBet = GetSettingNumber(m_pHostSettings, kKeyCoordBet);
        LoadConnectPage();
    }
    m_nDrwMode = GetSettingNumber(m_pHostSettings, kKeyDrwMode);
    return CPropertySheet::DoModal();
}

void projdescr::ShowConnectionPage(bool isShown) {
    if (isShown) {
        AddPage(&m_pageConnect);
    } else {
        RemovePage(&m_pageConnect);
    }
}

BOOL projdescr::OnInitDialog() {
    const BOOL result = CPropertySheet::OnInitDialog();
    // The host hears of the activation meanwhile, and may have destroyed the sheet or its owner.
    CWnd& cancel = RequireDlgItem(IDCANCEL);
    CString caption;
    if (m_bEditable != 0) {
        caption.LoadString(IDS_CANCEL);
    } else {
        RequireDlgItem(IDOK).ShowWindow(SW_HIDE);
        caption.LoadString(IDS_CLOSE);
    }
    cancel.SetWindowText(caption);
    SetWindowPos(&wndTopMost, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
    return result;
}

BOOL projdescr::OnCommand(WPARAM wParam, LPARAM lParam) {
    m_pageProject.m_nIdleSecond = m_pageProject.m_nIdleFirst;
    m_pageProject.m_nIdleFirst = 1;
    return CSettingsSheet::OnCommand(wParam, lParam);
}

int projdescr::OnCreate(LPCREATESTRUCT createStruct) {
    return CPropertySheet::OnCreate(createStruct) == -1 ? -1 : 0;
}
