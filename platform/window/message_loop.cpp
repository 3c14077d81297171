// Sending, fetching and dispatching messages. What waits is fetched in this order: posted messages, the quit request,
// input, painting, timers.
#include "platform/window/caret.h"
#include "platform/window/display_choice.h"
#include "platform/window/hooks.h"
#include "platform/window/input_queue.h"
#include "platform/window/keyboard.h"
#include "platform/window/message_queue.h"
#include "platform/window/painting.h"
#include "platform/window/top_level.h"
#include "platform/window/window.h"

#include <algorithm>

namespace platform {
namespace {

constexpr ATOM kFirstRegisteredMessage = 0xC000;
constexpr std::size_t kMaxRegisteredMessages = 0x3fff;

struct Loop {
    POINT messagePoint{};
    DWORD messageTime = 0;
};

Loop& loop() {
    static Loop only;
    return only;
}

bool take(MSG& message, const MessageFilter& filter, bool remove) {
    if (takePosted(message, filter, remove) || takeQuit(message, remove))
        return true;
    pumpDisplay(0);
    // What the display reported may have posted something.
    if (takePosted(message, filter, remove) || takeInput(message, filter, remove))
        return true;
    blinkCaret();
    return takePaint(message, filter) || takeTimer(message, filter, remove);
}

bool fetch(MSG& message, const MessageFilter& filter, bool remove) {
    if (!take(message, filter, remove))
        return false;
    if (remove && message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        forgetKeyText();
    loop().messagePoint = message.pt;
    loop().messageTime = message.time;
    callHooks(WH_GETMESSAGE, HC_ACTION, remove ? PM_REMOVE : PM_NOREMOVE, reinterpret_cast<LPARAM>(&message));
    return true;
}

void waitForEvents() {
    presentAll();
    const int timer = timeToNextTimer();
    const int blink = timeToBlink();
    pumpDisplay(timer < 0 || (blink >= 0 && blink < timer) ? blink : timer);
}

std::vector<std::string>& registeredMessages() {
    static std::vector<std::string> names;
    return names;
}

}  // namespace
}  // namespace platform

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const platform::Window* found = platform::requireWindow(window);
    return found ? found->proc(window, message, wParam, lParam) : 0;
}

LRESULT CallWindowProcA(WNDPROC proc, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return proc ? proc(window, message, wParam, lParam) : 0;
}

BOOL PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    if (!message || (window && window != reinterpret_cast<HWND>(-1) && !platform::requireWindow(window)))
        return FALSE;
    if (platform::fetch(*message, {window, first, last}, (remove & PM_REMOVE) != 0))
        return TRUE;
    platform::presentAll();
    return FALSE;
}

BOOL GetMessageA(LPMSG message, HWND window, UINT first, UINT last) {
    if (!message || (window && window != reinterpret_cast<HWND>(-1) && !platform::requireWindow(window)))
        return -1;
    while (!platform::fetch(*message, {window, first, last}, true))
        platform::waitForEvents();
    return message->message != WM_QUIT;
}

BOOL WaitMessage(void) {
    while (!(GetQueueStatus(QS_ALLINPUT) >> 16))
        platform::waitForEvents();
    return TRUE;
}

LRESULT DispatchMessageA(const MSG* message) {
    if (!message)
        return 0;
    if (message->message == WM_TIMER && message->lParam) {
        const auto proc = reinterpret_cast<TIMERPROC>(message->lParam);
        proc(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    return message->hwnd ? SendMessageA(message->hwnd, message->message, message->wParam, message->lParam) : 0;
}

DWORD GetQueueStatus(UINT flags) {
    platform::pumpDisplay(0);
    platform::blinkCaret();
    UINT waiting = platform::waitingInput();
    if (platform::hasPosted())
        waiting |= QS_POSTMESSAGE;
    if (platform::hasDueTimer())
        waiting |= QS_TIMER;
    if (platform::hasPaint())
        waiting |= QS_PAINT;
    const UINT asked = waiting & flags;
    return (asked << 16) | asked;
}

DWORD GetMessagePos(void) {
    const POINT point = platform::loop().messagePoint;
    return static_cast<DWORD>(MAKELONG(point.x & 0xffff, point.y & 0xffff));
}

LONG GetMessageTime(void) {
    return static_cast<LONG>(platform::loop().messageTime);
}

UINT RegisterWindowMessageA(LPCSTR name) {
    if (!name || IS_INTRESOURCE(name) || !*name)
        return 0;
    std::vector<std::string>& names = platform::registeredMessages();
    const auto known = std::find_if(names.begin(), names.end(),
                                    [name](const std::string& entry) { return lstrcmpiA(entry.c_str(), name) == 0; });
    const auto index = static_cast<UINT>(known - names.begin());
    if (known == names.end()) {
        if (names.size() > platform::kMaxRegisteredMessages)
            return 0;
        names.emplace_back(name);
    }
    return platform::kFirstRegisteredMessage + index;
}
