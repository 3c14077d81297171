#include "framework/monitor.h"

CRect AfxWorkAreaOf(HWND window) {
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    // The layout of the monitors may have changed between the two calls.
    if (!::GetMonitorInfoA(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info)) {
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &info.rcWork, 0);
    }
    return info.rcWork;
}
