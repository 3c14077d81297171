// Numbers in settings and fields. The point is the decimal sign in whatever language the host program runs, so neither
// reading nor printing follows the host's locale.
#pragma once

#include <windows.h>

#include "framework/cstring.h"

// The number that a text begins with, blanks aside; 0 when there is none. One that is too large is infinite, or as an
// integer the nearest that fits.
double LeadingNumber(LPCSTR text);
int LeadingInteger(LPCSTR text);

// With a number of decimals, 6 at most, as "%f" prints it.
CString FixedText(double number, int decimals);
// With one decimal, as "%3.1f" prints it.
inline CString OneDecimal(double number) {
    return FixedText(number, 1);
}
