// The message queue: posted messages, the quit request, timers; and the thread that owns it all. One thread uses the
// window system at a time: the one that created the first of the living windows.
#pragma once

#include <windows.h>

namespace platform {

// Makes the calling thread the owner when no window exists. False when another thread owns living windows.
bool claimQueue();
DWORD queueThread();

// Which messages a call of PeekMessage or GetMessage accepts. `window` -1 stands for messages without a window.
struct MessageFilter {
    HWND window = nullptr;
    UINT first = 0;
    UINT last = 0;

    bool acceptsMessage(UINT message) const {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    // The window itself or one inside it.
    bool acceptsWindow(HWND handle) const;
    bool accepts(HWND handle, UINT message) const { return acceptsMessage(message) && acceptsWindow(handle); }
};

// Screen position of the last mouse event that was taken; each message carries it.
POINT lastPointerPosition();
void setLastPointerPosition(POINT at);

bool takePosted(MSG& message, const MessageFilter& filter, bool remove);
// The quit request, which is seen when no posted message is left.
bool takeQuit(MSG& message, bool remove);
// Posts with the time and pointer position of now; false when the queue is full.
bool post(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// WM_TIMER of a timer that has run out. A timer that is not asked for stays due and does not pile up.
bool takeTimer(MSG& message, const MessageFilter& filter, bool remove);
// Milliseconds until the next timer runs out, -1 without timers.
int timeToNextTimer();

// Forgets what waits for a window that goes.
void dropPostedOf(HWND window);
void dropTimersOf(HWND window);

}  // namespace platform
