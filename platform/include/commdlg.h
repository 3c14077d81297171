// The open-file dialog: structures, messages and notifications under their documented names.
#pragma once

#include <windows.h>

using LPOFNHOOKPROC = UINT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

struct tagOFNA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCSTR lpstrFilter;
    LPSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPSTR lpstrFile;
    DWORD nMaxFile;
    LPSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCSTR lpstrInitialDir;
    LPCSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
using OPENFILENAMEA = tagOFNA;
// The structure as it was before its last three members.
#define OPENFILENAME_SIZE_VERSION_400A (static_cast<DWORD>(offsetof(OPENFILENAMEA, pvReserved)))

#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_ENABLEHOOK 0x00000020
#define OFN_ENABLETEMPLATE 0x00000040
#define OFN_ENABLETEMPLATEHANDLE 0x00000080
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_EXPLORER 0x00080000
#define OFN_ENABLESIZING 0x00800000

struct _OFNOTIFYA {
    NMHDR hdr;
    OPENFILENAMEA* lpOFN;
    LPSTR pszFile;
};
using OFNOTIFYA = _OFNOTIFYA;

#define CDN_FIRST (0U - 601U)
#define CDN_INITDONE (CDN_FIRST - 0)
#define CDN_SELCHANGE (CDN_FIRST - 1)
#define CDN_FOLDERCHANGE (CDN_FIRST - 2)
#define CDN_FILEOK (CDN_FIRST - 5)
#define CDN_TYPECHANGE (CDN_FIRST - 6)
#define CDM_FIRST (WM_USER + 100)
#define CDM_SETCONTROLTEXT (CDM_FIRST + 4)

#pragma GCC visibility push(default)
extern "C" {
BOOL GetOpenFileNameA(OPENFILENAMEA* ofn);
DWORD CommDlgExtendedError(void);
}
#pragma GCC visibility pop
