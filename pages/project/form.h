// CForm: the page "Blanketter", the drawing files of forms by sheet size and the automatic texts on drawings.
#pragma once

#include "core/settings_page.h"
#include "pages/project/placement.h"

class CForm : public CSettingsPage {
    DECLARE_DYNAMIC(CForm)
    DECLARE_MESSAGE_MAP()

public:
    CForm();
    ~CForm() override;

    int LoadSettings(const CMdb* store) override;
    BOOL OnSetActive() override;
    BOOL OnApply() override;

    // The stored texts of the automatic texts, as they were loaded or as a check box has set them last; empty when off.
    CString m_strDwgText;
    CString m_strAutoTime;
    CString m_strAutoDate;
    // File names.
    CString m_strFormA2, m_strFormA3, m_strFormA4;
    CString m_strRevA2, m_strRevA3, m_strRevA4;
    CString m_strSclA2, m_strSclA3, m_strSclA4;
    CString m_strHeadA2, m_strHeadA3, m_strHeadA4;
    // 0 writes the drawing's name as file name, 1 with its folder.
    int m_nDwgPath = -1;
    CString m_strFormA1, m_strHeadA1, m_strRevA1, m_strSclA1;
    // The folder in which the file dialog begins.
    CString m_strUserLib;
    // The size that the previews stand for; 0 until a size is known.
    SIZE m_sheetSize{};
    // Position in the list of sizes.
    int m_nFormSize = 0;
    int m_nDateFormat = 0;
    // Known to the dialog only.
    int m_nNameFormat = 0;
    Placement m_date;
    Placement m_time;
    Placement m_name;

    struct AutoText;
    struct GridField;

protected:
    afx_msg void OnFieldFocus(UINT edit);
    afx_msg void OnFieldChange(UINT edit);
    afx_msg void OnBrowse();
    afx_msg void OnSwitched(UINT checkBox);
    afx_msg void OnChangePlacement(UINT button);
    afx_msg void OnSizePicked();
    afx_msg void OnPaint();

private:
    void ShowAutoText(const AutoText& text);
    void TakePlacement(const AutoText& text, const Placement& answer);
    void UpdateDateText();
    void DrawPlacementPreviews(CDC& context);
    void RedrawPage();
    void EnableControls(std::span<const UINT> controls, BOOL enable);

    // The field of the grid that had the focus last, null for none.
    const GridField* m_browsed = nullptr;
};
