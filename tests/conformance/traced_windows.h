// Windows that do nothing by themselves, of the class "TavrikTraced", each message of which comes into the trace.
#pragma once

#include "tests/conformance/window_spy.h"

class TracedWindows {
public:
    explicit TracedWindows(Trace& trace);
    // Destroys the windows; that leaves no trace.
    ~TracedWindows();
    TracedWindows(const TracedWindows&) = delete;
    TracedWindows& operator=(const TracedWindows&) = delete;

    // The name is the title as well. `place` holds the position and, as right and bottom, the size.
    HWND create(const char* name, DWORD style, RECT place, HWND parent = nullptr, int id = 0, DWORD exStyle = 0);
    // The same without a trace, painted and with an empty queue.
    HWND createQuietly(const char* name, DWORD style, RECT place, HWND parent = nullptr, int id = 0);
    std::string name(HWND window) const { return spy_.nameOf(window); }
    WindowSpy& spy() { return spy_; }

private:
    WindowSpy spy_;
    std::vector<HWND> windows_;
};
