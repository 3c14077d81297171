// A host's top-level window with an application object, and message boxes answered by themselves: what the tests of
// dialogs and sheets run in.
#pragma once

#include <gtest/gtest.h>

#include <string>
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
};

inline std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)), '\0');
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}
