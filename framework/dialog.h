// CDialog: a dialog made from a template resource, run modally with its owner disabled, or created and left to the
// host's message loop.
#pragma once

#include "framework/window.h"

class CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
    DECLARE_MESSAGE_MAP()

public:
    // For a modeless dialog, followed by Create.
    CDialog() = default;
    // For a modal dialog. The parent may be null: then the front window of the main window's group becomes the owner.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // Creates the dialog without running it. FALSE when there is no such template.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    // The same from a template in memory, which need not outlive the call.
    BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);
    // Runs the dialog until EndDialog and returns its result; -1 when it could not be created.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    // TRUE lets the system give the focus to the first tab stop. The base fills the lists of combo boxes from the
    // template's initial data and shows the members.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    virtual void OnOK();
    virtual void OnCancel();
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);

    // The id of the template resource; 0 for a template in memory.
    UINT m_nIDTemplate = 0;
    CWnd* m_pParentWnd = nullptr;

private:
    BOOL CreateFromTemplate(const DLGTEMPLATE* dialogTemplate, HWND parent);
};

// The dialog procedure of every dialog and page: it lets the object initialise and leaves the rest to the window
// procedure.
INT_PTR CALLBACK AfxDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
