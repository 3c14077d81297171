// The host's main window, to which the settings sheet is modal.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "host/settings_file.h"

namespace host {

class HostWindow {
public:
    // Creates the window hidden. `fileName` is UTF-8; the settings are copied.
    HostWindow(const std::string& fileName, std::vector<Setting> settings);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Handle() const { return m_hWnd; }
    void Show();

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void OnPaint();

    std::vector<Setting> m_settings;
    HWND m_hWnd = nullptr;
};

}  // namespace host
