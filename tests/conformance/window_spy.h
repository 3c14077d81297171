// Prints the messages that windows get, nested as they are sent. Windows of the given classes that are created while a
// spy lives are watched from their creation on.
#pragma once

#include "tests/conformance/trace.h"

#include <windows.h>

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

class WindowSpy {
public:
    explicit WindowSpy(Trace& trace,
                       std::initializer_list<const char*> classes = {"#32770", "Button", "Edit", "Static"});
    ~WindowSpy();
    WindowSpy(const WindowSpy&) = delete;
    WindowSpy& operator=(const WindowSpy&) = delete;

    // Watches a window that exists already; watchChildren all that are inside it.
    void watch(HWND window);
    void watchChildren(HWND parent);
    // How a window is called in the trace; without a name it is its class and control id.
    void name(HWND window, const std::string& name) { names_[window] = name; }
    std::string nameOf(HWND window) const;
    // A line of the trace, indented by the messages that are being handled.
    void line(const std::string& text);

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT pass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::string describe(UINT message, WPARAM wParam, LPARAM lParam) const;

    Trace& trace_;
    std::vector<const char*> classes_;
    HHOOK hook_;
    int depth_ = 0;
    std::map<HWND, WNDPROC> watched_;
    std::map<HWND, std::string> names_;
};
