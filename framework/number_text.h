// Numbers as text, with a decimal point whatever the host's locale.
#pragma once

#include "framework/cstring.h"

// The general format with a number of significant digits and no trailing zeros.
CString AfxNumberText(double value, int digits);

// Reads a text that is a number and nothing else but blanks and tabs around it; FALSE when it is not, or when the
// number does not fit. A zero must begin with the digit 0, as in the classic framework: ".0" and "-0" are no numbers.
BOOL AfxParseNumber(LPCSTR text, double& value);
BOOL AfxParseNumber(LPCSTR text, long& value);
BOOL AfxParseNumber(LPCSTR text, int& value);
BOOL AfxParseNumber(LPCSTR text, UINT& value);
