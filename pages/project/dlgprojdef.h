// dlgprojdef: the page "Projektbeskrivning", the project's descriptive texts and, in project mode, its files.
#pragma once

#include "core/settings_page.h"

class dlgprojdef : public CSettingsPage {
    DECLARE_DYNAMIC(dlgprojdef)
    DECLARE_MESSAGE_MAP()

public:
    dlgprojdef();
    ~dlgprojdef() override;

    // Fills the attribute choices too, which are the library's and outlive the page.
    int LoadSettings(const CMdb* store) override;
    BOOL OnSetActive() override;
    BOOL OnApply() override;
    void WinHelp(DWORD_PTR data, UINT command) override;

    // Project mode: non-zero when the sheet has its optional pages. Set by the sheet after the loading.
    int m_bOptionalPages = 0;
    // Carried only: nothing shows, checks or writes it.
    CString m_strPwd;
    // The sheet counts commands in these two and the page copies the second into the first; nothing acts on them.
    int m_nIdleFirst = 0;
    int m_nIdleSecond = 0;

    // The settings as they are shown.
    CString m_strProjName;
    CString m_strTitleA1;
    CString m_strTitleA2;
    CString m_strTitleA3;
    CString m_strTitleA4;
    CString m_strTitleA5;
    CString m_strTitleB1;
    CString m_strTitleB2;
    CString m_strTitleB3;
    CString m_strTitleB4;
    CString m_strTitleB5;
    CString m_strRdsDef;
    CString m_strTdsDef;
    CString m_strDbPrefix;
    CString m_strCommentTag;
    // The name of the database file chosen last; belongs to no setting.
    CString m_strDbFileName;
    CString m_strJobNoLabel;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnBrowseDatabase();
    afx_msg void OnBrowseReportTemplate();

private:
    void ApplyProjectMode();
    void ShowDescriptions();
    void FillAttributeList();
    // Shows a path, writable, with the caret behind its last character.
    void ShowPath(UINT edit, LPCSTR path);
    void SetReadOnly(UINT edit, BOOL readOnly);
};
