// Numbers in settings and fields. The point is the decimal sign in whatever language the host program runs, so neither
// reading nor printing follows the host's locale.
#pragma once

#include <windows.h>

#include "framework/cstring.h"

// The number that a text begins with, blanks aside; 0 when there is none. One that is too large is infinite.
double LeadingNumber(LPCSTR text);

// With one decimal, as "%3.1f" prints it.
CString OneDecimal(double number);
