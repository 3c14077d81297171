// The life of a dialog: creation from a template, initialisation, the modal run and its result.

#include "framework/dialog.h"

#include "framework/common_controls.h"
#include "framework/dialog_template.h"
#include "framework/exception.h"
#include "framework/message_routing.h"
#include "framework/modal_owner.h"
#include "framework/module_state.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
END_MESSAGE_MAP()

INT_PTR CALLBACK AfxDlgProc(HWND window, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    const auto dialogOf = [](HWND handle) { return DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(handle)); };
    CDialog* dialog = dialogOf(window);
    if (dialog == nullptr) {
        return TRUE;
    }
    try {
        return dialog->OnInitDialog();
    } catch (...) {
        // The system's code above must not be unwound.
        AfxReportException();
    }
    // The report ran a loop in which the dialog may have gone. A page runs no loop of its own and stays.
    dialog = dialogOf(window);
    if (dialog != nullptr) {
        dialog->EndDialog(-1);
    }
    return FALSE;
}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nIDTemplate(templateId), m_pParentWnd(parent) {}

CDialog::~CDialog() {
    // Here, while the object is still a dialog, so that the last messages find this class's handlers.
    CDialog::DestroyWindow();
}

BOOL CDialog::CreateFromTemplate(const DLGTEMPLATE* dialogTemplate, HWND parent) {
    if (dialogTemplate == nullptr) {
        return FALSE;
    }
    AfxInitCommonControls();
    AfxHookWindowCreate(this);
    ::SetLastError(0);
    const HWND dialog = CreateDialogIndirectParamA(AfxGetInstanceHandle(), dialogTemplate, parent, AfxDlgProc, 0);
    AfxUnhookWindowCreate();
    if (m_hWnd != nullptr && AfxTemplateLeavesPlace(dialogTemplate)) {
        CenterWindow();
    }
    if (dialog == nullptr) {
        AfxFailModalOutOfMemory();
        AfxFailModal(AfxFailure::WindowGone);
    }
    return dialog != nullptr && m_hWnd != nullptr;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    m_nIDTemplate = templateId;
    return CreateFromTemplate(AfxLoadDialogTemplate(templateId), AfxSafeHandle(parent));
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent) {
    return CreateFromTemplate(dialogTemplate, AfxSafeHandle(parent));
}

INT_PTR CDialog::DoModal() {
    const DLGTEMPLATE* dialogTemplate = AfxLoadDialogTemplate(m_nIDTemplate);
    if (dialogTemplate == nullptr) {
        return -1;
    }
    AfxModalOwner owner(m_pParentWnd);
    m_nModalResult = -1;
    m_continueModal = true;
    // The initialisation may have ended the dialog already.
    try {
        if (CreateFromTemplate(dialogTemplate, owner.Handle()) && ContinueModal()) {
            RunModalLoop(MLF_SHOWONIDLE);
        }
    } catch (...) {
        AfxReportException();
        m_nModalResult = -1;
    }
    m_continueModal = false;
    if (owner.HasFailed()) {
        m_nModalResult = -1;
    }
    owner.CloseModal(*this);
    return m_nModalResult;
}

void CDialog::EndDialog(int result) {
    EndModalLoop(result);
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
    // The default processing reaches the dialog procedure, and that OnInitDialog.
    return Default();
}

BOOL CDialog::OnInitDialog() {
    if (m_nIDTemplate != 0) {
        AfxExecuteDialogInit(m_hWnd, m_nIDTemplate);
    }
    if (!UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    const bool isMouse = message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST;
    return (isKey || isMouse) && ::IsDialogMessageA(m_hWnd, message);
}
