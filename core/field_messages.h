// What all field checks say and do when they reject a text.
#pragma once

#include "framework/framework.h"

// The text of a string resource, empty when there is none.
CString LoadText(UINT id);

// "... is invalid!", with the character directly in front.
CString InvalidCharacterMessage(char character);

// Shows a message box with an exclamation mark, owned by the window, and then gives the control (null for none) the
// focus.
void ReportFieldError(CWnd* owner, LPCSTR message, UINT captionId, CWnd* control);

// Selects all of an edit's text and scrolls the caret into view.
void SelectWholeText(CWnd* control);

// The check of a number in a field, with its boxes owned by a window: see CSettingsSheet::CheckNumberField.
int CheckNumber(CWnd* owner, LPCSTR text, CWnd* control);
