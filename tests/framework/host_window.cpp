#include "tests/framework/host_window.h"

#include <utility>

HostWindow::HostWindow()
    : m_host(CreateWindowExA(0, "Static", "host", WS_POPUP | WS_VISIBLE, 50, 50, 500, 400, nullptr, nullptr,
                             AfxGetInstanceHandle(), nullptr)) {
    ::SetActiveWindow(m_host);
}

HostWindow::~HostWindow() {
    ::DestroyWindow(m_host);
    CWnd::DeleteTempMap();
}

void HostWindow::RunInLoop(std::vector<std::function<void()>> steps) {
    m_steps = std::move(steps);
    m_boxes.WhenIdle([this] { RunNextStep(); });
}

void HostWindow::RunNextStep() {
    const std::function<void()> step = m_steps.front();
    m_steps.erase(m_steps.begin());
    if (!m_steps.empty()) {
        m_boxes.WhenIdle([this] { RunNextStep(); });
    }
    step();
}

Texts HostWindow::BoxTexts() {
    Texts texts;
    for (const BoxSeen& box : m_boxes.Take()) {
        EXPECT_EQ(box.caption, kApplicationName);
        texts.push_back(box.text);
    }
    return texts;
}

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)), '\0');
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}
