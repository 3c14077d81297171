// dlgconnect: the page "Förbind", how connections are marked and documented. Unlike the others it records no changes:
// it compares with the values that it loaded when it is applied, writes straight into the sheet's work store, and
// is never marked as modified.
#pragma once

#include "core/settings_page.h"
#include "pages/circuit/comment_names.h"
#include "pages/circuit/comment_order.h"

class dlgconnect : public CSettingsPage {
    DECLARE_DYNAMIC(dlgconnect)
    DECLARE_MESSAGE_MAP()

public:
    dlgconnect();
    ~dlgconnect() override;

    // The work store is searched before the host's.
    int LoadSettings(const CMdb* store) override;
    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    BOOL PreTranslateMessage(MSG* message) override;

    // The sheet's work store and editable flag, handed over before the settings are loaded.
    CMdb* m_pWorkSettings = nullptr;
    int m_bEditable = 0;

    CommentNames m_commentNames;
    BYTE m_nDefaultCommentColour = 0;
    float m_fRowDistance = 0.0F;
    float m_fNumberOffset = 0.0F;
    // 0 to 4; there is no button for 1, which only the drawing mode or a file chooses.
    int m_nPartMarking = 0;
    int m_nCableChars = 0;
    int m_bShowSheetRef = 0;

protected:
    void DoDataExchange(CDataExchange* exchange) override;

    afx_msg void OnCommentCustomDraw(NMHDR* header, LRESULT* result);
    afx_msg void OnCommentClick(NMHDR* header, LRESULT* result);
    afx_msg void OnCommentDoubleClick(NMHDR* header, LRESULT* result);
    afx_msg void OnCommentChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnBeginCommentEdit(NMHDR* header, LRESULT* result);
    afx_msg void OnEndCommentEdit(NMHDR* header, LRESULT* result);
    afx_msg void OnCommentColumnClick(NMHDR* header, LRESULT* result);
    afx_msg void OnLegendClicked();

private:
    void ReadProfile();
    void ReadSettings(const SettingLookup& settings);
    void ShowPartMarking();
    void FillCommentList();
    void FillCableChars();
    void DrawColourCell(const NMLVCUSTOMDRAW& draw);
    bool IsOnCheckBox(const NMITEMACTIVATE& click) const;
    int ColourOfRow(int row) const;
    void PickDefaultColour(int row);
    void ShowDefaultColour();
    bool IsNameEmptied() const;
    void FinishCommentEdit();
    void ApplyPartMarking();
    void ApplyDistance(UINT control, float former, LPCSTR key);
    void WriteNumber(LPCSTR key, int number);
    void Write(LPCSTR key, LPCSTR value);

    CListCtrl m_comments;
    std::array<CommentRow, kLastCommentColour + 1> m_commentRows;
    CBitmap m_swatch;
    bool m_bShowingDefault = false;
    // Esc is being handled, which gives up the name that is edited.
    bool m_bEscape = false;
    int m_bLegend = 1;
    float m_fRowDistanceShown = 0.0F;
    float m_fNumberOffsetShown = 0.0F;

    // As they were when the window was created. A window that is created anew still shows the table as it was changed
    // in the one before, but only its own changes are stored.
    CommentNames m_origCommentNames;
    BYTE m_nOrigDefaultCommentColour = 0;
    std::array<int, kCommentColumns> m_origColumnOrder{};
    int m_nOrigSort = 0;
};
