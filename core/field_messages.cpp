// The messages of the field checks.
#include "core/field_messages.h"

#include "framework/box_place.h"
#include "resources/resource.h"

CString LoadText(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

CString InvalidCharacterMessage(char character) {
    CString message = LoadText(IDS_IS_INVALID);
    message.Insert(0, character);
    return message;
}

void ReportFieldError(CWnd* owner, LPCSTR message, UINT captionId, CWnd* control) {
    {
        const AfxBoxBeside beside(control != nullptr ? control->m_hWnd : ::GetFocus());
        owner->MessageBox(message, LoadText(captionId), MB_OK | MB_ICONEXCLAMATION);
    }
    // The host may have destroyed the control while the box was up.
    if (control != nullptr && ::IsWindow(control->m_hWnd)) {
        control->SetFocus();
    }
}

void SelectWholeText(CWnd* control) {
    control->SendMessage(EM_SETSEL, 0, control->GetWindowTextLength());
    control->SendMessage(EM_SCROLLCARET);
}
