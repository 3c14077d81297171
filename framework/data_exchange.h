// Data exchange between the controls of a dialog and its members, and the validations of what was read.
// All DDX_ functions take the direction from the context: they show the member in the control, or read the control into
// the member. A reading or validation that fails tells the user and throws; only UpdateData catches that.
#pragma once

#include "framework/window.h"

class CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

    // TRUE reads controls, FALSE fills them.
    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
    // The control prepared last, which a failed validation blames.
    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;

    // Makes the control the one that a failure blames, the second as an edit whose text is then selected. Throws when
    // the dialog has no such control.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    // Gives the blamed control the focus, selects an edit's text, and abandons the exchange.
    [[noreturn]] void Fail();
};

// Texts and numbers. Doubles are shown with 15 significant digits, floats with 6.
void DDX_Text(CDataExchange* exchange, int id, CString& value);
void DDX_Text(CDataExchange* exchange, int id, int& value);
void DDX_Text(CDataExchange* exchange, int id, UINT& value);
void DDX_Text(CDataExchange* exchange, int id, long& value);
void DDX_Text(CDataExchange* exchange, int id, float& value);
void DDX_Text(CDataExchange* exchange, int id, double& value);

// The check state, 0 to 2; showing any other member sets it to 0.
void DDX_Check(CDataExchange* exchange, int id, int& value);
// The index of the checked button in the group that begins with the control; -1 when none is checked. An index outside
// the group leaves all buttons clear.
void DDX_Radio(CDataExchange* exchange, int id, int& value);
// Ties a control object to the control, once.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
// The text of a combo box: the first item that begins with it is selected, else it is put into the edit field.
void DDX_CBString(CDataExchange* exchange, int id, CString& value);
// The selected index of a combo box; -1 for none.
void DDX_CBIndex(CDataExchange* exchange, int id, int& value);

// Validations of the value exchanged just before.
// Filling limits the typing to a number of characters, reading refuses a longer text.
void DDV_MaxChars(CDataExchange* exchange, const CString& value, int maxLength);
// Reading refuses a value outside the bounds; filling lets it pass.
void DDV_MinMaxInt(CDataExchange* exchange, int value, int minimum, int maximum);
void DDV_MinMaxUInt(CDataExchange* exchange, UINT value, UINT minimum, UINT maximum);
void DDV_MinMaxLong(CDataExchange* exchange, long value, long minimum, long maximum);
void DDV_MinMaxFloat(CDataExchange* exchange, float value, float minimum, float maximum);
void DDV_MinMaxDouble(CDataExchange* exchange, double value, double minimum, double maximum);
