// A user's typing as a short text, for the sections about edits, lists and combo boxes.
#pragma once

#include <windows.h>

// Holds the keys that the letters name, Shift (S), Ctrl (C) and Alt (A), and has Caps Lock (L) and Num Lock (N) on,
// while it lives.
class HeldKeys {
public:
    explicit HeldKeys(const char* modifiers);
    ~HeldKeys();
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
};

// Sends the keys to the window (not through the queue, so that nothing but the window itself reacts). Plain characters
// are typed; "{left}", "{S-home}", "{C-v}", "{A-down}" are keys with Shift, Ctrl or Alt held; "{bs}", "{enter}",
// "{esc}" and Ctrl with a letter also send the control character that the keyboard would give.
void typeKeys(HWND window, const char* keys);
