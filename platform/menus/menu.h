// A popup menu as a program builds it. Deliberately missing are menus inside menus, check marks and items that the
// program draws.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform {

struct MenuItem {
    UINT flags = 0;
    UINT id = 0;
    std::string text;  // With "&" before the letter that chooses it.

    bool isSeparator() const { return (flags & MF_SEPARATOR) != 0; }
    bool canBeChosen() const { return (flags & (MF_GRAYED | MF_DISABLED)) == 0; }
    // In upper case; 0 for none.
    char mnemonic() const;
};

using MenuItems = std::vector<MenuItem>;

// Null for a handle that names no menu.
const MenuItems* findMenu(HMENU menu);

}  // namespace platform
