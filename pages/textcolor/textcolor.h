// CTextColor: the page "Texter/Färger", heights and colours of the texts in diagrams.
#pragma once

#include "core/settings_page.h"

class CTextColor : public CSettingsPage {
    DECLARE_DYNCREATE(CTextColor)
    DECLARE_MESSAGE_MAP()

public:
    CTextColor();
    ~CTextColor() override;

    int LoadSettings(const CMdb* store) override;
    BOOL OnSetActive() override;

    // Positions in the colour lists, -1 for none.
    int m_attrColour = -1;
    int m_betColour = -1;
    int m_lineColour = -1;
    // Text heights as typed.
    CString m_assemblyHgt;
    CString m_termTermHgt;
    CString m_termBet1Hgt;
    CString m_cctTermHgt;
    CString m_terminalTermHgt;
    CString m_betHgt;
    CString m_signalBet1Hgt;
    int m_colorInteract = 0;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnDrawItem(int control, LPDRAWITEMSTRUCT item);
    afx_msg void OnColourPicked(UINT control);
    afx_msg void OnAssemblyHeightKillFocus();

private:
    static int CheckHeight(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& field);
    // Checks and records a height as its field is left. FALSE when the window is gone.
    BOOL CommitHeightField(UINT control);
    void PickAssemblyHeight(const TextRow& row);

    static const TextRow kTexts[];
    static const PageRows kRows;
};
