// A host's top-level window with an application object, and message boxes answered by themselves: what the tests of
// dialogs and sheets run in.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "framework/framework.h"
#include "tests/core/box_answerer.h"

using Texts = std::vector<std::string>;

// The caption of the framework's message boxes.
constexpr char kApplicationName[] = "Testv\xE4rd";

class HostWindow : public testing::Test {
protected:
    HostWindow();
    ~HostWindow() override;

    // Runs the steps one after another from inside the modal loops that follow.
    void RunInLoop(std::vector<std::function<void()>> steps);
    // Texts of the boxes seen since the last call.
    Texts BoxTexts();

    CWinApp m_application{kApplicationName};
    HWND m_host;
    BoxAnswerer m_boxes;

private:
    void RunNextStep();

    std::vector<std::function<void()>> m_steps;
};

std::string TextOf(HWND window);
