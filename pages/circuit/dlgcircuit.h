// dlgcircuit: the page "Allmänt", the general options of circuit diagrams.
#pragma once

#include <array>

#include "core/settings_page.h"

class dlgcircuit : public CSettingsPage {
    DECLARE_DYNAMIC(dlgcircuit)
    DECLARE_MESSAGE_MAP()

public:
    dlgcircuit();
    ~dlgcircuit() override;

    int LoadSettings(const CMdb* store) override;

    // The settings as they are shown. Radio members are the index of the checked button, -1 for none.
    int m_nMarkingOrder = -1;
    int m_nCoreMark = -1;
    int m_nCableLabel = -1;
    int m_bDrwMode = 0;
    int m_bStrIncr = 0;
    int m_bBetCapitals = 0;
    CString m_strSymbolStandard;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnShowing() override;
    void OnShown() override;

    afx_msg void OnChoiceClicked(UINT id);
    afx_msg void OnStrIncrClicked();
    afx_msg void OnDrwModeClicked();
    afx_msg void OnBetCapitalsClicked();
    afx_msg void OnFieldChange(UINT id);
    afx_msg void OnFieldKillFocus(UINT id);
    afx_msg void OnSymbolStandardEditChange();
    afx_msg void OnSymbolStandardKillFocus();
    afx_msg void OnSymbolStandardSelEndOk();
    afx_msg void OnDrawItem(int id, LPDRAWITEMSTRUCT item);

private:
    static constexpr size_t kFieldCount = 7;
    struct Field {
        CString m_strText;
        int m_bChanged = 0;
    };

    // The row of an edit, kFieldCount for any other control.
    static size_t FieldIndex(UINT id);
    void CommitNumberEdit(int changed, LPCSTR key, CString& text, CWnd* control, int required);
    void UpdateExclusiveBoxes();
    void RecordCheck(LPCSTR key, int checked, UINT redrawnControl);
    UINT PreviewBitmap(int control) const;

    std::array<Field, kFieldCount> m_fields;
    int m_bSymbolStandardChanged = 0;
    // Non-zero shows the British marking pictures.
    int m_bLanguageGB = 1;
    CString m_strLanguage;

    CComboBox m_comboSymbolStandard;
    CButton m_previewMarking;
    CButton m_previewCable;
};
