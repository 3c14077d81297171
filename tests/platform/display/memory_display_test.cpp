#include "platform/display/memory_display.h"

#include "tests/platform/display/recording_sink.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using Kind = DisplayWindowInfo::Kind;
using Mouse = InputSink::Mouse;

class MemoryDisplayTest : public ::testing::Test {
protected:
    HWND open(int number, RECT rect, Kind kind = Kind::Normal) {
        DisplayWindowInfo info;
        info.kind = kind;
        info.window = windowNumber(number);
        info.rect = rect;
        display_.createWindow(info);
        display_.show(info.window, true);
        return info.window;
    }

    Events pump() {
        display_.pump(sink_, 0);
        return sink_.take();
    }

    MemoryDisplay display_;
    RecordingSink sink_;
};

TEST_F(MemoryDisplayTest, MouseGoesToTheTopmostWindowAtThePoint) {
    const HWND below = open(1, {0, 0, 100, 100});
    open(2, {50, 50, 150, 150});
    display_.injectMouse(Mouse::Move, 0, {60, 60});
    display_.injectMouse(Mouse::Move, 0, {10, 20});
    display_.injectMouse(Mouse::Move, 0, {500, 500});
    EXPECT_EQ(pump(), (Events{"move 2 button 0 at 10,10", "move 1 button 0 at 10,20"}));
    display_.raise(below);
    display_.injectMouse(Mouse::Move, 0, {60, 60});
    EXPECT_EQ(pump(), Events{"move 1 button 0 at 60,60"});
    display_.setTopmost(windowNumber(2), true);
    display_.raise(below);
    display_.injectMouse(Mouse::Move, 0, {60, 60});
    EXPECT_EQ(pump(), Events{"move 2 button 0 at 10,10"});
}

TEST_F(MemoryDisplayTest, HeldButtonAndGrabKeepTheMouse) {
    open(1, {0, 0, 100, 100});
    const HWND popup = open(2, {200, 0, 300, 100}, Kind::Popup);
    display_.injectMouse(Mouse::Down, VK_LBUTTON, {10, 10});
    display_.injectMouse(Mouse::Up, VK_LBUTTON, {210, 10});
    display_.injectMouse(Mouse::Move, 0, {210, 10});
    EXPECT_EQ(pump(), (Events{"down 1 button 1 at 10,10", "up 1 button 1 at 210,10", "move 2 button 0 at 10,10"}));
    display_.grabMouse(popup);
    display_.injectMouse(Mouse::Down, VK_LBUTTON, {10, 10});
    display_.injectMouse(Mouse::Up, VK_LBUTTON, {900, 900});
    EXPECT_EQ(pump(), (Events{"down 1 button 1 at 10,10", "up 2 button 1 at 700,900"}));
    display_.destroyWindow(popup);
    display_.injectMouse(Mouse::Move, 0, {10, 10});
    EXPECT_EQ(pump(), Events{"move 1 button 0 at 10,10"});
}

TEST_F(MemoryDisplayTest, OnlyTheLastFocusIsReported) {
    const HWND first = open(1, {0, 0, 100, 100});
    const HWND second = open(2, {0, 0, 50, 50});
    display_.focus(first);
    display_.focus(second);
    EXPECT_EQ(pump(), Events{"focus in 2"});
    display_.focus(first);
    EXPECT_EQ(pump(), (Events{"focus out 2", "focus in 1"}));
    display_.focus(second);
    display_.focus(first);
    EXPECT_EQ(pump(), Events{});
    display_.show(first, false);
    EXPECT_EQ(pump(), Events{"focus out 1"});
}

}  // namespace
}  // namespace platform
