// Files, for reading, and profile files.
#pragma once

#include "tavrikwin/types.h"

#define GENERIC_READ 0x80000000UL
#define FILE_SHARE_READ 0x0001
#define FILE_SHARE_WRITE 0x0002
#define OPEN_EXISTING 3
#define FILE_ATTRIBUTE_NORMAL 0x0080
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_ACCESS_DENIED 5
#define ERROR_WRITE_FAULT 29
#define ERROR_READ_FAULT 30
#define ERROR_INVALID_PARAMETER 87

#pragma GCC visibility push(default)
extern "C" {

// Opens a regular file that exists; only reading is known. Natively the path is converted from code page 1252 to UTF-8.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPVOID security, DWORD disposition, DWORD attributes,
                   HANDLE templateFile);
BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, LPVOID overlapped);
BOOL CloseHandle(HANDLE file);

// Profile files. Natively one that is named without a folder lies in TAVRIK_PROFILE_DIR, else in
// $XDG_CONFIG_HOME/tavrik, else in ~/.config/tavrik. Section and key must be given.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer, DWORD size, LPCSTR file);
UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback, LPCSTR file);
// Without a value the key is removed.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file);

}  // extern "C"
#pragma GCC visibility pop
