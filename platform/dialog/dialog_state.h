// What the window system remembers of every dialog, from its creation until its window is gone.
#pragma once

#include <windows.h>

namespace platform {

struct DialogState {
    HWND savedFocus = nullptr;     // The control that gets the focus back when the dialog is activated again.
    HFONT font = nullptr;          // Null without DS_SETFONT.
    HWND disabledOwner = nullptr;  // The window that this dialog's modal loop has disabled; null for none.
    UINT defaultId = 0;            // The button that Enter presses when no other has the focus; 0 for none.
    INT_PTR result = 0;            // What the modal loop returns once the dialog has ended.
    bool ended = false;
};

// Null when the window is no dialog. The pointer is valid until the dialog is destroyed.
DialogState* dialogState(HWND dialog);
DialogState& addDialogState(HWND dialog);
void removeDialogState(HWND dialog);

// Gives the focus to a control as the keyboard does: the text of an edit becomes selected.
void focusControl(HWND control);

// The first tab stop of the dialog, else its first control that can have the focus.
HWND firstFocus(HWND dialog);

// Moves the default look to the control if it is a push button, else back to the dialog's own default button.
void moveDefaultLook(HWND dialog, const DialogState& state, HWND control);

// A length in dialog units as pixels.
int horizontalPixels(int units);
int verticalPixels(int units);

}  // namespace platform
