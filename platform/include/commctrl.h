// Common controls: the tab control and the track bar, under their documented names.
#pragma once

#include <windows.h>

#include <prsht.h>

#define WC_TABCONTROLA "SysTabControl32"
#define TRACKBAR_CLASSA "msctls_trackbar32"
#define ICC_BAR_CLASSES 0x00000004
#define ICC_TAB_CLASSES 0x00000008

struct tagINITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};
using INITCOMMONCONTROLSEX = tagINITCOMMONCONTROLSEX;

#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_CUSTOMDRAW (NM_FIRST - 12)
#define NM_RELEASEDCAPTURE (NM_FIRST - 16)

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

// Custom drawing.
#define CDRF_DODEFAULT 0x00000000
#define CDRF_SKIPDEFAULT 0x00000004
#define CDRF_NOTIFYPOSTPAINT 0x00000010
#define CDRF_NOTIFYITEMDRAW 0x00000020
#define CDDS_PREPAINT 0x00000001
#define CDDS_POSTPAINT 0x00000002
#define CDDS_PREERASE 0x00000003
#define CDDS_POSTERASE 0x00000004
#define CDDS_ITEM 0x00010000
#define CDDS_ITEMPREPAINT (CDDS_ITEM | CDDS_PREPAINT)
#define CDDS_ITEMPOSTPAINT (CDDS_ITEM | CDDS_POSTPAINT)
#define CDIS_DEFAULT 0x0020
#define CDIS_HOT 0x0040

struct tagNMCUSTOMDRAWINFO {
    NMHDR hdr;
    DWORD dwDrawStage;
    HDC hdc;
    RECT rc;
    DWORD_PTR dwItemSpec;
    UINT uItemState;
    LPARAM lItemlParam;
};
using NMCUSTOMDRAW = tagNMCUSTOMDRAWINFO;

// Track bars.
#define TBM_GETPOS (WM_USER)
#define TBM_GETRANGEMIN (WM_USER + 1)
#define TBM_GETRANGEMAX (WM_USER + 2)
#define TBM_SETPOS (WM_USER + 5)
#define TBM_SETRANGE (WM_USER + 6)
#define TBM_SETRANGEMIN (WM_USER + 7)
#define TBM_SETRANGEMAX (WM_USER + 8)
#define TBM_SETPAGESIZE (WM_USER + 21)
#define TBM_GETPAGESIZE (WM_USER + 22)
#define TBM_SETLINESIZE (WM_USER + 23)
#define TBM_GETLINESIZE (WM_USER + 24)
#define TBM_GETTHUMBRECT (WM_USER + 25)
#define TBM_GETCHANNELRECT (WM_USER + 26)
#define TB_LINEUP 0
#define TB_LINEDOWN 1
#define TB_PAGEUP 2
#define TB_PAGEDOWN 3
#define TB_THUMBPOSITION 4
#define TB_THUMBTRACK 5
#define TB_TOP 6
#define TB_BOTTOM 7
#define TB_ENDTRACK 8
#define TBCD_THUMB 0x0002
#define TBCD_CHANNEL 0x0003

#pragma GCC visibility push(default)
extern "C" {
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);
}
#pragma GCC visibility pop
