// The field checks that all pages share.
#include <charconv>
#include <cmath>
#include <cstring>

#include "core/field_messages.h"
#include "core/settings_sheet.h"
#include "resources/resource.h"

namespace {

constexpr double kMinimumNumber = 0.1;

// The leading number of digits and points. The point is the decimal sign in whatever language the host program runs,
// so neither this nor the printing below may follow the host's locale.
double LeadingNumber(LPCSTR text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text, text + std::strlen(text), number, std::chars_format::fixed);
    if (error == std::errc::result_out_of_range) {
        // Too large or too small to be held; a digit other than 0 before the point tells which.
        const char first = text[std::strspn(text, "0")];
        return first >= '1' && first <= '9' ? HUGE_VAL : 0.0;
    }
    return number;
}

CString MinimumMessage() {
    char number[16] = {};
    std::to_chars(number, number + sizeof number - 1, kMinimumNumber, std::chars_format::fixed, 1);
    return LoadText(IDS_MINIMUM_IS) + " " + number + " !";
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
    if (*text == '\0') {
        ReportFieldError(this, LoadText(IDS_TEXT_EMPTY), IDS_FAULTY_TEXT_FIELD, control);
        return 0;
    }
    if (const char invalid = text[std::strspn(text, "0123456789.")]; invalid != '\0') {
        ReportFieldError(this, InvalidCharacterMessage(invalid), IDS_FAULTY_TEXT_FIELD, control);
        return 0;
    }
    if (LeadingNumber(text) < kMinimumNumber) {
        ReportFieldError(this, MinimumMessage(), IDS_VALUE_ERROR, control);
        return 0;
    }
    return 1;
}
