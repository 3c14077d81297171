// The trace and the tools that its sections share.
#include "tests/conformance/trace.h"

#ifdef _WIN32
#include <uxtheme.h>
#endif

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>

void Trace::line(const char* format, ...) {
    std::array<char, 400> text{};
    va_list arguments;
    va_start(arguments, format);
    // The analyser does not follow va_start.
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    sink_(std::string("  ") + text.data());
}

LoggingParent::LoggingParent(Trace& trace) : trace_(trace) {
    static const char* const kClassName = "TavrikTraceParent";
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = instance();
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);  // Refused from the second parent on, which then uses the first one's class.
    window_ = CreateWindowExA(0, kClassName, "", WS_POPUP | WS_CAPTION, 100, 100, 400, 300, nullptr, nullptr,
                              windowClass.hInstance, this);
    ShowWindow(window_, SW_SHOW);
    SetActiveWindow(window_);
    SetFocus(window_);
    drainQueue();
}

LoggingParent::~LoggingParent() {
    quiet_ = true;
    DestroyWindow(window_);
    drainQueue();
}

HWND LoggingParent::add(const char* className, const char* text, DWORD style, int id, int x, int y, int width,
                        int height) {
    HWND control = CreateWindowExA(0, className, text, style | WS_CHILD | WS_VISIBLE, x, y, width, height, window_,
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance(), nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
    return control;
}

LRESULT CALLBACK LoggingParent::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<LoggingParent*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (self && self->handle(message, wParam, lParam, result)) {
        return result;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool LoggingParent::handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (hook_ && hook_(message, wParam, lParam, result)) {
        return true;
    }
    if (quiet_) {
        return false;
    }
    if (message == WM_COMMAND) {
        trace_.line("WM_COMMAND id %d %s", LOWORD(wParam), commandName(reinterpret_cast<HWND>(lParam), HIWORD(wParam)));
    } else if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        trace_.line("WM_NOTIFY id %d %s", static_cast<int>(header->idFrom), notificationName(header->code));
    } else if (message == WM_HSCROLL || message == WM_VSCROLL) {
        trace_.line("%s id %d %s %d", message == WM_HSCROLL ? "WM_HSCROLL" : "WM_VSCROLL",
                    GetDlgCtrlID(reinterpret_cast<HWND>(lParam)), scrollName(LOWORD(wParam)),
                    static_cast<short>(HIWORD(wParam)));
    }
    return false;
}

void setClipboard(HWND owner, const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text, size);
    GlobalUnlock(memory);
    OpenClipboard(owner);
    EmptyClipboard();
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
}

void tracePicture(Trace& trace, const char* what, const Canvas& canvas) {
    trace.line("-- %s", what);
    for (const std::string& row : canvas.picture()) {
        trace.line("%s", row.c_str());
    }
}

void tracePixels(Trace& trace, const char* what, HWND window, RECT part) {
    const int width = number(part.right - part.left);
    const int height = number(part.bottom - part.top);
    const Canvas canvas(width, height);
    HDC dc = GetDC(window);
    BitBlt(canvas, 0, 0, width, height, dc, part.left, part.top, SRCCOPY);
    ReleaseDC(window, dc);
    tracePicture(trace, what, canvas);
}

std::string describeEdit(HWND edit) {
    std::array<char, 64> text{};
    GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
    const LRESULT selection = SendMessageA(edit, EM_GETSEL, 0, 0);
    return "\"" + std::string(text.data()) + "\" " + std::to_string(LOWORD(selection)) + ".." +
           std::to_string(HIWORD(selection)) + (SendMessageA(edit, EM_GETMODIFY, 0, 0) ? " modified" : "") +
           (SendMessageA(edit, EM_CANUNDO, 0, 0) ? " undoable" : "");
}

void drawClassically([[maybe_unused]] HWND control) {
#ifdef _WIN32
    SetWindowTheme(control, L" ", L" ");
#endif
}

void drainQueue(HWND dialog) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (!dialog || !IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

void postKey(HWND window, UINT virtualKey) {
    PostMessageA(window, WM_KEYDOWN, virtualKey, 1);
    PostMessageA(window, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
}

void postText(HWND window, const char* text) {
    for (; *text; ++text) {
        PostMessageA(window, WM_CHAR, static_cast<BYTE>(*text), 1);
    }
}

void postClick(HWND window, int x, int y) {
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

void postClick(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    postClick(window, client.right / 2, client.bottom / 2);
}

void postRightClick(HWND window, int x, int y) {
    PostMessageA(window, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(x, y));
    PostMessageA(window, WM_RBUTTONUP, 0, MAKELPARAM(x, y));
}
