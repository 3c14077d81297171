// The first line of a text file.
#pragma once

#include "framework/framework.h"

// Reads the beginning of a file's first line as text: at most that many characters, with the line feed of a shorter
// line. Text ends at a NUL. FALSE when the file cannot be read; an empty file gives an empty line.
BOOL ReadFirstLine(LPCSTR path, int maxLength, CString& line);
