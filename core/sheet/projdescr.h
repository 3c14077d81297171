// projdescr: the settings sheet. It owns the pages, loads them, and lends the framework's message boxes its caption.
#pragma once

#include "core/settings_sheet.h"
#include "pages/circuit/dlgcircuit.h"
#include "pages/circuit/dlgconnect.h"
#include "pages/circuit/dlgcrossref.h"
#include "pages/circuit/dlgextern.h"
#include "pages/project/dlgprojdef.h"
#include "pages/project/form.h"
#include "pages/textcolor/textcolor.h"

class projdescr : public CSettingsSheet {
    DECLARE_DYNAMIC(projdescr)
    DECLARE_MESSAGE_MAP()

public:
    // The parent may be null. The fields m_nDesignationOption, m_pHostSettings and m_nHostMode, which the constructors
    // leave alone, must be set before DoModal.
    projdescr(UINT captionId, CWnd* parent, UINT firstPage);
    projdescr(LPCSTR caption, CWnd* parent, UINT firstPage);
    ~projdescr() override;

    // Loads every page from the host's store, adds it, and runs the sheet. Returns 1 for OK, 2 for Cancel.
    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;

    void ShowConnectionPage(bool isShown) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg int OnCreate(LPCREATESTRUCT createStruct);

private:
    void BorrowApplicationName();
    void AddLoadedPage(CSettingsPage& page);
    void LoadConnectPage();

    CTextColor m_pageTextColor;
    dlgconnect m_pageConnect;
    CForm m_pageForm;
    dlgcircuit m_pageCircuit;
    dlgcrossref m_pageCrossRef;
    dlgextern m_pageExternal;
    dlgprojdef m_pageProject;
    // The application's name as it was before the sheet replaced it.
    CString m_strSavedAppName;
};
