// Mouse and keyboard from the display to messages, what is painted, and messages from other threads.
#include "platform/display/memory_display.h"
#include "platform/window/display_choice.h"
#include "tests/conformance/traced_windows.h"

#include <gtest/gtest.h>
#include <tavrikdisplay.h>

#include <algorithm>
#include <thread>

namespace {

using platform::InputSink;
using Lines = std::vector<std::string>;

// Selects the memory display for the process on the first call.
platform::MemoryDisplay& screen() {
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
    return static_cast<platform::MemoryDisplay&>(platform::display());
}

void click(POINT at) {
    screen().injectMouse(InputSink::Mouse::Down, VK_LBUTTON, at);
    screen().injectMouse(InputSink::Mouse::Up, VK_LBUTTON, at);
}

void type(int virtualKey, const std::string& text, unsigned modifiers = 0) {
    screen().injectKey(virtualKey, true, text, modifiers);
    screen().injectKey(virtualKey, false, "", modifiers);
}

// A top-level window at (100,100) of 200 by 100 pixels with two children of 50 by 20, at (10,10) and (10,40).
class Scene {
    Lines lines_;
    Trace trace_;

public:
    Scene();
    // The messages recorded while `act` runs and the queue is drained; others than `wanted` are left out.
    Lines record(const std::function<void()>& act, const Lines& wanted);

    TracedWindows windows;
    HWND top;
    HWND first;
    HWND second;
};

Scene::Scene()
    : trace_([this](const std::string& line) { lines_.push_back(line.substr(line.find_first_not_of(' '))); }),
      windows(trace_) {
    screen();
    top = windows.create("top", WS_POPUP | WS_VISIBLE | WS_CAPTION, {100, 100, 200, 100});
    first = windows.create("first", WS_CHILD | WS_VISIBLE, {10, 10, 50, 20}, top, 1);
    second = windows.create("second", WS_CHILD | WS_VISIBLE, {10, 40, 50, 20}, top, 2);
    drainQueue();
}

Lines Scene::record(const std::function<void()>& act, const Lines& wanted) {
    lines_.clear();
    act();
    drainQueue();
    Lines lines = std::exchange(lines_, {});
    std::erase_if(lines, [&wanted](const std::string& line) {
        return std::none_of(wanted.begin(), wanted.end(),
                            [&line](const std::string& part) { return line.find(" WM_" + part) != std::string::npos; });
    });
    return lines;
}

constexpr POINT kOnFirst{115, 115};
constexpr POINT kOnSecond{115, 145};
constexpr POINT kOnTop{250, 150};

const Lines kMouse{"LBUTTON", "MOUSEMOVE", "MOUSEWHEEL", "NCLBUTTON"};
const Lines kKeys{"KEYDOWN", "KEYUP", "CHAR", "SYSKEY", "SYSCHAR", "CLOSE"};

TEST(Mouse, PassesOverHiddenDisabledAndTransparentChildren) {
    Scene scene;
    // Clicks at different places, so that no double click arises.
    const auto clickAt = [&scene](LONG x) { return scene.record([x] { click({x, 115}); }, {"LBUTTONDOWN"}); };
    EXPECT_EQ(Lines{"first WM_LBUTTONDOWN 2,5"}, clickAt(112));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_DISABLED);
    EXPECT_EQ(Lines{"top WM_LBUTTONDOWN 22,15"}, clickAt(122));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD);
    EXPECT_EQ(Lines{"top WM_LBUTTONDOWN 32,15"}, clickAt(132));
    SetWindowLongPtrA(scene.first, GWL_STYLE, WS_CHILD | WS_VISIBLE);
    scene.windows.spy().setAnswer([&scene](HWND window, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = HTTRANSPARENT;
        return window == scene.first && message == WM_NCHITTEST;
    });
    EXPECT_EQ(Lines{"top WM_LBUTTONDOWN 42,15"}, clickAt(142));
}

TEST(Mouse, TwoQuickClicksAtOnePlaceAreADoubleClick) {
    Scene scene;
    const auto clickTwice = [](POINT second) {
        return [second] {
            click(kOnFirst);
            click(second);
        };
    };
    EXPECT_EQ((Lines{"first WM_LBUTTONDOWN 5,5", "first WM_LBUTTONUP 5,5", "first WM_LBUTTONDBLCLK 5,5",
                     "first WM_LBUTTONUP 5,5"}),
              scene.record(clickTwice(kOnFirst), kMouse));
    EXPECT_EQ((Lines{"first WM_LBUTTONDOWN 5,5", "first WM_LBUTTONUP 5,5", "second WM_LBUTTONDOWN 5,5",
                     "second WM_LBUTTONUP 5,5"}),
              scene.record(clickTwice(kOnSecond), kMouse));
}

TEST(Mouse, MovesInARowAreOneUnlessAnythingComesBetween) {
    Scene scene;
    const HWND other = scene.windows.create("other", WS_POPUP | WS_VISIBLE, {400, 100, 50, 50}, nullptr);
    drainQueue();
    const auto move = [](POINT to) { screen().injectMouse(InputSink::Mouse::Move, 0, to); };
    EXPECT_EQ((Lines{"second WM_MOUSEMOVE 5,5", "other WM_MOUSEMOVE 1,2", "first WM_MOUSEMOVE 5,5",
                     "first WM_LBUTTONDOWN 5,5", "first WM_LBUTTONUP 5,5", "first WM_MOUSEMOVE 6,5"}),
              scene.record(
                  [&] {
                      for (const POINT to : {kOnTop, kOnFirst, kOnSecond, POINT{401, 102}, kOnFirst}) {
                          move(to);
                      }
                      click(kOnFirst);
                      move({116, 115});
                  },
                  kMouse));
    DestroyWindow(other);
}

TEST(Mouse, WheelGoesToTheFocusAndRisesToTheParent) {
    Scene scene;
    SetFocus(scene.second);
    EXPECT_EQ((Lines{"second WM_MOUSEWHEEL 120", "top WM_MOUSEWHEEL 120"}),
              scene.record([] { screen().injectWheel(WHEEL_DELTA, kOnFirst); }, kMouse));
}

TEST(Mouse, ClickMayBeEatenAndKeptFromTheParents) {
    Scene scene;
    SetWindowLongPtrA(scene.first, GWL_EXSTYLE, WS_EX_NOPARENTNOTIFY);
    scene.windows.spy().setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = MA_ACTIVATEANDEAT;
        return message == WM_MOUSEACTIVATE;
    });
    EXPECT_EQ(Lines{"first WM_LBUTTONUP 5,5"}, scene.record([] { click(kOnFirst); }, {"PARENTNOTIFY", "LBUTTON"}));
}

TEST(Mouse, ClickOnADisabledOwnerBeepsAndBringsThePopupForward) {
    Scene scene;
    const HWND popup = scene.windows.create("popup", WS_POPUP | WS_VISIBLE | WS_CAPTION, {400, 100, 50, 50}, scene.top);
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
    EXPECT_EQ((Lines{"first WM_KEYDOWN 65", "first WM_CHAR 97", "first WM_KEYUP 65"}),
              scene.record([] { type('A', "a"); }, kKeys));
    EXPECT_EQ((Lines{"first WM_KEYDOWN 221", "first WM_CHAR 229", "first WM_KEYUP 221"}),
              scene.record([] { type(0xDD, "\xE5"); }, kKeys));
    EXPECT_EQ((Lines{"first WM_KEYDOWN 46", "first WM_KEYUP 46"}), scene.record([] { type(VK_DELETE, ""); }, kKeys));
    EXPECT_EQ(Lines{"first WM_CHAR 228"}, scene.record([] { screen().injectKey(0, true, "\xE4"); }, kKeys));
}

TEST(Keyboard, AltMakesSystemKeys) {
    Scene scene;
    SetFocus(scene.first);
    EXPECT_EQ((Lines{"first WM_SYSKEYDOWN 88", "first WM_SYSCHAR 120", "first WM_SYSKEYUP 88"}),
              scene.record([] { type('X', "x", InputSink::kAlt); }, kKeys));
    EXPECT_EQ((Lines{"first WM_KEYDOWN 50", "first WM_CHAR 64", "first WM_KEYUP 50"}),
              scene.record([] { type('2', "@", InputSink::kAlt | MK_CONTROL); }, kKeys));
}

TEST(Keyboard, StateIsThatOfTheMessageBeingHandled) {
    Scene scene;
    SetFocus(scene.first);
    SHORT shift = 0;
    SHORT capsLock = 0;
    scene.windows.spy().setAnswer([&](HWND, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_KEYDOWN) {
            shift = GetKeyState(VK_SHIFT);
            capsLock = GetKeyState(VK_CAPITAL);
        }
        return false;
    });
    scene.record(
        [] {
            type(VK_TAB, "\t", MK_SHIFT | InputSink::kCapsLock);
            screen().injectKey(VK_RETURN, false, "", 0);
        },
        kKeys);
    EXPECT_LT(shift, 0);
    EXPECT_EQ(capsLock, 1);
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
    EXPECT_EQ(GetKeyState(VK_CAPITAL), 0);
}

TEST(Keyboard, AltF4AndTheCloseBoxCloseEnabledWindowsOnly) {
    Scene scene;
    scene.windows.spy().setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT&) { return message == WM_CLOSE; });
    SetFocus(scene.first);
    const auto altF4 = [] { type(VK_F4, "", InputSink::kAlt); };
    const auto closeBox = [&scene] { screen().injectClose(scene.top); };
    EXPECT_EQ(Lines{"top WM_CLOSE"}, scene.record(altF4, {"CLOSE"}));
    EXPECT_EQ(Lines{"top WM_CLOSE"}, scene.record(closeBox, {"CLOSE"}));
    EnableWindow(scene.top, FALSE);
    EXPECT_EQ(Lines{}, scene.record(altF4, {"CLOSE"}));
    EXPECT_EQ(Lines{}, scene.record(closeBox, {"CLOSE"}));
}

void rightClick(POINT at) {
    screen().injectMouse(InputSink::Mouse::Down, VK_RBUTTON, at);
    screen().injectMouse(InputSink::Mouse::Up, VK_RBUTTON, at);
}

TEST(Menu, OfAnEditIsUsedByMouseAndKeys) {
    Scene scene;
    const auto addEdit = [&scene](int y) {
        return CreateWindowExA(0, "Edit", "text", WS_CHILD | WS_VISIBLE, 80, y, 100, 20, scene.top, nullptr, nullptr,
                               nullptr);
    };
    const HWND edit = addEdit(10);
    const HWND other = addEdit(40);
    const auto textOf = [](HWND window) {
        char text[16] = "";
        GetWindowTextA(window, text, sizeof text);
        return std::string(text);
    };
    const POINT onEdit{185, 115};
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>("more "));
    ASSERT_EQ("more text", textOf(edit));
    rightClick(onEdit);
    click({onEdit.x + 20, onEdit.y + 10});  // The first entry.
    drainQueue();
    EXPECT_EQ("text", textOf(edit));
    EXPECT_EQ(edit, GetFocus());

    // A press beside the menu closes it and does what it does anywhere.
    rightClick(onEdit);
    click({182, 145});
    drainQueue();
    EXPECT_EQ(nullptr, FindWindowA("#32768", nullptr));
    EXPECT_EQ(other, GetFocus());

    type(VK_APPS, "");
    type('M', "m");
    type('C', "\x03", MK_CONTROL);
    type(VK_APPS, "");
    type('T', "T");
    type(VK_F10, "", MK_SHIFT);
    type('I', "i");
    type('V', "\x16", MK_CONTROL);
    drainQueue();
    EXPECT_EQ("texttext", textOf(other));
}

TEST(Menu, ClosesWithItsOwnerAndWithTheActivation) {
    Scene scene;
    const HWND other = scene.windows.create("other", WS_POPUP | WS_VISIBLE | WS_CAPTION, {400, 100, 50, 50}, nullptr);
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, 1, "one");
    const auto trackUntil = [&](const std::function<void()>& event) {
        SetFocus(scene.first);
        HWND seen = nullptr;
        scene.windows.spy().setAnswer([&](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            if (message == WM_ENTERIDLE && !std::exchange(seen, reinterpret_cast<HWND>(lParam))) {
                event();
            }
            return false;
        });
        EXPECT_EQ(0, TrackPopupMenu(menu, TPM_RETURNCMD, 1270, 1020, 0, scene.first, nullptr));
        EXPECT_NE(nullptr, seen);
        EXPECT_FALSE(IsWindow(seen));
        EXPECT_EQ(nullptr, GetCapture());
    };
    trackUntil([other] { SetActiveWindow(other); });
    trackUntil([&] {
        RECT place{};
        GetWindowRect(FindWindowA("#32768", nullptr), &place);
        EXPECT_EQ(1280, place.right);
        EXPECT_EQ(1024, place.bottom);
        DestroyWindow(scene.top);
    });
    DestroyMenu(menu);
}

TEST(Painting, OnlyTheInvalidPartIsPaintedAndShown) {
    Scene scene;
    screen().takePresented(scene.top);
    RECT painted{};
    scene.windows.spy().setAnswer([&painted, &scene](HWND window, UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message != WM_PAINT) {
            return false;
        }
        EXPECT_EQ(scene.second, window);
        PAINTSTRUCT paint;
        BeginPaint(window, &paint);
        painted = paint.rcPaint;
        EndPaint(window, &paint);
        result = 0;
        return true;
    });
    const RECT part{3, 4, 13, 9};
    InvalidateRect(scene.second, &part, TRUE);
    drainQueue();
    EXPECT_TRUE(EqualRect(&part, &painted));
    const RECT shown = screen().takePresented(scene.top);
    const RECT onTop{13, 44, 23, 49};
    EXPECT_TRUE(EqualRect(&onTop, &shown));
}

TEST(Display, MovesByTheUserArriveAsMoves) {
    Scene scene;
    EXPECT_EQ(Lines{"top WM_MOVE 300,320"}, scene.record(
                                                [&] {
                                                    screen().injectMove(scene.top, {300, 320});
                                                },
                                                {"MOVE "}));
    RECT rect;
    GetWindowRect(scene.first, &rect);
    EXPECT_EQ(310, rect.left);
    EXPECT_EQ(330, rect.top);
}

TEST(Monitors, WindowsLearnOfThemAndAreOnTheOneThatShowsMost) {
    Scene scene;
    const auto change = [&](const std::vector<RECT>& monitors) {
        return scene.record([&] { screen().injectMonitors(monitors); }, {"DISPLAYCHANGE"}).size();
    };
    EXPECT_EQ(change({{0, 0, 800, 600}, {800, 0, 2400, 900}}), 1U) << "top-level windows alone";
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 800);
    const auto leftOf = [&](int x, int y) {
        SetWindowPos(scene.top, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        MONITORINFO info{};
        info.cbSize = sizeof info;
        EXPECT_TRUE(GetMonitorInfoA(MonitorFromWindow(scene.first, MONITOR_DEFAULTTONEAREST), &info));
        return info.rcWork.left;
    };
    EXPECT_EQ(leftOf(100, 100), 0);
    EXPECT_EQ(leftOf(740, 100), 0) << "its child reaches into both";
    EXPECT_EQ(leftOf(780, 100), 800);
    EXPECT_EQ(leftOf(100, 2000), 0) << "on none";
    EXPECT_EQ(leftOf(1500, 2000), 800);
    change({{0, 0, 1280, 1024}});
    EXPECT_FALSE(GetMonitorInfoA(reinterpret_cast<HMONITOR>(std::uintptr_t{2}), nullptr));
}

TEST(Threads, PostingFromAnotherOneIsRefused) {
    Scene scene;
    BOOL posted = TRUE;
    std::thread([&posted, &scene] { posted = PostMessageA(scene.first, WM_USER, 0, 0); }).join();
    EXPECT_FALSE(posted);
    EXPECT_TRUE(PostMessageA(scene.first, WM_USER, 0, 0));
}

}  // namespace
