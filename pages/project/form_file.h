// The file dialog of the page "Blanketter".
#pragma once

#include "framework/framework.h"

// Asks for a drawing file, starting in the folder (empty for none). On IDOK the name gets the file's name without its
// folder, up to the first point. Returns the dialog's result.
INT_PTR PickFormFile(LPCSTR title, LPCSTR folder, CString& name);
