// Creation of dialogs from templates that have been read already.
#pragma once

#include "platform/dialog/dialog_template.h"

namespace platform {

// Creates the window and its controls and sends WM_INITDIALOG. Returns null when the window or a control could
// not be created; the procedure may also have destroyed the dialog again. `disabledOwner` is what EndDialog enables.
HWND createDialog(HINSTANCE instance, const DialogTemplate& source, HWND owner, DLGPROC proc, LPARAM param,
                  HWND disabledOwner = nullptr);

// The same, followed by the modal loop. `owner` may be null or a child window. Returns what EndDialog was given,
// or -1 when there is no dialog.
INT_PTR runDialog(HINSTANCE instance, const DialogTemplate& source, HWND owner, DLGPROC proc, LPARAM param);

// The position that centres a window over its owner, or on the screen without one; always inside the work area.
POINT centredPosition(SIZE window, HWND owner);

}  // namespace platform
