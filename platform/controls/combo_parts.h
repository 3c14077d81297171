// What a combo box and its two parts, the edit field and the drop-down list, say to each other besides the documented
// messages and notifications.
#pragma once

#include <windows.h>

namespace platform {

// Identifiers of the parts.
constexpr int kComboListId = 1000;
constexpr int kComboEditId = 1001;

// Style of the edit that is the field of its parent, a combo box.
constexpr DWORD kComboEditStyle = 0x0200;

// Edit to combo: a key that moves in the list, opens or closes it; wParam is the virtual key.
constexpr UINT kComboListKey = WM_USER + 1;
// Edit to combo: Alt with an arrow key opens or closes the list.
constexpr UINT kComboFlip = WM_USER + 2;
// Edit to combo: WM_MOUSEWHEEL for the open list, with the same parameters.
constexpr UINT kComboListWheel = WM_USER + 4;
// List to combo: the user pressed the mouse outside the open list, which has gone back to what it showed when opened.
constexpr UINT kComboListDismissed = WM_USER + 3;

}  // namespace platform
