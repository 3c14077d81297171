// Sending, fetching and dispatching messages. What waits is fetched in this order: posted messages, the quit request,
// input, painting, timers. When the screen is lost there is nobody left who could end a loop: all loops are asked to
// quit, before anything that still waits.
#include "platform/window/caret.h"
#include "platform/window/display_choice.h"
#include "platform/window/hooks.h"
#include "platform/window/input_queue.h"
#include "platform/window/keyboard.h"
#include "platform/window/message_queue.h"
#include "platform/window/message_trace.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/top_level.h"
#include "platform/window/unanswered.h"
#include "platform/window/update_region.h"
#include "platform/window/window.h"

namespace platform {
namespace {

// Whoever only peeks is asked once, so that a loop that empties the queue has an end.
void askToQuitWhenLost() {
    static bool asked = false;
    if (!asked && isDisplayLost()) {
        asked = true;
        PostQuitMessage(0);
    }
}

bool take(MSG& message, const MessageFilter& filter, bool remove) {
    askToQuitWhenLost();
    if (isDisplayLost() && takeQuit(message, remove)) {
        return true;
    }
    if (takePosted(message, filter, remove) || takeQuit(message, remove)) {
        return true;
    }
    pumpDisplay(0);
    // What the display reported may have posted something.
    if (takePosted(message, filter, remove) || takeInput(message, filter, remove)) {
        return true;
    }
    blinkCaret();
    return takePaint(message, filter) || takeTimer(message, filter, remove);
}

bool fetch(MSG& message, const MessageFilter& filter, bool remove) {
    if (!take(message, filter, remove)) {
        return false;
    }
    if (remove && message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) {
        forgetKeyText();
    }
    callHooks(WH_GETMESSAGE, HC_ACTION, remove ? PM_REMOVE : PM_NOREMOVE, reinterpret_cast<LPARAM>(&message));
    return true;
}

void waitForEvents() {
    presentAll();
    const int timer = timeToNextTimer();
    const int blink = timeToBlink();
    pumpDisplay(timer < 0 || (blink >= 0 && blink < timer) ? blink : timer);
}

}  // namespace
}  // namespace platform

namespace platform {

LRESULT sendUnguarded(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* found = requireWindow(window);
    if (!found) {
        return 0;
    }
    return isTracing() ? callTraced(*found, message, wParam, lParam) : found->proc(window, message, wParam, lParam);
}

}  // namespace platform

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        return platform::sendUnguarded(window, message, wParam, lParam);
    } catch (const std::bad_alloc&) {
        return platform::answerOutOfMemory(window, message, lParam);
    }
}

LRESULT CallWindowProcA(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        return proc ? proc(window, message, wParam, lParam) : 0;
    } catch (const std::bad_alloc&) {
        return platform::answerOutOfMemory(window, message, lParam);
    }
}

BOOL PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    if (!message || (window && window != reinterpret_cast<HWND>(-1) && !platform::requireWindow(window))) {
        return FALSE;
    }
    return platform::orOutOfMemory(
        [&] {
            if (platform::fetch(*message, {window, first, last}, (remove & PM_REMOVE) != 0)) {
                return TRUE;
            }
            platform::presentAll();
            return FALSE;
        },
        FALSE);
}

BOOL GetMessageA(LPMSG message, HWND window, UINT first, UINT last) {
    if (!message || (window && window != reinterpret_cast<HWND>(-1) && !platform::requireWindow(window))) {
        return -1;
    }
    // What there was no memory for is tried again with the next event.
    const platform::MessageFilter filter{window, first, last};
    while (!platform::isDisplayLost()) {
        if (platform::orOutOfMemory([&] { return platform::fetch(*message, filter, true); }, false)) {
            return message->message != WM_QUIT;
        }
        platform::orOutOfMemory([] { return platform::waitForEvents(), true; }, false);
    }
    PostQuitMessage(0);
    platform::takeQuit(*message, true);
    return FALSE;
}

BOOL WaitMessage(void) {
    MSG message;
    while (!platform::orOutOfMemory([&] { return platform::take(message, {}, false); }, false)) {
        if (platform::isDisplayLost()) {
            return FALSE;
        }
        platform::orOutOfMemory([] { return platform::waitForEvents(), true; }, false);
    }
    return TRUE;
}

LRESULT DispatchMessageA(const MSG* message) {
    if (!message) {
        return 0;
    }
    if (message->message == WM_TIMER && message->lParam) {
        const auto proc = reinterpret_cast<TIMERPROC>(message->lParam);
        proc(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    return message->hwnd ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam) : 0;
}
