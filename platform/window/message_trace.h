// The trace of messages, for whoever looks for a fault. The environment asks for it when the first message is sent:
//   TAVRIK_TRACE           the file that the trace is added to; "-" is standard error
//   TAVRIK_TRACE_CLASSES   only messages to windows of these classes, separated by commas; empty: of all
//   TAVRIK_TRACE_MESSAGES  only these messages, by name ("WM_SETFOCUS"); empty: all
#pragma once

#include "platform/window/window.h"

namespace platform {

bool isTracing();

// Calls the window's procedure, between the lines of its message and of its result.
LRESULT callTraced(const Window& window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace platform
