// Mouse messages: which window gets them, capture, clicks that activate.
#pragma once

#include "platform/window/input_event.h"
#include "platform/window/message_queue.h"
#include "platform/window/window.h"

namespace platform {

// The window under a point of the screen inside `top`: disabled children are passed over, so are those that answer
// HTTRANSPARENT. `hit` becomes the answer to WM_NCHITTEST, HTERROR for a disabled top-level window.
HWND windowAt(HWND top, POINT screen, int& hit);

// Makes the message for a mouse event. `filter` is asked before anything is sent; with `remove` the accompanying
// messages are sent. Discarded: the event gives no message and is to be dropped.
enum class MouseOutcome { Message, Filtered, Discarded };
MouseOutcome makeMouseMessage(const InputEvent& event, const MessageFilter& filter, bool remove, MSG& message);

HWND captureWindow();
// Ends a capture without a message, for a window that goes.
void dropCaptureOf(const Window& window);

}  // namespace platform
