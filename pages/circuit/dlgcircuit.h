// dlgcircuit: the page "Allmänt", the general options of circuit diagrams.
#pragma once

#include "core/settings_page.h"

class dlgcircuit : public CSettingsPage {
    DECLARE_DYNAMIC(dlgcircuit)

public:
    dlgcircuit();
    ~dlgcircuit() override;

    BOOL OnSetActive() override;

    // The settings as they are shown. Radio members are the index of the checked button, -1 for none.
    CString m_strCrossDistance;
    CString m_strStartX;
    CString m_strStartY;
    CString m_strPhaseDistanceHor;
    CString m_strPhaseLengthHor;
    CString m_strPhaseDistanceVer;
    CString m_strPhaseLengthVer;
    CString m_strSymbolStandard;
    int m_nMarkingOrder = -1;
    int m_nCoreMark = -1;
    int m_nCableLabel = -1;
    int m_bDrwMode = 0;
    int m_bStrIncr = 0;
    int m_bBetCapitals = 0;

protected:
    void OnRecorded(UINT control) override;
    UINT PreviewBitmap(UINT control) const override;

private:
    void SelectSymbolStandard();
    void UpdateExclusiveBoxes();
    void ChooseLanguage();

    // Non-zero shows the British marking pictures.
    int m_bLanguageGB = 1;
};
