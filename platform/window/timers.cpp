// Timers of programs. A timer that has run out gives one WM_TIMER when nothing else waits, however late it is asked
// for.
#include "platform/window/message_queue.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/window.h"

#include <algorithm>

namespace platform {
namespace {

constexpr UINT kMinimumPeriodMs = 10;
constexpr UINT kMaximumPeriodMs = 0x7fffffff;

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT periodMs;
    TIMERPROC proc;
    DWORD due;  // Tick count; differences are taken modulo 2^32.
};

std::vector<Timer>& timers() {
    static std::vector<Timer> all;
    return all;
}

int timeUntil(const Timer& timer, DWORD now) {
    return static_cast<int>(timer.due - now);
}

std::vector<Timer>::iterator findTimer(HWND window, UINT_PTR id) {
    return std::find_if(timers().begin(), timers().end(),
                        [=](const Timer& timer) { return timer.window == window && timer.id == id; });
}

// Timers without a window get their number from the system.
UINT_PTR freeTimerId() {
    static UINT_PTR last = 0;
    do {
        last = last % 0x7fff + 1;
    } while (findTimer(nullptr, last) != timers().end());
    return last;
}

}  // namespace

bool takeTimer(MSG& message, const MessageFilter& filter, bool remove) {
    const DWORD now = GetTickCount();
    Timer* first = nullptr;
    for (Timer& timer : timers()) {
        if (timeUntil(timer, now) <= 0 && filter.accepts(timer.window, WM_TIMER) &&
            (!first || timeUntil(timer, now) < timeUntil(*first, now))) {
            first = &timer;
        }
    }
    if (!first) {
        return false;
    }
    message =
        MSG{first->window, WM_TIMER, first->id, reinterpret_cast<LPARAM>(first->proc), now, lastPointerPosition()};
    if (remove) {
        first->due = now + first->periodMs;
    }
    return true;
}

int timeToNextTimer() {
    const DWORD now = GetTickCount();
    int nearest = -1;
    for (const Timer& timer : timers()) {
        const int wait = std::max(0, timeUntil(timer, now));
        nearest = nearest < 0 ? wait : std::min(nearest, wait);
    }
    return nearest;
}

void dropTimersOf(HWND window) {
    std::erase_if(timers(), [window](const Timer& timer) { return timer.window == window; });
}

}  // namespace platform

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT elapseMs, TIMERPROC proc) {
    if (window && !platform::requireWindow(window)) {
        return 0;
    }
    const UINT period = std::clamp(elapseMs, platform::kMinimumPeriodMs, platform::kMaximumPeriodMs);
    const DWORD due = GetTickCount() + period;
    const auto known = platform::findTimer(window, id);
    if (known != platform::timers().end()) {
        *known = {window, id, period, proc, due};
        return window && id == 0 ? 1 : id;
    }
    const UINT_PTR timerId = window ? id : platform::freeTimerId();
    return platform::orOutOfMemory(
        [&] {
            platform::timers().push_back({window, timerId, period, proc, due});
            return timerId == 0 ? UINT_PTR{1} : timerId;
        },
        UINT_PTR{0});
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    const auto known = platform::findTimer(window, id);
    if (known == platform::timers().end()) {
        return FALSE;
    }
    platform::timers().erase(known);
    return TRUE;
}
