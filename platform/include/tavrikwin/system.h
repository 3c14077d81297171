// Modules and resources, texts, clipboard, memory, time and system figures.
#pragma once

#include "tavrikwin/types.h"

#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXFIXEDFRAME 7
#define SM_CYFIXEDFRAME 8
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CYVSCROLL 20
#define SM_CXDOUBLECLK 36
#define SM_CYDOUBLECLK 37
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXDRAG 68
#define SM_CYDRAG 69
#define CF_TEXT 1
#define GMEM_MOVEABLE 0x0002
#define SPI_GETWORKAREA 0x0030
#define MONITOR_DEFAULTTONEAREST 2
#define CP_UTF8 65001
#define MB_ERR_INVALID_CHARS 0x08
#define WC_NO_BEST_FIT_CHARS 0x0400
#define ERROR_SUCCESS 0
#define ERROR_INSUFFICIENT_BUFFER 122
#define ERROR_MOD_NOT_FOUND 126
#define ERROR_NOT_ENOUGH_MEMORY 8
#define ERROR_INVALID_WINDOW_HANDLE 1400
#define ERROR_RESOURCE_TYPE_NOT_FOUND 1813
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814

struct tagMONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
};
using MONITORINFO = tagMONITORINFO;
using LPMONITORINFO = MONITORINFO*;

#pragma GCC visibility push(default)
extern "C" {

// Modules and resources. Natively a module handle is the address where the shared object is loaded.
HMODULE GetModuleHandleA(LPCSTR name);
BOOL GetModuleHandleExA(DWORD flags, LPCSTR nameOrAddress, HMODULE* module);
DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size);
HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
HGLOBAL LoadResource(HMODULE module, HRSRC resource);
LPVOID LockResource(HGLOBAL data);
DWORD SizeofResource(HMODULE module, HRSRC resource);
int LoadStringA(HINSTANCE instance, UINT id, LPSTR text, int size);

// Texts of code page 1252 and of UTF-8.
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR units, int room);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR bytes, int room, LPCSTR fallback,
                        BOOL* usedFallback);

// Clipboard.
BOOL OpenClipboard(HWND owner);
BOOL CloseClipboard(void);
BOOL EmptyClipboard(void);
HANDLE SetClipboardData(UINT format, HANDLE data);
HANDLE GetClipboardData(UINT format);
BOOL IsClipboardFormatAvailable(UINT format);
HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
LPVOID GlobalLock(HGLOBAL memory);
BOOL GlobalUnlock(HGLOBAL memory);
SIZE_T GlobalSize(HGLOBAL memory);
HGLOBAL GlobalFree(HGLOBAL memory);

int GetSystemMetrics(int index);
BOOL SystemParametersInfoA(UINT action, UINT param, PVOID data, UINT flags);
// A monitor's handle holds until the layout of the monitors changes (WM_DISPLAYCHANGE).
HMONITOR MonitorFromWindow(HWND window, DWORD flags);
HMONITOR MonitorFromPoint(POINT at, DWORD flags);
BOOL GetMonitorInfoA(HMONITOR monitor, LPMONITORINFO info);
DWORD GetTickCount(void);
DWORD GetCurrentThreadId(void);
DWORD GetLastError(void);
void SetLastError(DWORD error);
int lstrcmpiA(LPCSTR a, LPCSTR b);

}  // extern "C"
#pragma GCC visibility pop
