// CPropertyPage: a dialog that is one tab of a property sheet.
// Deliberately missing: wizard pages.
#pragma once

#include "framework/dialog.h"

class AfxSheetView;

class CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)
    DECLARE_MESSAGE_MAP()

public:
    // The tab's caption is the template's.
    explicit CPropertyPage(UINT templateId);

    PROPSHEETPAGEA m_psp;

    // Called when the page is shown. The first activation of a window does not refresh the controls, since its
    // initialisation did; every later one does. FALSE sends the sheet on to another page.
    virtual BOOL OnSetActive();
    // Called before the page is left; FALSE keeps it. The base reads the controls and refuses when that fails.
    virtual BOOL OnKillActive();
    // Called for every page with a window when the sheet is accepted; FALSE keeps the sheet open.
    virtual BOOL OnApply();
    virtual void OnReset();
    // FALSE keeps the sheet from being cancelled.
    virtual BOOL OnQueryCancel();
    void OnOK() override;
    void OnCancel() override;

    // Tells the sheet that the page's content differs, or no longer differs, from what was applied.
    void SetModified(BOOL changed = TRUE);

    // Scrolls the page, where it is larger than its view, so that the control can be seen.
    void BringIntoView(HWND control);

    BOOL PreTranslateMessage(MSG* message) override;
    // Ends the sheet by the page's own will.
    void EndDialog(int result);

protected:
    void PostNcDestroy() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    friend class CPropertySheet;
    friend UINT CALLBACK AfxPropPageCallback(HWND, UINT, PROPSHEETPAGEA*);

    // The window has not been activated yet.
    bool m_firstSetActive = true;
    // The system has the page in a sheet, and is to keep it there.
    bool m_isInSheet = false;
    void Place();

    // The window has not been placed yet.
    bool m_isNew = true;
    // What places the window in a sheet that is on the screen.
    AfxSheetView* m_view = nullptr;
};
