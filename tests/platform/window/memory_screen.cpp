#include "tests/platform/window/memory_screen.h"

#include "platform/window/display_choice.h"

#include <tavrikdisplay.h>

#include <algorithm>

namespace testing_window {

using platform::InputSink;

platform::MemoryDisplay& screen() {
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
    return static_cast<platform::MemoryDisplay&>(platform::display());
}

void click(POINT at) {
    screen().injectMouse(InputSink::Mouse::Down, VK_LBUTTON, at);
    screen().injectMouse(InputSink::Mouse::Up, VK_LBUTTON, at);
}

void type(int virtualKey, const std::string& text, unsigned modifiers) {
    screen().injectKey(virtualKey, true, text, modifiers);
    screen().injectKey(virtualKey, false, "", modifiers);
}

Scene::Scene()
    : trace_([this](const std::string& line) { lines_.push_back(line.substr(line.find_first_not_of(' '))); }),
      windows(trace_) {
    screen();
    top = windows.create("top", WS_POPUP | WS_VISIBLE | WS_CAPTION, {100, 100, 200, 100});
    first = windows.create("first", WS_CHILD | WS_VISIBLE, {10, 10, 50, 20}, top, 1);
    second = windows.create("second", WS_CHILD | WS_VISIBLE, {10, 40, 50, 20}, top, 2);
    drainQueue();
}

std::vector<std::string> Scene::record(const std::function<void()>& act, const std::vector<std::string>& wanted) {
    lines_.clear();
    act();
    drainQueue();
    std::vector<std::string> lines = std::exchange(lines_, {});
    std::erase_if(lines, [&wanted](const std::string& line) {
        return std::none_of(wanted.begin(), wanted.end(),
                            [&line](const std::string& part) { return line.find(" WM_" + part) != std::string::npos; });
    });
    return lines;
}

}  // namespace testing_window
