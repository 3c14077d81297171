// CSettingsPage: what all pages of the sheet do alike: load, show, record changes, check fields as they are left,
// apply. A page is its rows and the steps in which it departs: it composes its own list of the named steps, or answers
// a control of its own in its message map, which is searched before this one.
#pragma once

#include <vector>

#include "core/leave_check.h"
#include "core/opened_list.h"
#include "core/setting_rows.h"
#include "core/settings_sheet.h"

class CSettingsPage : public CPropertyPage {
    DECLARE_MESSAGE_MAP()

public:
    // The rows must outlive the page.
    CSettingsPage(UINT templateId, const PageRows& rows);

    const PageRows& Rows() const { return m_rows; }

    // Reads the page's settings from the host's store into its members, before the page has a window. Returns 1.
    virtual int LoadSettings(const CMdb* store);

    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;
    void OnReset() override;

    // The check of a text that may be anything, or nothing, as long as it has no double quote.
    static int CheckPlainText(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& field);

    // Throws when the page or its sheet is gone. Whatever shows a message box or tells the host something may come back
    // to that.
    CSettingsSheet* GetSheet() const;

    // What a pick from a row's list does: it counts as typing, which is checked and recorded when the field is left;
    // it records the text that the field shows at this moment, and counts as typing; it records the entry picked.
    void PickAsTyping(const TextRow& row);
    void PickShownText(const TextRow& row);
    void PickEntry(const TextRow& row);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void PreSubclassWindow() override;

    // The parts of the data exchange.
    void ExchangeTexts(CDataExchange* exchange);
    void ExchangeChecks(CDataExchange* exchange);
    void ExchangeChoices(CDataExchange* exchange);

    // The steps of activating, recording and applying. Those that can show a message box return whether the window
    // still lives: the host may destroy the sheet meanwhile.
    void ShowMembers() { UpdateData(FALSE); }
    // A transfer that fails has told the user; what was read until then stands.
    BOOL ReadMembers();
    // Whether a field or a transfer was refused on the input that is being handled.
    BOOL IsRefused() const;
    void TakeModifyFlag() { m_bModifyAllowed = GetSheet()->m_bEditable; }
    // Check boxes and radio buttons stay enabled, so that a read-only sheet is as legible as any; their handlers undo
    // the click.
    void DisableFieldsWhenReadOnly();
    void HideControls(std::span<const UINT> controls);
    BOOL CommitFocusedField() { return m_leaveCheck.CommitFocusedField(); }
    void MergeChanges();
    void ClearModified();
    // The framework's own part, the last step of either list.
    BOOL ActivatePage() { return CPropertyPage::OnSetActive(); }
    BOOL ApplyPage() { return CPropertyPage::OnApply(); }
    // Records the change of a setting in the page's own list.
    void RecordChange(LPCSTR key, LPCSTR value) { GetSheet()->PutSetting(&m_changes, key, value); }
    // Has a field checked and recorded whenever it is left from now on.
    void MarkChanged(const TextRow& row) { StateOf(row).m_bChanged = 1; }
    void SetModifiedByUser() { SetModified(m_bModifyAllowed); }

    // Records the entry picked from a row's list. FALSE when the list was confirmed without one and the field keeps its
    // text, or the window is gone.
    BOOL RecordEntry(const TextRow& row);

    // Begins the handling of a click. FALSE when there is nothing to record: the control of a sheet that is not
    // editable shows the member's value again, or the window is gone.
    BOOL BeginClick(ReadOnlyClick readOnlyClick);
    // Checks and records a field that is left.
    void CommitText(const TextRow& row);

    // What else a click changes on the page, called when it has been recorded; `control` is the check box or the first
    // button of the group.
    virtual void OnRecorded(UINT /*control*/) {}
    // The bitmap that an owner-drawn control shows in its middle; 0 for none.
    virtual UINT PreviewBitmap(UINT /*control*/) const { return 0; }

    // Shows the member of a text row. The control notifies of it as of typing.
    void ShowText(UINT control);
    // Selects the entry of a combo box that begins with the text, letter case aside, the first one last; where there is
    // none the text is added. An empty text begins nothing, so it is always added.
    void SelectOrAdd(UINT control, LPCSTR text);
    void RedrawControl(UINT control);
    // Sets the disabled style bit alone: the control gets no enable message and keeps its look until it is redrawn.
    void SetDisabledBit(UINT control, BOOL disabled);

    afx_msg void OnTextChange(UINT control);
    afx_msg void OnTextKillFocus(UINT control);
    afx_msg void OnListOpened(UINT control);
    afx_msg void OnListClosed(UINT control);
    afx_msg void OnPick(UINT control);
    afx_msg void OnPickCancelled(UINT control);
    afx_msg void OnButtonClicked(UINT control);
    afx_msg void OnDrawItem(int control, LPDRAWITEMSTRUCT item);

    // The page's own changes by key, until they are applied.
    CMdb m_changes;
    // The sheet's editable flag as of the last activation; 0 again once the page has been applied.
    int m_bModifyAllowed = 0;
    CLeaveCheck m_leaveCheck{*this};

private:
    HWND HandleOf(UINT control) const { return ::GetDlgItem(m_hWnd, static_cast<int>(control)); }
    struct TextState {
        // The user has changed the field.
        int m_bChanged = 0;
        // It was left since without its check, which was postponed.
        bool m_bUnchecked = false;
    };

    TextState& StateOf(const TextRow& row) { return m_textStates[static_cast<size_t>(&row - m_rows.texts.data())]; }
    void CheckAndRecord(const TextRow& row, CWnd& field);
    BOOL CheckUncheckedFields();
    void EndForcedCheck();

    const PageRows& m_rows;
    std::vector<TextState> m_textStates;
    COpenedList m_openedList;
    // The input of the sheet on which a field was refused; 0 for none.
    unsigned m_nRefusedInput = 0;
    // Whether the last transfer to the members failed.
    bool m_bTransferFailed = false;
};
