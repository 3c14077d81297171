// Common controls: tab control, track bar, list view and header, under their documented names.
#pragma once

#include <windows.h>

#include <prsht.h>

#define WC_TABCONTROLA "SysTabControl32"
#define TRACKBAR_CLASSA "msctls_trackbar32"
#define WC_LISTVIEWA "SysListView32"
#define WC_HEADERA "SysHeader32"
#define ICC_LISTVIEW_CLASSES 0x00000001
#define ICC_BAR_CLASSES 0x00000004
#define ICC_TAB_CLASSES 0x00000008

struct tagINITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};
using INITCOMMONCONTROLSEX = tagINITCOMMONCONTROLSEX;

#define NM_FIRST (0U - 0U)
#define NM_OUTOFMEMORY (NM_FIRST - 1)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_RCLICK (NM_FIRST - 5)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)
#define NM_CUSTOMDRAW (NM_FIRST - 12)
#define NM_RELEASEDCAPTURE (NM_FIRST - 16)

#define TCS_MULTILINE 0x0200
#define TCIF_TEXT 0x0001
#define TCN_FIRST (0U - 550U)
#define TCN_KEYDOWN (TCN_FIRST - 0)
#define TCN_SELCHANGE (TCN_FIRST - 1)
#define TCN_SELCHANGING (TCN_FIRST - 2)
#define TCM_FIRST 0x1300
#define TCM_GETITEMCOUNT (TCM_FIRST + 4)
#define TCM_GETITEMA (TCM_FIRST + 5)
#define TCM_INSERTITEMA (TCM_FIRST + 7)
#define TCM_DELETEITEM (TCM_FIRST + 8)
#define TCM_GETITEMRECT (TCM_FIRST + 10)
#define TCM_GETCURSEL (TCM_FIRST + 11)
#define TCM_SETCURSEL (TCM_FIRST + 12)
#define TCM_ADJUSTRECT (TCM_FIRST + 40)
#define TCM_GETROWCOUNT (TCM_FIRST + 44)
#define TCM_SETCURFOCUS (TCM_FIRST + 48)

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

#pragma pack(push, 1)
struct tagTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)
using NMTCKEYDOWN = tagTCKEYDOWN;

// Custom drawing: what is answered, the stages, and the states of an item.
#define CDRF_DODEFAULT 0x00000000
#define CDRF_SKIPDEFAULT 0x00000004
#define CDRF_NOTIFYITEMDRAW 0x00000020
#define CDRF_NOTIFYSUBITEMDRAW 0x00000020
#define CDDS_PREPAINT 0x00000001
#define CDDS_ITEM 0x00010000
#define CDDS_SUBITEM 0x00020000
#define CDDS_ITEMPREPAINT (CDDS_ITEM | CDDS_PREPAINT)
#define CDIS_SELECTED 0x0001
#define CDIS_FOCUS 0x0010

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
#define TBM_SETRANGEMIN (WM_USER + 7)
#define TBM_SETRANGEMAX (WM_USER + 8)
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

#define LVS_EX_CHECKBOXES 0x00000004
#define LVS_EX_HEADERDRAGDROP 0x00000010
#define LVIF_TEXT 0x0001
#define LVIF_PARAM 0x0004
#define LVIF_STATE 0x0008
#define LVIS_FOCUSED 0x0001
#define LVIS_SELECTED 0x0002
#define LVIS_STATEIMAGEMASK 0xF000
#define INDEXTOSTATEIMAGEMASK(i) ((i) << 12)
#define LVCF_FMT 0x0001
#define LVCF_WIDTH 0x0002
#define LVCF_TEXT 0x0004
#define LVCF_SUBITEM 0x0008
#define LVCFMT_LEFT 0x0000
#define LVNI_ALL 0x0000
#define LVNI_FOCUSED 0x0001
#define LVNI_SELECTED 0x0002
#define LVIR_BOUNDS 0
#define LVIR_LABEL 2
#define LVIR_SELECTBOUNDS 3
#define LVHT_NOWHERE 0x0001
#define LVHT_ONITEMLABEL 0x0004
#define LVHT_ONITEMSTATEICON 0x0008

#define LVM_FIRST 0x1000
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_GETITEMA (LVM_FIRST + 5)
#define LVM_SETITEMA (LVM_FIRST + 6)
#define LVM_INSERTITEMA (LVM_FIRST + 7)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETNEXTITEM (LVM_FIRST + 12)
#define LVM_GETITEMRECT (LVM_FIRST + 14)
#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_EDITLABELA (LVM_FIRST + 23)
#define LVM_GETEDITCONTROL (LVM_FIRST + 24)
#define LVM_INSERTCOLUMNA (LVM_FIRST + 27)
#define LVM_GETHEADER (LVM_FIRST + 31)
#define LVM_GETTOPINDEX (LVM_FIRST + 39)
#define LVM_GETCOUNTPERPAGE (LVM_FIRST + 40)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_GETITEMTEXTA (LVM_FIRST + 45)
#define LVM_SETITEMTEXTA (LVM_FIRST + 46)
#define LVM_SORTITEMS (LVM_FIRST + 48)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETSUBITEMRECT (LVM_FIRST + 56)
#define LVM_SETCOLUMNORDERARRAY (LVM_FIRST + 58)
#define LVM_GETCOLUMNORDERARRAY (LVM_FIRST + 59)

#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGING (LVN_FIRST - 0)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_INSERTITEM (LVN_FIRST - 2)
#define LVN_DELETEITEM (LVN_FIRST - 3)
#define LVN_DELETEALLITEMS (LVN_FIRST - 4)
#define LVN_BEGINLABELEDITA (LVN_FIRST - 5)
#define LVN_ENDLABELEDITA (LVN_FIRST - 6)
#define LVN_COLUMNCLICK (LVN_FIRST - 8)
#define LVN_ITEMACTIVATE (LVN_FIRST - 14)
#define LVN_KEYDOWN (LVN_FIRST - 55)

using PFNLVCOMPARE = int(CALLBACK*)(LPARAM, LPARAM, LPARAM);

struct tagLVITEMA {
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};
using LVITEMA = tagLVITEMA;

struct tagLVCOLUMNA {
    UINT mask;
    int fmt;
    int cx;
    LPSTR pszText;
    int cchTextMax;
    int iSubItem;
};
using LVCOLUMNA = tagLVCOLUMNA;

struct tagNMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
};
using NMLISTVIEW = tagNMLISTVIEW;

struct tagNMITEMACTIVATE {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags;
};
using NMITEMACTIVATE = tagNMITEMACTIVATE;

struct tagLVDISPINFO {
    NMHDR hdr;
    LVITEMA item;
};
using NMLVDISPINFOA = tagLVDISPINFO;

struct tagNMLVCUSTOMDRAW {
    NMCUSTOMDRAW nmcd;
    COLORREF clrText;
    COLORREF clrTextBk;
    int iSubItem;
};
using NMLVCUSTOMDRAW = tagNMLVCUSTOMDRAW;

#pragma pack(push, 1)
struct tagLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)
using NMLVKEYDOWN = tagLVKEYDOWN;

#define HDS_BUTTONS 0x0002
#define HDS_DRAGDROP 0x0040
#define HDS_FULLDRAG 0x0080
#define HDI_WIDTH 0x0001
#define HDI_TEXT 0x0002
#define HDI_ORDER 0x0080
#define HHT_NOWHERE 0x0001
#define HHT_ONHEADER 0x0002
#define HHT_ONDIVIDER 0x0004
#define HHT_ONDIVOPEN 0x0008

#define HDM_FIRST 0x1200
#define HDM_GETITEMCOUNT (HDM_FIRST + 0)
#define HDM_INSERTITEMA (HDM_FIRST + 1)
#define HDM_SETITEMA (HDM_FIRST + 4)
#define HDM_LAYOUT (HDM_FIRST + 5)
#define HDM_GETITEMRECT (HDM_FIRST + 7)
#define HDM_GETORDERARRAY (HDM_FIRST + 17)
#define HDM_SETORDERARRAY (HDM_FIRST + 18)

#define HDN_FIRST (0U - 300U)
#define HDN_ITEMCHANGEDA (HDN_FIRST - 1)
#define HDN_ITEMCLICKA (HDN_FIRST - 2)
#define HDN_DIVIDERDBLCLICKA (HDN_FIRST - 5)
#define HDN_ENDTRACKA (HDN_FIRST - 7)
#define HDN_BEGINDRAG (HDN_FIRST - 10)
#define HDN_ENDDRAG (HDN_FIRST - 11)

struct HDITEMA {
    UINT mask;
    int cxy;
    LPSTR pszText;
    HBITMAP hbm;
    int cchTextMax;
    int fmt;
    LPARAM lParam;
    int iImage;
    int iOrder;
};

struct tagNMHEADERA {
    NMHDR hdr;
    int iItem;
    int iButton;
    HDITEMA* pitem;
};
using NMHEADERA = tagNMHEADERA;

struct HDLAYOUT {
    RECT* prc;
    WINDOWPOS* pwpos;
};

#pragma GCC visibility push(default)
extern "C" {
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);
}
#pragma GCC visibility pop
