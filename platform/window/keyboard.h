// Keyboard state and key messages.
#pragma once

#include "platform/window/input_event.h"

namespace platform {

// The message that a key event makes for the window with the focus, or without focus for the active one. False when
// there is neither.
bool makeKeyMessage(const InputEvent& event, MSG& message);
// To be called when a key message made from the event leaves the queue.
void keyMessageTaken(const InputEvent& event, const MSG& message);
// To be called for every message that leaves the queue: TranslateMessage uses the text of the last real key only.
void forgetKeyText();
// Brings the modifiers of the keyboard state in line with what the display says.
void applyModifiers(const InputEvent& event);
void setButtonState(int button, bool down);
// MK_ bits of mouse messages, from the keyboard state.
WPARAM mouseKeyState();

}  // namespace platform
