// CSettingsSheet: what the pages know of the sheet that owns them: its fields, the operations on settings, and the
// field checks. The sheet derives from it and adds the pages, so no page includes another or the sheet.
#pragma once

#include "framework/framework.h"
#include "include/tavrikconfig.h"

class CSettingsSheet : public CPropertySheet {
public:
    // The current "COORD_BET", "BET_PREFIX" and "DRW_MODE" as numbers: the host's value at first, then the last one
    // that any page put, applied or not, so that one page can react to a choice on another.
    int m_nCoordBet = 0;
    int m_nBetPrefix = 0;
    int m_nDrwMode = 0;
    // Non-zero: the cross-reference page is part of the sheet, and the connection page where "NORV_LEVEL" is 3.
    int m_bOptionalPages = 0;
    // Read by nothing, like the second one below; kept with its value, because the order of the fields is fixed.
    int m_nReserved1 = 6;
    // 0: nothing can be changed; fields are disabled, clicks are undone and merges are refused.
    int m_bEditable = 0;
    // Non-zero allows the designation options. Set before DoModal, like the host's store and mode.
    int m_nDesignationOption;
    // What the pages have applied; goes to the host's store when the sheet ends with OK.
    CMdb m_workSettings;
    // Not owned. Read by the pages' loaders, written only by the final merge.
    CMdb* m_pHostSettings;
    int m_nReserved2 = 0;
    int m_nHostMode;
    // Counts the keys and mouse messages that the running sheet has taken, so that a page can tell whether two things
    // come of the same one.
    unsigned m_nInput = 1;

    BOOL PreTranslateMessage(MSG* message) override;

    // Adds the connection page to the running sheet or removes it. A sheet that has none does nothing.
    virtual void ShowConnectionPage(bool /*isShown*/) {}

    // Receives the value of the first record with the key; returns the record's 1-based index. 0 when there is none:
    // the value is then untouched.
    static int GetSetting(const CMdb* store, LPCSTR key, CString& value);
    // The value; empty when the key is missing.
    static CString GetSettingText(const CMdb* store, LPCSTR key);
    // The value's leading integer; 0 when there is none or the key is missing. One that does not fit is clamped.
    static int GetSettingNumber(const CMdb* store, LPCSTR key);
    // Sets a setting in the store, and its number in the sheet where the sheet mirrors the key. Where memory runs out
    // the setting is dropped, and a running sheet ends as cancelled.
    void PutSetting(CMdb* store, LPCSTR key, LPCSTR value);
    // Sets every setting of one store in another and marks those that it overwrote; mirrors nothing.
    // Does nothing in a sheet that is not editable. Where memory runs out for a setting it does as PutSetting.
    void MergeSettings(const CMdb* from, CMdb* to);
    // Merges what the pages have applied into the host's store, all of it or, without the memory for that, nothing.
    // Returns whether it has.
    BOOL CommitSettings();

    // Field checks: 1 accepts; 0 rejects, after a message box owned by the sheet. The control (null for none) gets
    // the focus back.

    // Trims the caller's text; an empty one is rejected.
    int CheckRequiredField(CString& text, CWnd* control);
    // Rejects a text with one of the forbidden characters and selects the control's text. A required text is trimmed
    // and must not be empty; any other is left as it is.
    int CheckTextField(CString& text, CWnd* control, LPCSTR forbidden, int required);
    // The same without a selection, and the focus is moved once.
    int CheckTextFieldNoSelect(CString& text, CWnd* control, LPCSTR forbidden, int required);
    // Accepts digits and points that read as a number from 0.1 on.
    int CheckNumberField(LPCSTR text, CWnd* control);

protected:
    CSettingsSheet(UINT captionId, CWnd* parent, UINT firstPage) : CPropertySheet(captionId, parent, firstPage) {}
    CSettingsSheet(LPCSTR caption, CWnd* parent, UINT firstPage) : CPropertySheet(caption, parent, firstPage) {}

private:
    enum class Selection { SelectText, KeepSelection };
    int RejectForbidden(const CString& text, CWnd* control, LPCSTR forbidden, Selection selection);
};
