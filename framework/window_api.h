// The window API as the framework and everything above it includes it.
// Deliberately missing: the wide-character half; texts are single bytes of code page 1252.
#pragma once

#include <windows.h>
// The common controls and the property sheet need the first header's types.
#include <commctrl.h>
#include <prsht.h>

// A function-like macro of the system headers that would swallow the member function of that name.
#undef GetNextWindow

// Marks a message handler; it expands to nothing and is there for the reader.
#define afx_msg
