// Common controls: the tab control, under its documented names.
#pragma once

#include <windows.h>

#include <prsht.h>

#define WC_TABCONTROLA "SysTabControl32"
#define ICC_TAB_CLASSES 0x00000008

struct tagINITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};
using INITCOMMONCONTROLSEX = tagINITCOMMONCONTROLSEX;

#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_RCLICK (NM_FIRST - 5)

#define TCS_FOCUSNEVER 0x8000
#define TCS_MULTILINE 0x0200
#define TCIF_TEXT 0x0001
#define TCIF_PARAM 0x0008
#define TCN_FIRST (0U - 550U)
#define TCN_KEYDOWN (TCN_FIRST - 0)
#define TCN_SELCHANGE (TCN_FIRST - 1)
#define TCN_SELCHANGING (TCN_FIRST - 2)
#define TCM_FIRST 0x1300
#define TCM_GETITEMCOUNT (TCM_FIRST + 4)
#define TCM_GETITEMA (TCM_FIRST + 5)
#define TCM_SETITEMA (TCM_FIRST + 6)
#define TCM_INSERTITEMA (TCM_FIRST + 7)
#define TCM_DELETEITEM (TCM_FIRST + 8)
#define TCM_DELETEALLITEMS (TCM_FIRST + 9)
#define TCM_GETITEMRECT (TCM_FIRST + 10)
#define TCM_GETCURSEL (TCM_FIRST + 11)
#define TCM_SETCURSEL (TCM_FIRST + 12)
#define TCM_HITTEST (TCM_FIRST + 13)
#define TCM_ADJUSTRECT (TCM_FIRST + 40)
#define TCM_GETROWCOUNT (TCM_FIRST + 44)
#define TCM_GETCURFOCUS (TCM_FIRST + 47)
#define TCM_SETCURFOCUS (TCM_FIRST + 48)
#define TCHT_NOWHERE 0x0001
#define TCHT_ONITEM 0x0006

struct tagTCITEMA {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};
using TCITEMA = tagTCITEMA;

struct tagTCHITTESTINFO {
    POINT pt;
    UINT flags;
};
using TCHITTESTINFO = tagTCHITTESTINFO;

#pragma pack(push, 1)
struct tagTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)
using NMTCKEYDOWN = tagTCKEYDOWN;

#pragma GCC visibility push(default)
extern "C" {
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);
}
#pragma GCC visibility pop
