// How a spy gets at the messages of a window, and what it prints of them.
#include "tests/conformance/window_spy.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

WindowSpy* activeSpy = nullptr;

std::string classOf(HWND window) {
    std::array<char, 64> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

std::string numbers(const char* format, long long first, long long second = 0) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), format, first, second);
    return text.data();
}

// Flags that the system adds for itself are left out.
std::string placing(UINT flags) {
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
        text += (flags & entry.flag) != 0 ? entry.name : "";
    }
    return text;
}

// Whether a top-level window that is shown or hidden is the foremost one already depends on the windows of other
// programs, and those of the system's own services come at any time: the flag says nothing then.
UINT steadyFlags(const WINDOWPOS& place) {
    const bool isTopLevel = (GetWindowLongPtrA(place.hwnd, GWL_STYLE) & WS_CHILD) == 0;
    const bool isShownOrHidden = (place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0;
    return isTopLevel && isShownOrHidden ? place.flags & ~UINT{SWP_NOZORDER} : place.flags;
}

}  // namespace

WindowSpy::WindowSpy(Trace& trace, std::initializer_list<const char*> classes, Detail detail)
    : trace_(trace), classes_(classes.begin(), classes.end()), detail_(detail) {
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
    return classOf(window) + numbers(" %lld", GetDlgCtrlID(window) & 0xFFFF);
}

void WindowSpy::line(const std::string& text) {
    trace_.line("%*s%s", depth_ * 2, "", text.c_str());
}

void WindowSpy::onCreation(HWND window) {
    if (std::find(classes_.begin(), classes_.end(), classOf(window)) == classes_.end()) {
        return;
    }
    watch(window);
    if (!nextName_.empty()) {
        names_[window] = std::exchange(nextName_, "");
    }
}

LRESULT CALLBACK WindowSpy::hookProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && activeSpy != nullptr) {
        activeSpy->onCreation(reinterpret_cast<HWND>(wParam));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK WindowSpy::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return activeSpy->pass(window, message, wParam, lParam);
}

const MessageTraits* WindowSpy::spiedMessage(HWND window, UINT message) const {
    if (muted_ || (paintingIgnored_ && (message == WM_PAINT || message == WM_NCPAINT || message == WM_ERASEBKGND))) {
        return nullptr;
    }
    const MessageTraits* const traits = findMessage(message, classOf(window));
    return traits && traits->detail <= detail_ ? traits : nullptr;
}

LRESULT WindowSpy::pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC proc = watched_.at(window);
    const MessageTraits* const spied = spiedMessage(window, message);
    if (spied) {
        line(nameOf(window) + " " + std::string(spied->name) + arguments(spied->shows, wParam, lParam));
        ++depth_;
    }
    LRESULT result = 0;
    if (!answer_ || !answer_(window, message, wParam, lParam, result)) {
        result = CallWindowProcA(proc, window, message, wParam, lParam);
    }
    depth_ -= spied ? 1 : 0;
    if (message == WM_NCDESTROY) {
        watched_.erase(window);
        names_.erase(window);
    }
    return result;
}

std::string WindowSpy::arguments(Shows shows, WPARAM wParam, LPARAM lParam) const {
    const auto first = static_cast<long long>(wParam);
    switch (shows) {
        case Shows::WParam:
            return numbers(" %lld", first);
        case Shows::LowWord:
            return numbers(" %lld", LOWORD(wParam));
        case Shows::HighWord:
            return numbers(" %lld", static_cast<short>(HIWORD(wParam)));
        case Shows::Both:
            return numbers(" %lld %lld", first, static_cast<long long>(lParam));
        case Shows::Point:
            return numbers(" %lld,%lld", static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
        case Shows::OtherWindow:
            return " " + nameOf(reinterpret_cast<HWND>(wParam));
        case Shows::NewCapture:
            return " " + nameOf(reinterpret_cast<HWND>(lParam));
        case Shows::Activation:
            return numbers(" %lld ", LOWORD(wParam)) + nameOf(reinterpret_cast<HWND>(lParam));
        case Shows::Command:
            return numbers(" id %lld ", LOWORD(wParam)) + commandName(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        case Shows::Notification: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            return std::string(" ") + notificationName(header->code) + " from " + nameOf(header->hwndFrom);
        }
        case Shows::Placing:
            return placing(steadyFlags(*reinterpret_cast<const WINDOWPOS*>(lParam)));
        case Shows::Styles: {
            const auto* styles = reinterpret_cast<const STYLESTRUCT*>(lParam);
            return numbers(" %llx -> %llx", styles->styleOld, styles->styleNew);
        }
        case Shows::Nothing:
            break;
    }
    return {};
}
