// The place of a message box about a control.
#pragma once

#include "framework/window_api.h"

// While one lives, the next message box that opens does not cover the control: where there is room on the screen it is
// moved beside it. The control itself is scrolled into view. They nest; the innermost counts.
class AfxBoxBeside {
public:
    // The control is not owned and may go away; null leaves the box where the system puts it.
    explicit AfxBoxBeside(HWND control);
    ~AfxBoxBeside();
    AfxBoxBeside(const AfxBoxBeside&) = delete;
    AfxBoxBeside& operator=(const AfxBoxBeside&) = delete;

private:
    static LRESULT CALLBACK HookProc(int code, WPARAM wParam, LPARAM lParam);
    void Place(HWND box);

    HWND m_control;
    HHOOK m_hook = nullptr;
    AfxBoxBeside* m_outer;
};
