// Property sheets: structures, messages and notifications under their documented names.
#pragma once

#include <windows.h>

struct _PSP;
using HPROPSHEETPAGE = struct _PSP*;
struct _PROPSHEETPAGEA;
using LPFNPSPCALLBACKA = UINT(CALLBACK*)(HWND, UINT, struct _PROPSHEETPAGEA*);
using PFNPROPSHEETCALLBACK = int(CALLBACK*)(HWND, UINT, LPARAM);

struct _PROPSHEETPAGEA {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCSTR pszTemplate;
        LPCDLGTEMPLATE pResource;
    };
    union {
        HICON hIcon;
        LPCSTR pszIcon;
    };
    LPCSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKA pfnCallback;
    UINT* pcRefParent;
};
using PROPSHEETPAGEA = _PROPSHEETPAGEA;
using LPCPROPSHEETPAGEA = const PROPSHEETPAGEA*;

#define PSP_DLGINDIRECT 0x0001
#define PSP_USECALLBACK 0x0080
#define PSPCB_RELEASE 1
#define PSPCB_CREATE 2

struct _PROPSHEETHEADERA {
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union {
        HICON hIcon;
        LPCSTR pszIcon;
    };
    LPCSTR pszCaption;
    UINT nPages;
    union {
        UINT nStartPage;
        LPCSTR pStartPage;
    };
    union {
        LPCPROPSHEETPAGEA ppsp;
        HPROPSHEETPAGE* phpage;
    };
    PFNPROPSHEETCALLBACK pfnCallback;
};
using PROPSHEETHEADERA = _PROPSHEETHEADERA;
using LPCPROPSHEETHEADERA = const PROPSHEETHEADERA*;

#define PSH_NOAPPLYNOW 0x00000080
#define PSH_MODELESS 0x00000400

#define PSN_FIRST (0U - 200U)
#define PSN_SETACTIVE (PSN_FIRST - 0)
#define PSN_KILLACTIVE (PSN_FIRST - 1)
#define PSN_APPLY (PSN_FIRST - 2)
#define PSN_RESET (PSN_FIRST - 3)
#define PSN_QUERYCANCEL (PSN_FIRST - 9)
#define PSNRET_NOERROR 0
#define PSNRET_INVALID_NOCHANGEPAGE 2

struct _PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;
};
using PSHNOTIFY = _PSHNOTIFY;

#define PSM_SETCURSEL (WM_USER + 101)
#define PSM_REMOVEPAGE (WM_USER + 102)
#define PSM_ADDPAGE (WM_USER + 103)
#define PSM_CHANGED (WM_USER + 104)
#define PSM_UNCHANGED (WM_USER + 109)
#define PSM_PRESSBUTTON (WM_USER + 113)
#define PSM_GETTABCONTROL (WM_USER + 116)
#define PSM_ISDIALOGMESSAGE (WM_USER + 117)
#define PSM_GETCURRENTPAGEHWND (WM_USER + 118)
#define PSBTN_OK 3
#define PSBTN_CANCEL 5

#pragma GCC visibility push(default)
extern "C" {
HPROPSHEETPAGE CreatePropertySheetPageA(LPCPROPSHEETPAGEA page);
BOOL DestroyPropertySheetPage(HPROPSHEETPAGE page);
INT_PTR PropertySheetA(LPCPROPSHEETHEADERA header);
}
#pragma GCC visibility pop
