// Prints the messages that windows get, nested as they are sent. Windows of the given classes that are created while a
// spy lives are watched from their creation on. One spy at a time.
#pragma once

#include "platform/trace/message_names.h"
#include "tests/conformance/trace.h"

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

class WindowSpy {
public:
    // Sees every message that is to reach a watched window; true when `result` is the answer instead.
    using Answer = std::function<bool(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

    explicit WindowSpy(Trace& trace,
                       std::initializer_list<const char*> classes = {"#32770", "Button", "Edit", "Static"},
                       Detail detail = Detail::Dialog);
    ~WindowSpy();
    WindowSpy(const WindowSpy&) = delete;
    WindowSpy& operator=(const WindowSpy&) = delete;

    // Watches a window that exists already; watchChildren all that are inside it.
    void watch(HWND window);
    void watch(HWND window, const std::string& called) {
        name(window, called);
        watch(window);
    }
    void watchChildren(HWND parent);
    // How a window is called in the trace; without a name it is its class and control id.
    void name(HWND window, const std::string& name) { names_[window] = name; }
    // Names the next window that is created, so that its first messages bear the name.
    void nameNext(const std::string& name) { nextName_ = name; }
    std::string nameOf(HWND window) const;
    // A line of the trace, indented by the messages that are being handled.
    void line(const std::string& text);

    void setAnswer(Answer answer) { answer_ = std::move(answer); }
    // Messages leave no trace while muted. Returns what was before.
    bool mute(bool muted) { return std::exchange(muted_, muted); }
    // Leaves painting out where one system copies pixels that the other paints anew.
    void ignorePainting() { paintingIgnored_ = true; }

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void onCreation(HWND window);
    LRESULT pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    const MessageTraits* spiedMessage(HWND window, UINT message) const;

    Trace& trace_;
    std::vector<std::string> classes_;
    Detail detail_;
    HHOOK hook_;
    int depth_ = 0;
    bool muted_ = false;
    bool paintingIgnored_ = false;
    Answer answer_;
    std::string nextName_;
    std::map<HWND, WNDPROC> watched_;
    std::map<HWND, std::string> names_;
};
