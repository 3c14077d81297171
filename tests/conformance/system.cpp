// What windows stand on: timers, the clipboard and resources.
#include "resources/resource.h"
#include "tests/conformance/traced_windows.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <thread>

namespace {

// The first timers answer by ending themselves, so that each comes once however slow the machine is.
void CALLBACK onTimer(HWND window, UINT message, UINT_PTR id, DWORD) {
    KillTimer(window, id);
    PostMessageA(window, WM_USER, id, message);
}

void traceTimers(Trace& trace) {
    trace.section("timers");
    TracedWindows windows(trace);
    HWND top = windows.createQuietly("top", WS_POPUP | WS_VISIBLE, {50, 60, 200, 100});
    HWND gone = windows.createQuietly("gone", WS_CHILD | WS_VISIBLE, {0, 0, 10, 10}, top);
    windows.spy().setAnswer([](HWND window, UINT message, WPARAM id, LPARAM, LRESULT&) {
        if (message == WM_TIMER) {
            KillTimer(window, id);
        }
        return false;
    });
    trace.line("set %d", number(static_cast<LRESULT>(SetTimer(top, 3, 10, nullptr))));
    SetTimer(top, 4, 10, onTimer);
    SetTimer(top, 5, 10, nullptr);
    SetTimer(top, 6, 100000, nullptr);
    SetTimer(gone, 7, 10, nullptr);
    DestroyWindow(gone);
    const bool ended = KillTimer(top, 5) != 0;
    trace.line("ended %d, again %d", ended, KillTimer(top, 5) != 0);
    InvalidateRect(top, nullptr, FALSE);
    PostMessageA(top, WM_APP, 1, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    drainQueue();
    MSG message;
    trace.line("more %d", PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE) != 0);
}

void traceClipboard(Trace& trace) {
    trace.section("clipboard");
    const QuietParent parent(trace);
    setClipboard(parent.handle(), "text \xE5");
    trace.line("text there %d, read while closed %d", IsClipboardFormatAvailable(CF_TEXT) != 0,
               GetClipboardData(CF_TEXT) != nullptr);
    trace.line("opened %d", OpenClipboard(parent.handle()) != 0);
    HANDLE data = GetClipboardData(CF_TEXT);
    trace.line("\"%s\"", static_cast<const char*>(GlobalLock(data)));
    GlobalUnlock(data);
    EmptyClipboard();
    trace.line("emptied %d", IsClipboardFormatAvailable(CF_TEXT) != 0);
    const bool closed = CloseClipboard() != 0;
    trace.line("closed %d, again %d", closed, CloseClipboard() != 0);
}

void traceResources(Trace& trace) {
    trace.section("resources");
    for (const UINT id : {IDS_COLOUR_RED, IDS_WRONG_PASSWORD, IDS_CLOSE, 31999}) {
        std::array<char, 200> text{};
        const int whole = LoadStringA(instance(), id, text.data(), static_cast<int>(text.size()));
        std::array<char, 4> cut{};
        const int part = LoadStringA(instance(), id, cut.data(), static_cast<int>(cut.size()));
        trace.line("string %u: %d \"%s\", cut %d \"%s\"", id, whole, text.data(), part, cut.data());
    }
    for (const int id : {IDB_MARKING_A1_A2, IDB_ARROW_BALLOON, IDB_SLASH_TEXT2}) {
        HBITMAP bitmap = LoadBitmapA(instance(), MAKEINTRESOURCEA(id));
        BITMAP size{};
        GetObjectA(bitmap, sizeof size, &size);
        const Canvas canvas(size.bmWidth, size.bmHeight);
        HDC memory = CreateCompatibleDC(canvas);
        HGDIOBJ old = SelectObject(memory, bitmap);
        BitBlt(canvas, 0, 0, size.bmWidth, size.bmHeight, memory, 0, 0, SRCCOPY);
        std::uint32_t sum = 0;
        for (int at = 0; at < size.bmWidth * size.bmHeight; ++at) {
            sum = sum * 31 + GetPixel(canvas, at % size.bmWidth, at / size.bmWidth);
        }
        trace.line("bitmap %d: %d by %d, pixels %08x", id, number(size.bmWidth), number(size.bmHeight), sum);
        SelectObject(memory, old);
        DeleteDC(memory);
        DeleteObject(bitmap);
    }
}

}  // namespace

void traceSystem(Trace& trace) {
    traceTimers(trace);
    traceClipboard(trace);
    traceResources(trace);
}
