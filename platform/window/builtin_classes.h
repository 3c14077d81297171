// What the window room and the system's own window classes know of each other beside the window API. Each control room
// registers its classes; the window room calls them once, before the first window is created.
#pragma once

#include <windows.h>

namespace platform {

void registerDialogClass();     // "#32770"
void registerStaticClass();     // "Static"
void registerButtonClass();     // "Button"
void registerEditClass();       // "Edit"
void registerListBoxClasses();  // "ListBox" and the drop-down list "ComboLBox"
void registerComboBoxClass();   // "ComboBox"
void registerTabClass();        // "SysTabControl32"
void registerScrollBarClass();  // "ScrollBar"
void registerTrackBarClass();   // "msctls_trackbar32"
void registerHeaderClass();     // "SysHeader32"
void registerListViewClass();   // "SysListView32"
void registerMenuClass();       // "#32768"

// Stores a control's own style bits. Unlike SetWindowLongA, it sends no message about it.
void setStyleQuietly(HWND window, DWORD style);

}  // namespace platform
