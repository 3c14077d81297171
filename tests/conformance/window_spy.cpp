// How a spy gets at the messages of a window, and what it prints of them.
#include "tests/conformance/window_spy.h"

#include "platform/trace/message_text.h"

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
    return describeWindow(window);
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
        line(nameOf(window) + " " + std::string(spied->name) +
             messageArguments(spied->shows, wParam, lParam, [this](HWND other) { return nameOf(other); }));
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
