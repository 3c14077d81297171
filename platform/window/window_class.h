// The registered window classes. Names are compared without regard to case; a class is also named by its atom.
#pragma once

#include <windows.h>

#include <string>

namespace platform {

struct WindowClass {
    std::string name;  // As registered: GetClassName answers this spelling.
    ATOM atom = 0;
    UINT style = 0;
    WNDPROC proc = nullptr;
    int windowExtra = 0;
    HINSTANCE instance = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
};

// The class that a program of module `instance` means by the name or atom: its own one, then a global one.
// Null when there is none. Classes keep their address.
WindowClass* findClass(LPCSTR name, HINSTANCE instance);

}  // namespace platform
