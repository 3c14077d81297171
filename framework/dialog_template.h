// Dialog templates as resources, and the initial lists of the combo boxes in them.
#pragma once

#include "framework/window_api.h"

// A template of the current resource module; null when there is none. It stays valid as long as the module is loaded.
const DLGTEMPLATE* AfxLoadDialogTemplate(UINT id);

// Whether the template leaves the dialog's place to the program.
bool AfxTemplateLeavesPlace(const DLGTEMPLATE* dialogTemplate);

// Adds the items that the resource with initial data lists for a dialog's list and combo boxes. A resource that ends
// within an item is read up to there; a dialog without one has nothing to add.
void AfxExecuteDialogInit(HWND dialog, UINT id);
