// CAutoText: the dialog that places an automatic text on the drawing sheet: position, height and angle, and for the
// date its format. A small picture of the sheet shows the text in black and the other automatic texts in white.
#pragma once

#include "core/leave_check.h"
#include "core/opened_list.h"
#include "pages/project/placement.h"

class CAutoText : public CDialog {
    DECLARE_DYNAMIC(CAutoText)
    DECLARE_MESSAGE_MAP()

public:
    enum Mode { kDate = 1, kTime = 2, kDrawingName = 3 };

    // The parent may be null, as for any modal dialog.
    explicit CAutoText(CWnd* parent = nullptr);

    // What is shown, to be set before DoModal; after IDOK m_placement and m_nFormat have the answer. Of the placement
    // the angle is neither used nor set: its orientation is, which may be none of the three then.
    SIZE m_sheetSize{};
    Placement m_placement;
    // Those with a height of 0 are not shown.
    Placement m_others[2];
    // The index of a date format.
    int m_nFormat = 0;
    int m_nMode = 0;

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnCancel() override;

    afx_msg void OnCoordinateKillFocus(UINT edit);
    afx_msg void OnHeightKillFocus();
    afx_msg void OnHeightPicked();
    afx_msg void OnHeightListOpened();
    afx_msg void OnHeightListClosed();
    afx_msg void OnHeightPickCancelled();
    afx_msg void OnAnglePicked();
    afx_msg void OnFormatPicked();
    afx_msg void OnSliderReleased(UINT slider, NMHDR* header, LRESULT* result);
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* scrollBar);
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* scrollBar);
    afx_msg LRESULT OnMouseActivate(WPARAM wParam, LPARAM lParam);
    afx_msg void OnPaint();

private:
    // An axis of the sheet with its field and its slider.
    struct Axis;
    static const Axis kAxes[2];

    CWnd& Control(UINT id) const { return RequireDlgItem(id); }
    CComboBox& Combo(UINT id) const { return static_cast<CComboBox&>(Control(id)); }
    CSliderCtrl& Slider(UINT id) const { return static_cast<CSliderCtrl&>(Control(id)); }
    bool HasSheet() const { return m_sheetSize.cx != 0 && m_sheetSize.cy != 0; }

    void ShowMode();
    void ShowNumber(const Axis& axis);
    void UpdateOrientation() { SetRotation(m_placement.orientation, m_placement.rotation); }
    void SyncSliders();
    void MoveMarker(UINT box, UINT bar, const Placement& placement);
    void MoveEditedMarker();
    void MoveOtherMarkers();
    void TakeSlider(const Axis& axis);
    CString HeightText() const;
    // Whether a field that is left is to be checked. One that is skipped on the way to Cancel is remembered.
    bool IsToBeChecked(UINT field);
    BOOL MayClose();

    CString m_strX;
    CString m_strY;
    CLeaveCheck m_leaveCheck{*this};
    COpenedList m_openedList;
    // Scroll messages that come before are not the user's.
    bool m_bInitialised = false;
    // The field that was skipped last, 0 for none.
    UINT m_nSkipped = 0;
};
