// The formats of an automatic date.
#pragma once

#include "framework/framework.h"

constexpr int kDateFormats = 8;

// The formats as the page shows them, and as the dialog offers them. Only the index is stored, and the last one differs
// on purpose: the dialog has slashes and the page dashes.
extern const LPCSTR kPageDateFormats[kDateFormats];
extern const LPCSTR kOfferedDateFormats[kDateFormats];

// Today's local date.
CString TodayText(LPCSTR format);
