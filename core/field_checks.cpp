// The field checks that all pages share.
#include <cstring>

#include "core/field_messages.h"
#include "core/numbers.h"
#include "core/settings_sheet.h"
#include "resources/resource.h"

namespace {

constexpr double kMinimumNumber = 0.1;

CString MinimumMessage() {
    return LoadText(IDS_MINIMUM_IS) + " " + OneDecimal(kMinimumNumber) + " !";
}

}  // namespace

int CSettingsSheet::CheckRequiredField(CString& text, CWnd* control) {
    text.Trim();
    if (!text.IsEmpty()) {
        return 1;
    }
    ReportFieldError(this, LoadText(IDS_TEXT_EMPTY), IDS_FAULTY_TEXT_FIELD, control);
    return 0;
}

int CSettingsSheet::RejectForbidden(const CString& text, CWnd* control, LPCSTR forbidden, Selection selection) {
    const int position = text.FindOneOf(forbidden);
    if (position < 0) {
        return 0;
    }
    ReportFieldError(this, InvalidCharacterMessage(text[position]), IDS_FAULTY_TEXT_FIELD, control);
    if (control != nullptr && selection == Selection::SelectText) {
        SelectWholeText(control);
    }
    return 1;
}

int CSettingsSheet::CheckTextField(CString& text, CWnd* control, LPCSTR forbidden, int required) {
    if (required != 0 && CheckRequiredField(text, control) == 0) {
        return 0;
    }
    return RejectForbidden(text, control, forbidden, Selection::SelectText) != 0 ? 0 : 1;
}

int CSettingsSheet::CheckTextFieldNoSelect(CString& text, CWnd* control, LPCSTR forbidden, int required) {
    if (required != 0 && CheckRequiredField(text, nullptr) == 0) {
        if (control != nullptr) {
            control->SetFocus();
        }
        return 0;
    }
    return RejectForbidden(text, control, forbidden, Selection::KeepSelection) != 0 ? 0 : 1;
}

int CSettingsSheet::CheckNumberField(LPCSTR text, CWnd* control) {
    return CheckNumber(this, text, control);
}

int CheckNumber(CWnd* owner, LPCSTR text, CWnd* control) {
    if (*text == '\0') {
        ReportFieldError(owner, LoadText(IDS_TEXT_EMPTY), IDS_FAULTY_TEXT_FIELD, control);
        return 0;
    }
    if (const char invalid = text[std::strspn(text, "0123456789.")]; invalid != '\0') {
        ReportFieldError(owner, InvalidCharacterMessage(invalid), IDS_FAULTY_TEXT_FIELD, control);
        return 0;
    }
    if (LeadingNumber(text) < kMinimumNumber) {
        ReportFieldError(owner, MinimumMessage(), IDS_VALUE_ERROR, control);
        return 0;
    }
    return 1;
}
