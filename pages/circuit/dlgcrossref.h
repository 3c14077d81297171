// dlgcrossref: the page "Pro", how cross-references and signal references are written, and what the drawing shows of
// contacts.
#pragma once

#include "core/settings_page.h"

class dlgcrossref : public CSettingsPage {
    DECLARE_DYNAMIC(dlgcrossref)
    DECLARE_MESSAGE_MAP()

public:
    dlgcrossref();
    ~dlgcrossref() override;

    int LoadSettings(const CMdb* store) override;
    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnApply() override;

    // What the settings produce.
    CString m_strXrefPreview;
    CString m_strSignalPreview;
    CString m_strContTag;
    int m_bSignalOnly = 0;
    int m_bSheetSignal = 0;
    int m_bSignalType = 0;
    CString m_strCrossPrefix;
    // The index of the checked button, -1 for none.
    int m_nTblType = -1;
    int m_bBetPrefix = 0;
    int m_bConnectActive = 0;
    int m_bInterActive = 0;
    int m_bCoordBet = 0;
    CString m_strAutoBetFormat;
    // Whether lines are drawn horizontally, which the pictures follow.
    int m_bDrwAngleZero = 1;
    // The language of the texts, as of the last activation; nothing on this page depends on it.
    CString m_strLanguage;
    // The format as shown: letters for sheet, column and row, blanks and separators.
    CString m_strXrefFormat;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnRecorded(UINT control) override;
    UINT PreviewBitmap(UINT control) const override;

    afx_msg void OnPrefixKillFocus();
    afx_msg void OnFormatPicked(UINT box);
    afx_msg LRESULT OnShowFormat(WPARAM wParam, LPARAM lParam);
    afx_msg void ApplyTypedFormatChar(UINT box);

private:
    void RefreshFormat();
    void ShowFormat();
    void BuildExamples();
    void RejectTypedChar(UINT box, int position);
    void ChangeFormatByTyping(UINT box);
    void SelectFirstChar(UINT control);
    void EnableOption(UINT option, int excluding);

    // The format was changed and is to be recorded.
    bool m_bFormatChanged = false;
};
