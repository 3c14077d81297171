// Shows what was loaded, as far as it fits; there is nothing to be done in this window.

#include "host/host_window.h"

#include <windows.h>

#include <filesystem>

#include "automation/codepage.h"
#include "host/files.h"

namespace host {
namespace {

constexpr const char* kWindowClass = "TavrikHostWindow";
constexpr int kWidth = 640;
constexpr int kHeight = 540;
constexpr int kMargin = 8;

// A window's title cannot say what the code page lacks; the name is then left out.
std::string TitleFor(const std::string& fileName) {
    const std::string base = Utf8FromPath(PathFromUtf8(fileName).filename());
    std::string bytes;
    std::string problem;
    const bool known = automation::ConvertTo1252(base, bytes, problem);
    return known ? "Tavrikhost - " + bytes : "Tavrikhost";
}

}  // namespace

HostWindow::HostWindow(const std::string& fileName, std::vector<Setting> settings) : m_settings(std::move(settings)) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_WINDOW + 1));
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
    m_hWnd = CreateWindowExA(0, kWindowClass, TitleFor(fileName).c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                             CW_USEDEFAULT, kWidth, kHeight, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostWindow::~HostWindow() {
    DestroyWindow(m_hWnd);
}

void HostWindow::Show() {
    ShowWindow(m_hWnd, SW_SHOW);
    UpdateWindow(m_hWnd);
}

LRESULT CALLBACK HostWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_PAINT) {
        self->OnPaint();
        return 0;
    }
    // The program ends with the sheet; closing this window meanwhile would take the sheet's parent away.
    if (message == WM_CLOSE) {
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void HostWindow::OnPaint() {
    PAINTSTRUCT paint{};
    HDC dc = BeginPaint(m_hWnd, &paint);
    HGDIOBJ oldFont = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    RECT client{};
    GetClientRect(m_hWnd, &client);
    int y = kMargin;
    const auto drawLine = [&](const std::string& text) {
        TextOutA(dc, kMargin, y, text.c_str(), static_cast<int>(text.size()));
        y += metrics.tmHeight;
    };
    drawLine(std::to_string(m_settings.size()) + " inst\xE4llningar:");
    for (size_t i = 0; i < m_settings.size() && y < client.bottom; ++i) {
        drawLine(m_settings[i].key + " = " + m_settings[i].value);
    }
    SelectObject(dc, oldFont);
    EndPaint(m_hWnd, &paint);
}

}  // namespace host
