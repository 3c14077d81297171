// Input as the display reported it, waiting to become messages. Which window a mouse message goes to, and what the
// keyboard state is, is decided when the message is taken, not when the input happened.
#pragma once

#include "platform/display/display.h"
#include "platform/window/message_queue.h"

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

// Collects what the display has, waits for it at most timeoutMs (-1: without limit), and carries out what is no input:
// focus given or taken by the server, moved windows, close boxes.
void pumpDisplay(int timeoutMs);
// The next input message that the filter accepts. Taking it (`remove`) sends the messages that go along with input:
// activation by a click, the cursor.
bool takeInput(MSG& message, const MessageFilter& filter, bool remove);
// Screen position of the last mouse event that was taken.
POINT lastPointerPosition();
void dropInputOf(HWND top);
// The window system asks the server to focus the window: what the server reports about others before is outdated.
void expectServerFocus(HWND top);

}  // namespace platform
