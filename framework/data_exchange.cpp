// The directions of each data exchange, and what happens to the user's text when one is refused.

#include "framework/data_exchange.h"

#include <string>

#include "framework/application.h"
#include "framework/box_place.h"
#include "framework/exception.h"
#include "framework/message_routing.h"
#include "framework/number_text.h"
#include "framework/prompts.h"

namespace {

// Keeps a window's control notifications from being handled, for a scope.
class NotificationLockout {
public:
    explicit NotificationLockout(HWND window) : m_former(AfxGetRoutingState().lockoutWindow) {
        AfxGetRoutingState().lockoutWindow = window;
    }
    ~NotificationLockout() { AfxGetRoutingState().lockoutWindow = m_former; }
    NotificationLockout(const NotificationLockout&) = delete;
    NotificationLockout& operator=(const NotificationLockout&) = delete;

private:
    HWND m_former;
};

constexpr int kFloatDigits = 6;
constexpr int kDoubleDigits = 15;

CString WindowText(HWND window) {
    CString text;
    const int length = ::GetWindowTextLengthA(window);
    const LPSTR buffer = text.GetBuffer(length + 1);
    text.ReleaseBuffer(::GetWindowTextA(window, buffer, length + 1));
    return text;
}

[[noreturn]] void Refuse(CDataExchange* exchange, LPCSTR prompt) {
    const AfxBoxBeside beside(exchange->m_hWndLastControl);
    AfxMessageBox(prompt, MB_ICONEXCLAMATION);
    exchange->Fail();
}

template <typename Integer>
void ExchangeInteger(CDataExchange* exchange, int id, Integer& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        AfxSetWindowText(control, std::to_string(value).c_str());
    } else if (!AfxParseNumber(WindowText(control), value)) {
        Refuse(exchange, kPromptInteger);
    }
}

template <typename Real>
void ExchangeReal(CDataExchange* exchange, int id, Real& value, int digits) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        AfxSetWindowText(control, AfxNumberText(static_cast<double>(value), digits));
        return;
    }
    double read = 0;
    if (!AfxParseNumber(WindowText(control), read)) {
        Refuse(exchange, kPromptNumber);
    }
    value = static_cast<Real>(read);
}

template <typename Number>
void ValidateRange(CDataExchange* exchange, Number value, Number minimum, Number maximum, const CString& minimumText,
                   const CString& maximumText) {
    // Written so that a value that is no number fails too. What a member holds is shown without complaint.
    if (!exchange->m_bSaveAndValidate || (value >= minimum && value <= maximum)) {
        return;
    }
    CString prompt;
    AfxFormatString2(prompt, kPromptRange, minimumText, maximumText);
    Refuse(exchange, prompt);
}

template <typename Integer>
void ValidateIntegerRange(CDataExchange* exchange, Integer value, Integer minimum, Integer maximum) {
    ValidateRange(exchange, value, minimum, maximum, std::to_string(minimum).c_str(), std::to_string(maximum).c_str());
}

bool IsRadioButton(HWND control) {
    return (::SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

bool BeginsGroup(HWND control) {
    return (::GetWindowLongPtrA(control, GWL_STYLE) & WS_GROUP) != 0;
}

}  // namespace

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    const NotificationLockout lockout(m_hWnd);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (const std::exception&) {
        AfxReportException();
    }
    return FALSE;
}

HWND CDataExchange::PrepareCtrl(int id) {
    m_hWndLastControl = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    m_bEditLastControl = FALSE;
    if (m_hWndLastControl == nullptr) {
        AfxThrowNotSupportedException();
    }
    return m_hWndLastControl;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
    PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return m_hWndLastControl;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr) {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl) {
            ::SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
        }
    }
    AfxThrowUserException();
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = WindowText(control);
    } else {
        AfxSetWindowText(control, value);
    }
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    ExchangeInteger(exchange, id, value);
}
void DDX_Text(CDataExchange* exchange, int id, UINT& value) {
    ExchangeInteger(exchange, id, value);
}
void DDX_Text(CDataExchange* exchange, int id, long& value) {
    ExchangeInteger(exchange, id, value);
}
void DDX_Text(CDataExchange* exchange, int id, float& value) {
    ExchangeReal(exchange, id, value, kFloatDigits);
}
void DDX_Text(CDataExchange* exchange, int id, double& value) {
    ExchangeReal(exchange, id, value, kDoubleDigits);
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = static_cast<int>(::SendMessageA(control, BM_GETCHECK, 0, 0));
    } else {
        if (value < BST_UNCHECKED || value > BST_INDETERMINATE) {
            // As it is shown.
            value = BST_UNCHECKED;
        }
        ::SendMessageA(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
    }
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
    HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = -1;
    }
    int index = 0;
    do {
        if (IsRadioButton(control)) {
            if (!exchange->m_bSaveAndValidate) {
                ::SendMessageA(control, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
            } else if (::SendMessageA(control, BM_GETCHECK, 0, 0) != BST_UNCHECKED) {
                value = index;
            }
            ++index;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control != nullptr && !BeginsGroup(control));
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd == nullptr && !control.SubclassWindow(exchange->PrepareCtrl(id))) {
        AfxThrowNotSupportedException();
    }
}

void DDX_CBString(CDataExchange* exchange, int id, CString& value) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = WindowText(control);
    } else if (::SendMessageA(control, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                              reinterpret_cast<LPARAM>(value.GetString())) == CB_ERR) {
        AfxSetWindowText(control, value);
    }
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& value) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = static_cast<int>(::SendMessageA(control, CB_GETCURSEL, 0, 0));
    } else if (::SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(value), 0) == CB_ERR) {
        // Not on every system does a position that the list does not have clear the selection.
        ::SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    }
}

void DDV_MaxChars(CDataExchange* exchange, const CString& value, int maxLength) {
    if (!exchange->m_bSaveAndValidate) {
        const UINT message = exchange->m_bEditLastControl ? EM_LIMITTEXT : CB_LIMITTEXT;
        ::SendMessageA(exchange->m_hWndLastControl, message, static_cast<WPARAM>(maxLength), 0);
        return;
    }
    if (value.GetLength() > maxLength) {
        CString prompt;
        AfxFormatString1(prompt, kPromptLength, std::to_string(maxLength).c_str());
        Refuse(exchange, prompt);
    }
}

void DDV_MinMaxInt(CDataExchange* exchange, int value, int minimum, int maximum) {
    ValidateIntegerRange(exchange, value, minimum, maximum);
}

void DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT minimum, UINT maximum) {
    ValidateIntegerRange(exchange, value, minimum, maximum);
}

void DDV_MinMaxLong(CDataExchange* exchange, long value, long minimum, long maximum) {
    ValidateIntegerRange(exchange, value, minimum, maximum);
}

void DDV_MinMaxFloat(CDataExchange* exchange, float value, float minimum, float maximum) {
    ValidateRange(exchange, value, minimum, maximum, AfxNumberText(static_cast<double>(minimum), kFloatDigits),
                  AfxNumberText(static_cast<double>(maximum), kFloatDigits));
}

void DDV_MinMaxDouble(CDataExchange* exchange, double value, double minimum, double maximum) {
    ValidateRange(exchange, value, minimum, maximum, AfxNumberText(minimum, kDoubleDigits),
                  AfxNumberText(maximum, kDoubleDigits));
}
