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

Scene::Scene() {
    screen();
    top = recorder.create("top", WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, {100, 100, 200, 100}, nullptr);
    first = recorder.create("first", WS_CHILD | WS_VISIBLE, 0, {10, 10, 50, 20}, top, 1);
    second = recorder.create("second", WS_CHILD | WS_VISIBLE, 0, {10, 40, 50, 20}, top, 2);
    recorder.drain();
}

std::vector<std::string> Scene::record(const std::function<void()>& act, const std::vector<std::string>& wanted) {
    const std::size_t before = recorder.lines().size();
    act();
    recorder.drain();
    std::vector<std::string> lines(recorder.lines().begin() + static_cast<std::ptrdiff_t>(before),
                                   recorder.lines().end());
    std::erase_if(lines, [&wanted](const std::string& line) {
        return std::none_of(wanted.begin(), wanted.end(),
                            [&line](const std::string& part) { return line.find(" " + part) != std::string::npos; });
    });
    return lines;
}

}  // namespace testing_window
