// Plays typed keys into a window.
#include "tests/conformance/typing.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

struct NamedKey {
    const char* name;
    UINT virtualKey;
    char character;  // What the key types without modifiers; 0 for none.
};

constexpr NamedKey kKeys[] = {
    {"left", VK_LEFT, 0},   {"right", VK_RIGHT, 0}, {"up", VK_UP, 0},      {"down", VK_DOWN, 0},
    {"home", VK_HOME, 0},   {"end", VK_END, 0},     {"pgup", VK_PRIOR, 0}, {"pgdn", VK_NEXT, 0},
    {"ins", VK_INSERT, 0},  {"del", VK_DELETE, 0},  {"bs", VK_BACK, '\b'}, {"enter", VK_RETURN, '\r'},
    {"esc", VK_ESCAPE, 27}, {"f4", VK_F4, 0},       {"tab", VK_TAB, '\t'}, {"space", VK_SPACE, ' '},
    {"shift", VK_SHIFT, 0},
};

struct KeyPress {
    UINT virtualKey = 0;
    char character = 0;
    std::string modifiers;
};

// Reads "S-home" and the like.
KeyPress parseKey(const char* name, std::size_t length) {
    KeyPress press;
    while (length > 2 && name[1] == '-') {
        press.modifiers += *name;
        name += 2;
        length -= 2;
    }
    for (const NamedKey& key : kKeys) {
        if (std::strlen(key.name) == length && std::memcmp(key.name, name, length) == 0) {
            press.virtualKey = key.virtualKey;
            press.character = key.character;
            return press;
        }
    }
    if (length == 1 && *name >= 'a' && *name <= 'z') {
        press.virtualKey = static_cast<UINT>(*name - 'a' + 'A');
        press.character = press.modifiers == "C" ? static_cast<char>(*name - 'a' + 1) : *name;
        return press;
    }
    std::fprintf(stderr, "unknown key: %.*s\n", static_cast<int>(length), name);
    std::abort();
}

void press(HWND window, const KeyPress& key) {
    const HeldKeys held(key.modifiers.c_str());
    const bool alt = key.modifiers == "A";
    const LPARAM context = alt ? 0x20000001 : 1;
    SendMessageA(window, alt ? WM_SYSKEYDOWN : WM_KEYDOWN, key.virtualKey, context);
    if (key.character) {
        SendMessageA(window, WM_CHAR, static_cast<BYTE>(key.character), context);
    }
    SendMessageA(window, alt ? WM_SYSKEYUP : WM_KEYUP, key.virtualKey, context | 0xC0000000);
}

}  // namespace

HeldKeys::HeldKeys(const char* modifiers) {
    BYTE state[256] = {};
    for (const char* key = modifiers; *key; ++key) {
        switch (*key) {
            case 'L':
                state[VK_CAPITAL] = 0x01;
                break;
            case 'N':
                state[VK_NUMLOCK] = 0x01;
                break;
            default:
                state[*key == 'S' ? VK_SHIFT : *key == 'C' ? VK_CONTROL : VK_MENU] = 0x80;
        }
    }
    SetKeyboardState(state);
}

HeldKeys::~HeldKeys() {
    BYTE state[256] = {};
    SetKeyboardState(state);
}

void typeKeys(HWND window, const char* keys) {
    while (*keys && IsWindow(window)) {
        const char* const end = *keys == '{' ? std::strchr(keys, '}') : nullptr;
        if (end) {
            press(window, parseKey(keys + 1, static_cast<std::size_t>(end - keys - 1)));
            keys = end + 1;
        } else {
            SendMessageA(window, WM_CHAR, static_cast<BYTE>(*keys), 1);
            ++keys;
        }
    }
}
