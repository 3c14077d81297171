// Mouse and keyboard from the display to messages.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

namespace {

using platform::InputSink;
using testing_window::click;
using testing_window::Scene;
using testing_window::screen;
using testing_window::type;
using Lines = std::vector<std::string>;

constexpr POINT kOnFirst{115, 115};
constexpr POINT kOnSecond{115, 145};
constexpr POINT kOnTop{250, 150};

const Lines kMouse{"LBUTTON", "MOUSEMOVE", "WHEEL", "NCLBUTTON"};
const Lines kKeys{"KEYDOWN", "KEYUP", "CHAR", "SYSKEY", "SYSCHAR", "CLOSE"};

TEST(Mouse, ReachesTheChildUnderThePointer) {
    Scene scene;
    EXPECT_EQ((Lines{"first LBUTTONDOWN 5,5", "first LBUTTONUP 5,5"}), scene.record([] { click(kOnFirst); }, kMouse));
    EXPECT_EQ((Lines{"top LBUTTONDOWN 150,50", "top LBUTTONUP 150,50"}), scene.record([] { click(kOnTop); }, kMouse));
}

TEST(Mouse, PassesOverHiddenDisabledAndTransparentChildren) {
    Scene scene;
    // Clicks at different places, so that no double click arises.
    const auto clickAt = [&scene](LONG x) { return scene.record([x] { click({x, 115}); }, {"LBUTTONDOWN"}); };
    EXPECT_EQ(Lines{"first LBUTTONDOWN 2,5"}, clickAt(112));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_DISABLED);
    EXPECT_EQ(Lines{"top LBUTTONDOWN 22,15"}, clickAt(122));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD);
    EXPECT_EQ(Lines{"top LBUTTONDOWN 32,15"}, clickAt(132));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD | WS_VISIBLE);
    scene.recorder.setAnswer([&scene](HWND window, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = HTTRANSPARENT;
        return window == scene.first && message == WM_NCHITTEST;
    });
    EXPECT_EQ(Lines{"top LBUTTONDOWN 42,15"}, clickAt(142));
}

TEST(Mouse, TwoQuickClicksAtOnePlaceAreADoubleClick) {
    Scene scene;
    const auto clickTwice = [](POINT second) {
        return [second] {
            click(kOnFirst);
            click(second);
        };
    };
    EXPECT_EQ((Lines{"first LBUTTONDOWN 5,5", "first LBUTTONUP 5,5", "first LBUTTONDBLCLK 5,5", "first LBUTTONUP 5,5"}),
              scene.record(clickTwice(kOnFirst), kMouse));
    EXPECT_EQ((Lines{"first LBUTTONDOWN 5,5", "first LBUTTONUP 5,5", "second LBUTTONDOWN 5,5", "second LBUTTONUP 5,5"}),
              scene.record(clickTwice(kOnSecond), kMouse));
}

TEST(Mouse, CaptureTakesAllEventsWhileItLasts) {
    Scene scene;
    SetCapture(scene.second);
    EXPECT_EQ((Lines{"second LBUTTONDOWN 5,65511", "second LBUTTONUP 5,65511"}), scene.record(
                                                                                     [] {
                                                                                         click({115, 115});
                                                                                     },
                                                                                     kMouse));
    ReleaseCapture();
    EXPECT_EQ(Lines{"first MOUSEMOVE 5,5"},
              scene.record([] { screen().injectMouse(InputSink::Mouse::Move, 0, kOnFirst); }, kMouse));
}

TEST(Mouse, WheelGoesToTheFocusAndRisesToTheParent) {
    Scene scene;
    SetFocus(scene.second);
    EXPECT_EQ((Lines{"second WHEEL 120", "top WHEEL 120"}),
              scene.record([] { screen().injectWheel(WHEEL_DELTA, kOnFirst); }, kMouse));
}

TEST(Mouse, ClickActivatesItsTopLevelWindow) {
    Scene scene;
    scene.recorder.create("other", WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, {400, 100, 50, 50}, nullptr);
    scene.recorder.drain();
    EXPECT_EQ((Lines{"top PARENTNOTIFY 201", "other ACTIVATE 0 top", "top ACTIVATE 2 other", "first LBUTTONDOWN 5,5",
                     "first LBUTTONUP 5,5"}),
              scene.record([] { click(kOnFirst); }, {"PARENTNOTIFY", "ACTIVATE ", "LBUTTON"}));
    EXPECT_EQ(scene.top, screen().focused());
}

TEST(Mouse, ClickOnADisabledOwnerBeepsAndBringsThePopupForward) {
    Scene scene;
    const HWND popup =
        scene.recorder.create("popup", WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, {400, 100, 50, 50}, scene.top);
    EnableWindow(scene.top, FALSE);
    const int beeps = screen().beeps();
    EXPECT_EQ(Lines{}, scene.record([] { click(kOnFirst); }, kMouse));
    EXPECT_EQ(beeps + 1, screen().beeps());
    EXPECT_EQ(popup, GetActiveWindow());
    SetActiveWindow(nullptr);
    scene.record([] { click(kOnFirst); }, kMouse);
    EXPECT_EQ(popup, GetActiveWindow());
}

TEST(Keyboard, KeyTextBecomesCharacters) {
    Scene scene;
    SetFocus(scene.first);
    EXPECT_EQ((Lines{"first KEYDOWN 41", "first CHAR 61", "first KEYUP 41"}),
              scene.record([] { type('A', "a"); }, kKeys));
    EXPECT_EQ((Lines{"first KEYDOWN dd", "first CHAR e5", "first KEYUP dd"}),
              scene.record([] { type(0xDD, "\xE5"); }, kKeys));
    EXPECT_EQ((Lines{"first KEYDOWN 2e", "first KEYUP 2e"}), scene.record([] { type(VK_DELETE, ""); }, kKeys));
    EXPECT_EQ(Lines{"first CHAR e4"}, scene.record([] { screen().injectKey(0, true, "\xE4"); }, kKeys));
}

TEST(Keyboard, AltMakesSystemKeys) {
    Scene scene;
    SetFocus(scene.first);
    EXPECT_EQ((Lines{"first SYSKEYDOWN 58", "first SYSCHAR 78", "first SYSKEYUP 58"}),
              scene.record([] { type('X', "x", InputSink::kAlt); }, kKeys));
    EXPECT_EQ((Lines{"first KEYDOWN 32", "first CHAR 40", "first KEYUP 32"}),
              scene.record([] { type('2', "@", InputSink::kAlt | MK_CONTROL); }, kKeys));
}

TEST(Keyboard, StateIsThatOfTheMessageBeingHandled) {
    Scene scene;
    SetFocus(scene.first);
    SHORT shift = 0;
    scene.recorder.setAnswer([&shift](HWND, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_KEYDOWN)
            shift = GetKeyState(VK_SHIFT);
        return false;
    });
    scene.record(
        [] {
            type(VK_TAB, "\t", MK_SHIFT);
            screen().injectKey(VK_RETURN, false, "", 0);
        },
        kKeys);
    EXPECT_LT(shift, 0);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
}

TEST(Keyboard, AltF4AndTheCloseBoxCloseEnabledWindowsOnly) {
    Scene scene;
    scene.recorder.setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT&) { return message == WM_CLOSE; });
    SetFocus(scene.first);
    const auto altF4 = [] { type(VK_F4, "", InputSink::kAlt); };
    const auto closeBox = [&scene] { screen().injectClose(scene.top); };
    EXPECT_EQ(Lines{"top CLOSE"}, scene.record(altF4, {"CLOSE"}));
    EXPECT_EQ(Lines{"top CLOSE"}, scene.record(closeBox, {"CLOSE"}));
    EnableWindow(scene.top, FALSE);
    EXPECT_EQ(Lines{}, scene.record(altF4, {"CLOSE"}));
    EXPECT_EQ(Lines{}, scene.record(closeBox, {"CLOSE"}));
}

TEST(Display, MovesByTheUserArriveAsMoves) {
    Scene scene;
    EXPECT_EQ(Lines{"top MOVE 300,320"}, scene.record([&] { screen().injectMove(scene.top, {300, 320}); }, {"MOVE "}));
    RECT rect;
    GetWindowRect(scene.first, &rect);
    EXPECT_EQ(310, rect.left);
    EXPECT_EQ(330, rect.top);
}

}  // namespace
