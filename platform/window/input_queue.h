// Input as the display reported it, waiting to become messages. Which window a mouse message goes to, and what the
// keyboard state is, is decided when the message is taken, not when the input happened.
#pragma once

#include "platform/window/message_queue.h"

#include <windows.h>

namespace platform {

// Collects what the display has, waits for it at most timeoutMs (-1: without limit), and carries out what is no input:
// focus given or taken by the server, moved windows, close boxes.
void pumpDisplay(int timeoutMs);
// The next input message that the filter accepts. Taking it (`remove`) sends the messages that go along with input:
// activation by a click, the cursor.
bool takeInput(MSG& message, const MessageFilter& filter, bool remove);
void dropInputOf(HWND top);

}  // namespace platform
