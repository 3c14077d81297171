// A mouse or key event as the display reported it.
#pragma once

#include "platform/display/display.h"

#include <windows.h>

#include <string>

namespace platform {

struct InputEvent {
    enum class Kind { Mouse, Wheel, Key, Character };
    Kind kind = Kind::Mouse;
    HWND top = nullptr;  // Mouse: the top-level window that the position belongs to.
    InputSink::Mouse what = InputSink::Mouse::Move;
    int code = 0;       // Mouse button or virtual key; the character for Kind::Character; the wheel's delta.
    bool down = false;  // Keys.
    bool repeat = false;
    POINT at{};  // Screen coordinates.
    DWORD time = 0;
    bool modifiersKnown = false;
    unsigned modifiers = 0;  // As InputSink::modifiers gives them.
    std::string text;        // Characters of a key.
};

}  // namespace platform
