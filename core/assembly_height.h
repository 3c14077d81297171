// The text height of item designations on assembly drawings. The page of texts and colours chooses it and the page of
// external diagrams shows it while the sheet is open, so it is kept once for the library, not with either page.
#pragma once

#include <windows.h>

// The height as text, "" for none. A longer text is cut off.
extern char g_assemblyTextHeight[32];

// Non-zero when the newer of the two keys is in the host's store, or has been recorded since.
extern int g_assemblyHeightKeyFound;

void SetAssemblyTextHeight(LPCSTR height);
