// Popup menus.
#pragma once

#include "tavrikwin/types.h"

#define MF_STRING 0x0000
#define MF_GRAYED 0x0001
#define MF_DISABLED 0x0002
#define MF_POPUP 0x0010
#define MF_HILITE 0x0080
#define MF_SEPARATOR 0x0800

#define TPM_RIGHTBUTTON 0x0002
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100

#pragma GCC visibility push(default)
extern "C" {

HMENU CreatePopupMenu(void);
BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, LPCSTR text);
BOOL DestroyMenu(HMENU menu);
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, const RECT* ignored);
BOOL EndMenu(void);

}  // extern "C"
#pragma GCC visibility pop
