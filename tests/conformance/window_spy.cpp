// What the spy prints: the messages of a dialog's life, and what they carry.
#include "tests/conformance/window_spy.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

WindowSpy* activeSpy = nullptr;

// What of a message's arguments belongs into the trace.
enum class Shows { Nothing, WParam, Command, Notification, Range };

struct SpiedMessage {
    UINT message;
    Shows shows;
};

constexpr SpiedMessage kSpied[] = {
    {WM_CREATE, Shows::Nothing},     {WM_DESTROY, Shows::Nothing},    {WM_ACTIVATE, Shows::WParam},
    {WM_SETFOCUS, Shows::Nothing},   {WM_KILLFOCUS, Shows::Nothing},  {WM_ENABLE, Shows::WParam},
    {WM_SHOWWINDOW, Shows::WParam},  {WM_CLOSE, Shows::Nothing},      {WM_SETFONT, Shows::Nothing},
    {WM_INITDIALOG, Shows::Nothing}, {WM_COMMAND, Shows::Command},    {WM_NOTIFY, Shows::Notification},
    {WM_ENTERIDLE, Shows::WParam},   {WM_NEXTDLGCTL, Shows::Nothing}, {WM_KEYDOWN, Shows::WParam},
    {WM_CHAR, Shows::WParam},        {BM_CLICK, Shows::WParam},       {BM_SETSTYLE, Shows::Range},
    {EM_SETSEL, Shows::Range},       {DM_SETDEFID, Shows::WParam},
};

const SpiedMessage* findSpied(UINT message) {
    const auto* const found = std::find_if(std::begin(kSpied), std::end(kSpied),
                                           [&](const SpiedMessage& spied) { return spied.message == message; });
    return found != std::end(kSpied) ? found : nullptr;
}

std::string classOf(HWND window) {
    std::array<char, 64> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

// Messages above WM_USER mean something else for every class.
bool isSpied(HWND window, UINT message) {
    const std::string windowClass = classOf(window);
    if (message == DM_SETDEFID) {
        return windowClass == "#32770";
    }
    if (message == EM_SETSEL) {
        return windowClass == "Edit";
    }
    return findSpied(message) != nullptr;
}

std::string numbers(const char* format, long long first, long long second) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), format, first, second);
    return text.data();
}

}  // namespace

WindowSpy::WindowSpy(Trace& trace, std::initializer_list<const char*> classes) : trace_(trace), classes_(classes) {
    activeSpy = this;
    hook_ = SetWindowsHookExA(WH_CBT, hookProc, nullptr, GetCurrentThreadId());
}

WindowSpy::~WindowSpy() {
    UnhookWindowsHookEx(hook_);
    for (const auto& [window, proc] : watched_) {
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
    }
    activeSpy = nullptr;
}

void WindowSpy::watch(HWND window) {
    watched_[window] = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowSpy::windowProc)));
}

void WindowSpy::watchChildren(HWND parent) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        watch(child);
        watchChildren(child);
    }
}

std::string WindowSpy::nameOf(HWND window) const {
    if (window == nullptr) {
        return "none";
    }
    const auto named = names_.find(window);
    if (named != names_.end()) {
        return named->second;
    }
    return classOf(window) + numbers(" %lld", GetDlgCtrlID(window) & 0xFFFF, 0);
}

void WindowSpy::line(const std::string& text) {
    trace_.line("%*s%s", depth_ * 2, "", text.c_str());
}

LRESULT CALLBACK WindowSpy::hookProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && activeSpy != nullptr) {
        const HWND window = reinterpret_cast<HWND>(wParam);
        const auto& classes = activeSpy->classes_;
        if (std::find(classes.begin(), classes.end(), classOf(window)) != classes.end()) {
            activeSpy->watch(window);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK WindowSpy::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return activeSpy->pass(window, message, wParam, lParam);
}

LRESULT WindowSpy::pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC proc = watched_.at(window);
    if (message == WM_NCDESTROY) {
        watched_.erase(window);
        names_.erase(window);
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
        return CallWindowProcA(proc, window, message, wParam, lParam);
    }
    if (!isSpied(window, message)) {
        return CallWindowProcA(proc, window, message, wParam, lParam);
    }
    line(nameOf(window) + " " + describe(message, wParam, lParam));
    ++depth_;
    const LRESULT result = CallWindowProcA(proc, window, message, wParam, lParam);
    --depth_;
    return result;
}

std::string WindowSpy::describe(UINT message, WPARAM wParam, LPARAM lParam) const {
    const SpiedMessage& spied = *findSpied(message);
    const std::string text = messageName(message);
    switch (spied.shows) {
        case Shows::WParam:
            return text + numbers(" %lld", static_cast<long long>(wParam), 0);
        case Shows::Command:
            return text + numbers(" id %lld ", LOWORD(wParam), 0) +
                   commandName(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        case Shows::Range:
            return text + numbers(" %lld %lld", static_cast<long long>(wParam), static_cast<long long>(lParam));
        case Shows::Notification: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            return text + " " + notificationName(header->code) + " from " + nameOf(header->hwndFrom);
        }
        case Shows::Nothing:
            break;
    }
    return text;
}
