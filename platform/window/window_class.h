// The registered window classes. Names are compared without regard to case; a class is also named by its atom.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

struct WindowClass {
    std::string name;  // As registered: GetClassName answers this spelling.
    ATOM atom = 0;
    UINT style = 0;
    WNDPROC proc = nullptr;
    int windowExtra = 0;
    std::vector<std::byte> classExtra;
    HINSTANCE instance = nullptr;
    HICON icon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
    int windows = 0;  // How many windows of the class exist; a class in use cannot be unregistered.
};

// The class that a program of module `instance` means by the name or atom: its own one, then a global one.
// Null when there is none. Classes keep their address while they are registered.
WindowClass* findClass(LPCSTR name, HINSTANCE instance);

}  // namespace platform
