// The menus of the process and their items.
#include "platform/menus/menu.h"

#include "platform/resources/code_page.h"

#include <map>

namespace platform {
namespace {

// A handle is a number that no other menu had before.
struct MenuTable {
    std::map<ULONG_PTR, MenuItems> menus;
    ULONG_PTR lastHandle = 0;
};

MenuTable& table() {
    static MenuTable all;
    return all;
}

MenuItems* itemsOf(HMENU menu) {
    const auto found = table().menus.find(reinterpret_cast<ULONG_PTR>(menu));
    return found != table().menus.end() ? &found->second : nullptr;
}

}  // namespace

char MenuItem::mnemonic() const {
    for (std::size_t at = text.find('&'); at != std::string::npos && at + 1 < text.size();
         at = text.find('&', at + 2)) {
        if (text[at + 1] != '&') {
            return codePageUpper(text[at + 1]);
        }
    }
    return 0;
}

const MenuItems* findMenu(HMENU menu) {
    return itemsOf(menu);
}

}  // namespace platform

HMENU CreatePopupMenu(void) {
    platform::MenuTable& all = platform::table();
    all.menus.emplace(++all.lastHandle, platform::MenuItems());
    return reinterpret_cast<HMENU>(all.lastHandle);
}

BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, LPCSTR text) {
    platform::MenuItems* items = platform::itemsOf(menu);
    if (!items) {
        return FALSE;
    }
    const bool separator = (flags & MF_SEPARATOR) != 0;
    items->push_back({separator ? flags | MF_GRAYED | MF_DISABLED : flags, static_cast<UINT>(id),
                      separator || !text ? std::string() : std::string(text)});
    return TRUE;
}

BOOL DestroyMenu(HMENU menu) {
    return platform::table().menus.erase(reinterpret_cast<ULONG_PTR>(menu)) > 0 ? TRUE : FALSE;
}
