// Figures of the system, the clock, errors and comparison of texts.
#include "platform/graphics/scale.h"
#include "platform/window/display_choice.h"

#include <windows.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <vector>

namespace {

struct Metric {
    int index;
    int value;
    bool isLine = false;  // Of whole lines, which grow less evenly than the rest.
};

// Those of a classic desktop, in pixels at 96 dots an inch. Frames are the window manager's, so they have no width
// here.
constexpr Metric kMetrics[] = {
    {SM_CXVSCROLL, 17},     {SM_CYHSCROLL, 17},   {SM_CYCAPTION, 0},    {SM_CXBORDER, 1, true},
    {SM_CYBORDER, 1, true}, {SM_CXFIXEDFRAME, 0}, {SM_CYFIXEDFRAME, 0}, {SM_CXICON, 32},
    {SM_CYICON, 32},        {SM_CYVSCROLL, 17},   {SM_CXDOUBLECLK, 4},  {SM_CYDOUBLECLK, 4},
    {SM_CXEDGE, 2, true},   {SM_CYEDGE, 2, true}, {SM_CXDRAG, 4},       {SM_CYDRAG, 4},
};

// 0 where they meet.
int gap(LONG from, LONG to, LONG otherFrom, LONG otherTo) {
    return static_cast<int>(std::max({LONG{0}, otherFrom - to + 1, from - otherTo + 1}));
}

LONG common(LONG from, LONG to, LONG otherFrom, LONG otherTo) {
    return std::max<LONG>(0, std::min(to, otherTo) - std::max(from, otherFrom));
}

// The monitor that shows most of the place, else the nearest one; as its number from 1 on.
HMONITOR nearestMonitor(const RECT& place) {
    const std::vector<RECT> monitors = platform::display().monitors();
    const auto shown = [&](const RECT& monitor) {
        return std::int64_t{common(place.left, place.right, monitor.left, monitor.right)} *
               common(place.top, place.bottom, monitor.top, monitor.bottom);
    };
    const auto distance = [&](const RECT& monitor) {
        return gap(place.left, place.right, monitor.left, monitor.right) +
               gap(place.top, place.bottom, monitor.top, monitor.bottom);
    };
    const auto best = std::min_element(monitors.begin(), monitors.end(), [&](const RECT& a, const RECT& b) {
        return shown(a) != shown(b) ? shown(a) > shown(b) : distance(a) < distance(b);
    });
    return reinterpret_cast<HMONITOR>(static_cast<std::uintptr_t>(best - monitors.begin() + 1));
}

thread_local DWORD t_lastError = ERROR_SUCCESS;

// Letters of code page 1252 in lower case: those from 0xC0 on lie 32 apart, except the multiplication sign and the
// sharp s; three letters lie elsewhere.
unsigned char toLower(unsigned char byte) {
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<unsigned char>(byte + 0x20);
    }
    switch (byte) {
        case 0x8A:
        case 0x8C:
        case 0x8E:
            return static_cast<unsigned char>(byte + 0x10);
        case 0x9F:
            return 0xFF;
        default:
            return byte;
    }
}

// The place of a byte in the order of texts: å, ä and ö stand in this order behind all others, as in Swedish.
int sortWeight(char character) {
    const unsigned char byte = toLower(static_cast<unsigned char>(character));
    constexpr int kBehindAll = 0x100;
    switch (byte) {
        case 0xE5:
            return kBehindAll;
        case 0xE4:
            return kBehindAll + 1;
        case 0xF6:
            return kBehindAll + 2;
        default:
            return byte;
    }
}

}  // namespace

int GetSystemMetrics(int index) {
    if (index == SM_CXSCREEN || index == SM_CYSCREEN) {
        const RECT first = platform::display().monitors().front();
        return index == SM_CXSCREEN ? first.right - first.left : first.bottom - first.top;
    }
    for (const Metric& metric : kMetrics) {
        if (metric.index == index) {
            return metric.isLine ? metric.value * platform::lineWidth() : platform::toScale(metric.value);
        }
    }
    return 0;
}

BOOL SystemParametersInfoA(UINT action, UINT, PVOID data, UINT) {
    if (action != SPI_GETWORKAREA || !data) {
        return FALSE;
    }
    *static_cast<RECT*>(data) = platform::display().workArea(platform::display().monitors().front());
    return TRUE;
}

HMONITOR MonitorFromWindow(HWND window, DWORD) {
    RECT place{};
    GetWindowRect(window, &place);
    return nearestMonitor(place);
}

HMONITOR MonitorFromPoint(POINT at, DWORD) {
    return nearestMonitor({at.x, at.y, at.x + 1, at.y + 1});
}

BOOL GetMonitorInfoA(HMONITOR monitor, LPMONITORINFO info) {
    const auto number = reinterpret_cast<std::uintptr_t>(monitor);
    const std::vector<RECT> monitors = platform::display().monitors();
    if (!info || info->cbSize < sizeof *info || number == 0 || number > monitors.size()) {
        return FALSE;
    }
    info->rcMonitor = monitors[number - 1];
    info->rcWork = platform::display().workArea(info->rcMonitor);
    info->dwFlags = 0;
    return TRUE;
}

DWORD GetTickCount(void) {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

DWORD GetCurrentThreadId(void) {
    thread_local const auto id = static_cast<DWORD>(syscall(SYS_gettid));
    return id;
}

DWORD GetLastError(void) {
    return t_lastError;
}

void SetLastError(DWORD error) {
    t_lastError = error;
}

int lstrcmpiA(LPCSTR a, LPCSTR b) {
    if (!a || !b) {
        return (a ? 1 : 0) - (b ? 1 : 0);
    }
    while (*a && sortWeight(*a) == sortWeight(*b)) {
        ++a;
        ++b;
    }
    const int difference = sortWeight(*a) - sortWeight(*b);
    return (difference > 0 ? 1 : 0) - (difference < 0 ? 1 : 0);
}
