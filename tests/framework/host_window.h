// A host's top-level window with an application object, and message boxes answered by themselves: what the tests of
// dialogs and sheets run in.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "framework/framework.h"
#include "tests/support/box_answerer.h"

using Texts = std::vector<std::string>;

// The caption of the framework's message boxes.
constexpr char kApplicationName[] = "Testv\xE4rd";

class HostWindow : public testing::Test {
protected:
    HostWindow() { ::SetActiveWindow(m_host); }
    ~HostWindow() override {
        ::DestroyWindow(m_host);
        CWnd::DeleteTempMap();
    }

    // Runs the steps one after another from inside the modal loops that follow.
    void RunInLoop(std::vector<std::function<void()>> steps) {
        m_steps = std::move(steps);
        m_boxes.WhenIdle([this] { RunNextStep(); });
    }
    // Texts of the boxes seen since the last call.
    Texts BoxTexts() {
        Texts texts;
        for (const BoxSeen& box : m_boxes.Take()) {
            EXPECT_EQ(box.caption, kApplicationName);
            EXPECT_NE(box.owner, nullptr);
            texts.push_back(box.text);
        }
        return texts;
    }

    CWinApp m_application{kApplicationName};
    HWND m_host = CreateWindowExA(0, "Static", "host", WS_POPUP | WS_VISIBLE, 50, 50, 500, 400, nullptr, nullptr,
                                  AfxGetInstanceHandle(), nullptr);
    BoxAnswerer m_boxes;

private:
    void RunNextStep() {
        const std::function<void()> step = m_steps.front();
        m_steps.erase(m_steps.begin());
        if (!m_steps.empty()) {
            m_boxes.WhenIdle([this] { RunNextStep(); });
        }
        step();
    }

    std::vector<std::function<void()>> m_steps;
};

inline std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)), '\0');
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}
