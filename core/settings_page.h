// CSettingsPage: what all pages of the sheet do alike: load, show, record changes, check fields as they are left,
// apply. A page adds its settings and controls, and overrides just the step in which it departs.
#pragma once

#include "core/settings_sheet.h"

class CSettingsPage : public CPropertyPage {
public:
    explicit CSettingsPage(UINT templateId);

    // Reads the page's settings from the host's store into its members, before the page has a window. Returns 1.
    virtual int LoadSettings(const CMdb* store) = 0;

    BOOL OnApply() override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    void OnReset() override;

protected:
    // Called while the page is shown: before the members go to the controls, and when they are there.
    virtual void OnShowing() {}
    virtual void OnShown() {}

    CSettingsSheet* GetSheet() const { return static_cast<CSettingsSheet*>(GetParent()); }

    // Begins the handling of a change by the user. FALSE in a sheet that is not editable: the control shows the
    // member's value again, and there is nothing to record.
    BOOL BeginChange();
    // Records the change of a setting in the page's own list.
    void RecordChange(LPCSTR key, LPCSTR value) { GetSheet()->PutSetting(&m_changes, key, value); }
    void SetModifiedByUser() { SetModified(m_bModifyAllowed); }
    void RedrawControl(UINT id);
    // Sets the disabled style bit alone: the control gets no enable message and keeps its look until it is redrawn.
    void SetDisabledBit(UINT id, BOOL disabled);

    // Non-zero when a field that loses the focus is not to be checked: the user is cancelling, or another check, one
    // forced by leaving the page above all, is still running.
    int IsCancelPending() const;

    // The page's own changes by key, until they are applied.
    CMdb m_changes;
    // The sheet's editable flag as of the last activation; 0 again once the page has been applied.
    int m_bModifyAllowed = 0;
    // The field that was checked last. Only null carries a meaning: a check forced by leaving the page is running.
    CWnd* m_pLastEditControl;
    // 0 while a forced check runs and has not passed; the page cannot be left then.
    int m_bFieldCheckOk = 1;

    // While it lives no other field is checked. The message box of one field takes the focus from another, and two
    // wrong fields would otherwise send it back and forth with a box each time.
    class FieldCheck {
    public:
        explicit FieldCheck(CSettingsPage& page) : m_page(page) { m_page.m_bChecking = true; }
        ~FieldCheck() { m_page.m_bChecking = false; }
        FieldCheck(const FieldCheck&) = delete;
        FieldCheck& operator=(const FieldCheck&) = delete;

    private:
        CSettingsPage& m_page;
    };

private:
    void DisableFields();
    void SendKillFocus(CWnd* focus);

    // The sheet was cancelled; the fields that lose the focus as its windows go are not the user's.
    bool m_bCancelled = false;
    bool m_bChecking = false;
};
