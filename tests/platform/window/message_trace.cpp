#include "tests/platform/window/message_trace.h"

#include <cstdio>

namespace trace {
namespace {

Recorder* g_recorder = nullptr;

struct MessageName {
    UINT message;
    const char* name;
};

// Messages that are recorded; others depend on the machine or do not matter to a program.
constexpr MessageName kMessages[] = {
    {WM_NCCREATE, "NCCREATE"},
    {WM_NCCALCSIZE, "NCCALCSIZE"},
    {WM_CREATE, "CREATE"},
    {WM_SIZE, "SIZE"},
    {WM_MOVE, "MOVE"},
    {WM_SHOWWINDOW, "SHOWWINDOW"},
    {WM_WINDOWPOSCHANGING, "POSCHANGING"},
    {WM_WINDOWPOSCHANGED, "POSCHANGED"},
    {WM_ACTIVATE, "ACTIVATE"},
    {WM_ACTIVATEAPP, "ACTIVATEAPP"},
    {WM_NCACTIVATE, "NCACTIVATE"},
    {WM_SETFOCUS, "SETFOCUS"},
    {WM_KILLFOCUS, "KILLFOCUS"},
    {WM_ENABLE, "ENABLE"},
    {WM_CANCELMODE, "CANCELMODE"},
    {WM_CAPTURECHANGED, "CAPTURECHANGED"},
    {WM_PARENTNOTIFY, "PARENTNOTIFY"},
    {WM_DESTROY, "DESTROY"},
    {WM_NCDESTROY, "NCDESTROY"},
    {WM_STYLECHANGING, "STYLECHANGING"},
    {WM_STYLECHANGED, "STYLECHANGED"},
    {WM_SETTEXT, "SETTEXT"},
    {WM_SETREDRAW, "SETREDRAW"},
    {WM_NCPAINT, "NCPAINT"},
    {WM_ERASEBKGND, "ERASEBKGND"},
    {WM_PAINT, "PAINT"},
    {WM_CLOSE, "CLOSE"},
    {WM_SYSCOMMAND, "SYSCOMMAND"},
    {WM_KEYDOWN, "KEYDOWN"},
    {WM_KEYUP, "KEYUP"},
    {WM_CHAR, "CHAR"},
    {WM_SYSKEYDOWN, "SYSKEYDOWN"},
    {WM_SYSKEYUP, "SYSKEYUP"},
    {WM_SYSCHAR, "SYSCHAR"},
    {WM_LBUTTONDOWN, "LBUTTONDOWN"},
    {WM_LBUTTONUP, "LBUTTONUP"},
    {WM_LBUTTONDBLCLK, "LBUTTONDBLCLK"},
    {WM_NCLBUTTONDOWN, "NCLBUTTONDOWN"},
    {WM_MOUSEMOVE, "MOUSEMOVE"},
    {WM_MOUSEWHEEL, "WHEEL"},
    {WM_TIMER, "TIMER"},
    {WM_USER, "USER"},
    {WM_USER + 1, "USER+1"},
    {WM_APP, "APP"},
};

const char* messageName(UINT message) {
    for (const MessageName& entry : kMessages) {
        if (entry.message == message)
            return entry.name;
    }
    return nullptr;
}

std::string format(const char* pattern, unsigned long long a, unsigned long long b = 0) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, a, b);
    return text;
}

// Flags that the real system adds for itself are left out.
constexpr UINT kKnownPosFlags = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE |
                                SWP_FRAMECHANGED | SWP_SHOWWINDOW | SWP_HIDEWINDOW;

std::string posFlags(UINT flags) {
    struct FlagName {
        UINT flag;
        const char* name;
    };
    constexpr FlagName kNames[] = {{SWP_NOSIZE, " nosize"},         {SWP_NOMOVE, " nomove"},
                                   {SWP_NOZORDER, " nozorder"},     {SWP_NOREDRAW, " noredraw"},
                                   {SWP_NOACTIVATE, " noactivate"}, {SWP_FRAMECHANGED, " framechanged"},
                                   {SWP_SHOWWINDOW, " show"},       {SWP_HIDEWINDOW, " hide"}};
    std::string text;
    for (const FlagName& entry : kNames) {
        if (flags & kKnownPosFlags & entry.flag)
            text += entry.name;
    }
    return text;
}

}  // namespace

Recorder::Recorder() {
    g_recorder = this;
    WNDCLASSA windowClass{};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = procedure;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    windowClass.lpszClassName = "Traced";
    RegisterClassA(&windowClass);
}

Recorder::~Recorder() {
    answer_ = nullptr;
    const std::map<HWND, std::string> names = names_;
    for (const auto& [window, name] : names)
        DestroyWindow(window);
    drain();
    g_recorder = nullptr;
}

HWND Recorder::create(const char* name, DWORD style, DWORD exStyle, RECT place, HWND parent, int id) {
    pendingName_ = name;
    return CreateWindowExA(exStyle, "Traced", name, style, place.left, place.top, place.right, place.bottom, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

void Recorder::drain() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

std::string Recorder::name(HWND window) const {
    if (!window)
        return "none";
    const auto found = names_.find(window);
    return found == names_.end() ? "other" : found->second;
}

void Recorder::record(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const char* known = messageName(message);
    if (!known || muted_)
        return;
    if (paintingIgnored_ && (message == WM_PAINT || message == WM_NCPAINT || message == WM_ERASEBKGND))
        return;
    std::string line = name(window) + " " + known;
    const HWND other = reinterpret_cast<HWND>(wParam);
    switch (message) {
        case WM_SIZE:
        case WM_MOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_MOUSEMOVE:
            line += format(" %llu,%llu", LOWORD(lParam), HIWORD(lParam));
            break;
        case WM_MOUSEWHEEL:
            line += format(" %llu", HIWORD(wParam));
            break;
        case WM_SHOWWINDOW:
            line += format(" %llu %llu", wParam, static_cast<unsigned long long>(lParam));
            break;
        case WM_WINDOWPOSCHANGING:
        case WM_WINDOWPOSCHANGED:
            line += posFlags(reinterpret_cast<WINDOWPOS*>(lParam)->flags);
            break;
        case WM_ACTIVATE:
            line += format(" %llu ", LOWORD(wParam)) + name(reinterpret_cast<HWND>(lParam));
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            line += " " + name(other);
            break;
        case WM_CAPTURECHANGED:
            line += " " + name(reinterpret_cast<HWND>(lParam));
            break;
        case WM_PARENTNOTIFY:
            line += format(" %llx", LOWORD(wParam));
            break;
        case WM_NCCALCSIZE:
        case WM_NCACTIVATE:
        case WM_ACTIVATEAPP:
        case WM_ENABLE:
        case WM_SETREDRAW:
        case WM_TIMER:
        case WM_USER:
        case WM_APP:
            line += format(" %llu", wParam);
            break;
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
        case WM_SYSCHAR:
        case WM_SYSCOMMAND:
            line += format(" %llx", wParam);
            break;
        case WM_STYLECHANGING:
        case WM_STYLECHANGED: {
            const auto* styles = reinterpret_cast<const STYLESTRUCT*>(lParam);
            line += format(" %llx -> %llx", styles->styleOld, styles->styleNew);
            break;
        }
        default:
            break;
    }
    lines_.push_back(line);
}

LRESULT CALLBACK Recorder::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!g_recorder)
        return DefWindowProcA(window, message, wParam, lParam);
    Recorder& recorder = *g_recorder;
    if (message == WM_NCCREATE)
        recorder.names_[window] = recorder.pendingName_;
    recorder.record(window, message, wParam, lParam);
    LRESULT result = 0;
    const bool answered = recorder.answer_ && recorder.answer_(window, message, wParam, lParam, result);
    if (!answered)
        result = DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_NCDESTROY)
        recorder.names_.erase(window);
    return result;
}

}  // namespace trace
