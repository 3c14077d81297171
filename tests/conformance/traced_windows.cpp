// The class and its windows.
#include "tests/conformance/traced_windows.h"

namespace {

constexpr const char* kClassName = "TavrikTraced";

}  // namespace

TracedWindows::TracedWindows(Trace& trace) : spy_(trace, {kClassName}, Detail::Window) {
    WNDCLASSA windowClass{};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);  // Refused from the second time on.
}

TracedWindows::~TracedWindows() {
    spy_.setAnswer(nullptr);
    spy_.mute(true);
    for (HWND window : windows_) {
        DestroyWindow(window);
    }
    drainQueue();
}

HWND TracedWindows::create(const char* name, DWORD style, RECT place, HWND parent, int id, DWORD exStyle) {
    spy_.nameNext(name);
    HWND window = CreateWindowExA(exStyle, kClassName, name, style, place.left, place.top, place.right, place.bottom,
                                  parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    windows_.push_back(window);
    return window;
}

HWND TracedWindows::createQuietly(const char* name, DWORD style, RECT place, HWND parent, int id) {
    const bool muted = spy_.mute(true);
    HWND window = create(name, style, place, parent, id);
    UpdateWindow(window);
    drainQueue();
    spy_.mute(muted);
    return window;
}
