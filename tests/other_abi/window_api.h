// What the host calls of the system, declared by hand, for there are no headers of that compiler here.
#pragma once

struct HWND__;
using HWND = HWND__*;
using BOOL = int;
using UINT = unsigned int;
using DWORD = unsigned long;
#ifdef _WIN64
using UINT_PTR = unsigned long long;
using LONG_PTR = long long;
#else
using UINT_PTR = unsigned int;
using LONG_PTR = long;
#endif
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using WPARAM = UINT_PTR;
using SIZE_T = UINT_PTR;

#define CALLBACK __stdcall
#define SYSTEM extern "C" __declspec(dllimport)

using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);

const UINT GW_HWNDNEXT = 2;
const UINT GW_CHILD = 5;
const UINT WM_SETTEXT = 0x000C;
const UINT PSM_SETCURSEL = 0x0400 + 101;
const UINT PSM_PRESSBUTTON = 0x0400 + 113;
const WPARAM PSBTN_OK = 3;

SYSTEM HWND __stdcall FindWindowA(const char* className, const char* text);
SYSTEM HWND __stdcall GetDlgItem(HWND dialog, int id);
SYSTEM HWND __stdcall GetWindow(HWND window, UINT relation);
SYSTEM BOOL __stdcall IsWindowVisible(HWND window);
SYSTEM BOOL __stdcall KillTimer(HWND window, UINT_PTR timer);
SYSTEM BOOL __stdcall PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
SYSTEM LRESULT __stdcall SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
SYSTEM HWND __stdcall SetFocus(HWND window);
SYSTEM UINT_PTR __stdcall SetTimer(HWND window, UINT_PTR timer, UINT elapseMs, TIMERPROC proc);
SYSTEM void __stdcall ExitProcess(UINT status);

SYSTEM void* __cdecl malloc(SIZE_T size);
SYSTEM void __cdecl free(void* memory);
SYSTEM void* __cdecl memcpy(void* to, const void* from, SIZE_T size);
SYSTEM int __cdecl memcmp(const void* one, const void* other, SIZE_T size);
