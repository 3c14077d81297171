// Windows, messages, input, dialogs: structures and functions.
#pragma once

#include "tavrikwin/types.h"

struct tagWNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};
using WNDCLASSA = tagWNDCLASSA;

struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using MSG = tagMSG;
using LPMSG = MSG*;

struct tagCREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};
using CREATESTRUCTA = tagCREATESTRUCTA;
using LPCREATESTRUCTA = CREATESTRUCTA*;
using LPCREATESTRUCT = LPCREATESTRUCTA;

struct tagCBT_CREATEWNDA {
    CREATESTRUCTA* lpcs;
    HWND hwndInsertAfter;
};
using CBT_CREATEWNDA = tagCBT_CREATEWNDA;

struct tagWINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};
using WINDOWPOS = tagWINDOWPOS;

struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
using MINMAXINFO = tagMINMAXINFO;

struct tagNCCALCSIZE_PARAMS {
    RECT rgrc[3];
    WINDOWPOS* lppos;
};
using NCCALCSIZE_PARAMS = tagNCCALCSIZE_PARAMS;

struct tagSTYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
};
using STYLESTRUCT = tagSTYLESTRUCT;

struct tagNMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
using NMHDR = tagNMHDR;

struct tagDRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
using DRAWITEMSTRUCT = tagDRAWITEMSTRUCT;
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct tagMEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};
using MEASUREITEMSTRUCT = tagMEASUREITEMSTRUCT;
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

struct tagDELETEITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
};
using DELETEITEMSTRUCT = tagDELETEITEMSTRUCT;

#define ODT_LISTBOX 2
#define ODT_COMBOBOX 3
#define ODT_BUTTON 4
#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT 0x0002
#define ODA_FOCUS 0x0004
#define ODS_SELECTED 0x0001
#define ODS_DISABLED 0x0004
#define ODS_FOCUS 0x0010
#define ODS_COMBOBOXEDIT 0x1000

struct tagCOMBOBOXINFO {
    DWORD cbSize;
    RECT rcItem;
    RECT rcButton;
    DWORD stateButton;
    HWND hwndCombo;
    HWND hwndItem;
    HWND hwndList;
};
using COMBOBOXINFO = tagCOMBOBOXINFO;

// The classic dialog template. Its fields are packed two bytes apart, as in the resource.
#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    short x;
    short y;
    short cx;
    short cy;
};
#pragma pack(pop)
using LPCDLGTEMPLATEA = const DLGTEMPLATE*;
using LPCDLGTEMPLATE = const DLGTEMPLATE*;

#pragma GCC visibility push(default)
extern "C" {

// Classes and windows.
ATOM RegisterClassA(const WNDCLASSA* windowClass);
int GetClassNameA(HWND window, LPSTR name, int size);
HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
BOOL IsChild(HWND parent, HWND window);
BOOL IsWindowVisible(HWND window);
BOOL IsWindowEnabled(HWND window);
BOOL EnableWindow(HWND window, BOOL enable);
BOOL ShowWindow(HWND window, int command);
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
LONG GetWindowLongA(HWND window, int index);
LONG SetWindowLongA(HWND window, int index, LONG value);
LONG_PTR GetWindowLongPtrA(HWND window, int index);
LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
BOOL SetWindowTextA(HWND window, LPCSTR text);
int GetWindowTextA(HWND window, LPSTR text, int size);
int GetWindowTextLengthA(HWND window);
HWND GetParent(HWND window);
HWND GetWindow(HWND window, UINT relation);
HWND GetTopWindow(HWND window);
HWND GetAncestor(HWND window, UINT kind);
HWND GetLastActivePopup(HWND window);
HWND GetDesktopWindow(void);
HWND FindWindowA(LPCSTR className, LPCSTR text);
BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC proc, LPARAM param);
BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param);
BOOL GetWindowRect(HWND window, LPRECT rect);
BOOL GetClientRect(HWND window, LPRECT rect);
BOOL ClientToScreen(HWND window, LPPOINT point);
BOOL ScreenToClient(HWND window, LPPOINT point);
int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);

// Messages.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);
BOOL GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
BOOL WaitMessage(void);
BOOL PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageA(const MSG* message);
LRESULT CallWindowProcA(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT elapseMs, TIMERPROC proc);
BOOL KillTimer(HWND window, UINT_PTR id);
HHOOK SetWindowsHookExA(int kind, HOOKPROC proc, HINSTANCE module, DWORD thread);
BOOL UnhookWindowsHookEx(HHOOK hook);
LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);

// Focus, activation, mouse and keyboard.
HWND GetFocus(void);
HWND SetFocus(HWND window);
HWND GetActiveWindow(void);
HWND SetActiveWindow(HWND window);
HWND GetCapture(void);
HWND SetCapture(HWND window);
BOOL ReleaseCapture(void);
SHORT GetKeyState(int key);
BOOL GetKeyboardState(BYTE* state);
BOOL SetKeyboardState(BYTE* state);
BOOL GetCursorPos(LPPOINT point);
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);
HCURSOR SetCursor(HCURSOR cursor);
BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
BOOL DestroyCaret(void);
BOOL HideCaret(HWND window);
BOOL ShowCaret(HWND window);
BOOL SetCaretPos(int x, int y);
BOOL GetCaretPos(LPPOINT point);

// Painting of windows.
HDC BeginPaint(HWND window, struct tagPAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const struct tagPAINTSTRUCT* paint);
HDC GetDC(HWND window);
HDC GetWindowDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
BOOL InvalidateRect(HWND window, LPCRECT rect, BOOL erase);
BOOL ValidateRect(HWND window, LPCRECT rect);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, LPCRECT rect, HRGN region, UINT flags);
BOOL GetUpdateRect(HWND window, LPRECT rect, BOOL erase);

// Dialogs and message boxes.
HWND CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate, HWND owner, DLGPROC proc,
                                LPARAM param);
INT_PTR DialogBoxIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate, HWND owner, DLGPROC proc,
                                LPARAM param);
BOOL EndDialog(HWND dialog, INT_PTR result);
BOOL IsDialogMessageA(HWND dialog, LPMSG message);
LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND window);
BOOL MapDialogRect(HWND dialog, LPRECT rect);
UINT GetDlgItemTextA(HWND dialog, int id, LPSTR text, int size);
BOOL SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL CheckDlgButton(HWND dialog, int id, UINT check);
UINT IsDlgButtonChecked(HWND dialog, int id);
BOOL CheckRadioButton(HWND dialog, int first, int last, int check);
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
BOOL MessageBeep(UINT type);

}  // extern "C"
#pragma GCC visibility pop
