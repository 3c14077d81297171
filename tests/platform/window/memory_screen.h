// The memory display of the test program, and the user in front of it.
#pragma once

#include "platform/display/memory_display.h"
#include "tests/conformance/traced_windows.h"

namespace testing_window {

// Selects the memory display for the process on the first call.
platform::MemoryDisplay& screen();

// Presses and releases the left button at a point of the screen.
void click(POINT at);
// Presses and releases a key.
void type(int virtualKey, const std::string& text, unsigned modifiers = 0);

// A top-level window at (100,100) of 200 by 100 pixels with two children of 50 by 20, at (10,10) and (10,40).
class Scene {
    std::vector<std::string> lines_;
    Trace trace_;

public:
    Scene();
    // The messages recorded while `act` runs and the queue is drained; others than `wanted` are left out.
    std::vector<std::string> record(const std::function<void()>& act, const std::vector<std::string>& wanted);

    TracedWindows windows;
    HWND top;
    HWND first;
    HWND second;
};

}  // namespace testing_window
