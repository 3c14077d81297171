// The X11 display against a running server. Another program is played by a second connection; its key and mouse
// events are sent, not made by devices.
#include "platform/display/display.h"

// Before the X headers, whose macros take common names.
#include <gtest/gtest.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <future>

namespace platform {
namespace {

using Kind = DisplayWindowInfo::Kind;

// Writes down what it is told, one text an event.
class RecordingSink final : public InputSink {
public:
    void mouse(HWND top, Mouse what, int button, POINT at, DWORD) override {
        const char* const names[] = {"move", "down", "up"};
        add("%s %d button %d at %d,%d", names[static_cast<int>(what)], number(top), button, at.x, at.y);
    }
    void wheel(HWND top, int delta, POINT at, DWORD) override {
        add("wheel %d by %d at %d,%d", number(top), delta, at.x, at.y);
    }
    void key(int virtualKey, bool down, bool repeat, const std::string& text, DWORD) override {
        add("key %02x %s%s '%s'", virtualKey, down ? "down" : "up", repeat ? " again" : "", text.c_str());
    }
    void modifiers(unsigned state) override {
        if (state != modifiers_) {
            add("modifiers %02x", state);
        }
        modifiers_ = state;
    }
    void closeRequested(HWND top) override { add("close %d", number(top)); }
    void focusIn(HWND top) override { add("focus in %d", number(top)); }
    void focusOut(HWND top) override { add("focus out %d", number(top)); }
    void moved(HWND top, POINT origin) override { add("moved %d to %d,%d", number(top), origin.x, origin.y); }
    void resized(HWND top, SIZE size) override { add("resized %d to %d,%d", number(top), size.cx, size.cy); }
    void monitorsChanged() override { add("monitors"); }
    void destroyed(HWND top) override { add("destroyed %d", number(top)); }

    std::vector<std::string> take() { return std::exchange(events_, {}); }

private:
    static int number(HWND window) { return static_cast<int>(reinterpret_cast<std::intptr_t>(window)); }

    template <typename... Values>
    void add(const char* format, Values... values) {
        char text[128];
        std::snprintf(text, sizeof text, format, values...);
        events_.emplace_back(text);
    }

    std::vector<std::string> events_;
    unsigned modifiers_ = 0;
};

using Events = std::vector<std::string>;

HWND windowNumber(int number) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(number));
}

constexpr int kPumpMs = 20;
constexpr int kMostPumps = 100;

// The bytes of a property of this format, the numbers of format 32 as the library has them; none of another format.
std::string propertyOf(::Display* display, ::Window window, Atom name, int wantedFormat) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, name, 0, 10000, False, AnyPropertyType, &type, &format, &count, &left, &data);
    std::string bytes;
    if (data != nullptr && format == wantedFormat) {
        bytes.assign(reinterpret_cast<const char*>(data), count * (format == 32 ? sizeof(unsigned long) : 1));
    }
    if (data != nullptr) {
        XFree(data);
    }
    return bytes;
}

class X11DisplayTest : public ::testing::Test {
protected:
    // A server that has lost its last client begins anew, and refuses connections while it does.
    static void SetUpTestSuite() { lasting_ = XOpenDisplay(nullptr); }
    static void TearDownTestSuite() {
        if (lasting_ != nullptr) {
            XCloseDisplay(lasting_);
        }
    }

    void SetUp() override {
        other_ = XOpenDisplay(nullptr);
        if (other_ == nullptr) {
            GTEST_SKIP() << "no X server";
        }
        display_ = openX11Display();
        ASSERT_NE(display_, nullptr);
    }

    void TearDown() override {
        display_.reset();
        if (other_ != nullptr) {
            XCloseDisplay(other_);
        }
    }

    void open(int number, RECT rect, const std::string& title, Kind kind = Kind::Normal) {
        DisplayWindowInfo info;
        info.kind = kind;
        info.window = windowNumber(number);
        info.rect = rect;
        info.positioned = true;
        info.title = title;
        display_->createWindow(info);
        display_->show(info.window, true);
    }

    // Pumps until the condition holds; false when it does not within about two seconds.
    bool pumpUntil(const std::function<bool()>& condition) {
        for (int i = 0; i < kMostPumps; ++i) {
            if (condition()) {
                return true;
            }
            display_->pump(sink_, kPumpMs);
            const Events fresh = sink_.take();
            events_.insert(events_.end(), fresh.begin(), fresh.end());
        }
        return condition();
    }

    bool pumpUntilEvent(const std::string& event) {
        return pumpUntil([&] { return std::find(events_.begin(), events_.end(), event) != events_.end(); });
    }

    std::string property(::Window window, const char* name) const {
        return propertyOf(other_, window, XInternAtom(other_, name, False), 8);
    }

    std::vector<unsigned long> numbers(::Window window, const char* name) const {
        const std::string bytes = propertyOf(other_, window, XInternAtom(other_, name, False), 32);
        std::vector<unsigned long> result(bytes.size() / sizeof(unsigned long));
        bytes.copy(reinterpret_cast<char*>(result.data()), bytes.size());
        return result;
    }

    void tellAsManager(::Window window, const char* name, Atom type, const std::vector<long>& values) {
        XChangeProperty(other_, window, XInternAtom(other_, name, False), type, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
        XSync(other_, False);
    }

    // The top-level window with this title, 0 for none.
    ::Window windowTitled(const std::string& utf8) const {
        ::Window root = 0;
        ::Window parent = 0;
        ::Window* children = nullptr;
        unsigned count = 0;
        XQueryTree(other_, DefaultRootWindow(other_), &root, &parent, &children, &count);
        ::Window found = 0;
        for (unsigned i = 0; i < count; ++i) {
            if (property(children[i], "_NET_WM_NAME") == utf8) {
                found = children[i];
            }
        }
        if (children != nullptr) {
            XFree(children);
        }
        return found;
    }

    unsigned long screenPixel(int x, int y) const {
        XImage* image = XGetImage(other_, DefaultRootWindow(other_), x, y, 1, 1, AllPlanes, ZPixmap);
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFF;
        XDestroyImage(image);
        return pixel;
    }

    void sendMove(::Window window, POINT at, unsigned state) {
        XEvent event{};
        event.xmotion.type = MotionNotify;
        event.xmotion.window = window;
        event.xmotion.x = at.x;
        event.xmotion.y = at.y;
        event.xmotion.state = state;
        XSendEvent(other_, window, True, PointerMotionMask, &event);
    }

    // Pumps long enough for a loss of the focus to be reported.
    void settle() {
        for (int i = 0; i < 5; ++i) {
            display_->pump(sink_, kPumpMs);
        }
    }

    static inline ::Display* lasting_ = nullptr;
    ::Display* other_ = nullptr;
    std::unique_ptr<Display> display_;
    RecordingSink sink_;
    Events events_;
};

TEST_F(X11DisplayTest, WindowShowsItsSurfaceAndLaterParts) {
    Surface surface(60, 40);
    for (int y = 0; y < surface.height(); ++y) {
        std::fill_n(surface.row(y), surface.width(), 0x123456U);
    }
    open(1, {100, 80, 160, 120}, "Inst\xE4llning \x80");
    display_->present(windowNumber(1), surface, {0, 0, 60, 40});
    EXPECT_TRUE(pumpUntil([&] { return screenPixel(159, 119) == 0x123456; }));
    const ::Window window = windowTitled("Inställning €");
    ASSERT_NE(window, 0U);
    EXPECT_EQ(property(window, "WM_NAME"), "Inst\xE4llning ?");

    surface.row(30)[20] = 0xFF0000;
    surface.row(5)[5] = 0x00FF00;
    display_->present(windowNumber(1), surface, {20, 30, 21, 31});
    EXPECT_TRUE(pumpUntil([&] { return screenPixel(120, 110) == 0xFF0000; }));
    EXPECT_EQ(screenPixel(105, 85), 0x123456U) << "a part that was not presented";

    display_->show(windowNumber(1), false);
    display_->show(windowNumber(1), true);
    EXPECT_TRUE(pumpUntil([&] { return screenPixel(105, 85) == 0x00FF00; })) << "exposure shows the whole surface";
}

TEST_F(X11DisplayTest, FocusThatComesBackAtOnceWasNeverLost) {
    open(1, {10, 10, 110, 60}, "Ett");
    display_->focus(windowNumber(1));
    ASSERT_TRUE(pumpUntilEvent("focus in 1"));
    events_.clear();
    XSetInputFocus(other_, None, RevertToNone, CurrentTime);
    XSync(other_, False);
    display_->pump(sink_, 0);
    XSetInputFocus(other_, windowTitled("Ett"), RevertToParent, CurrentTime);
    XSync(other_, False);
    settle();
    EXPECT_EQ(sink_.take(), Events{});
    XSetInputFocus(other_, None, RevertToNone, CurrentTime);
    XSync(other_, False);
    EXPECT_TRUE(pumpUntilEvent("focus out 1")) << "a loss that lasts";
}

TEST_F(X11DisplayTest, FocusNoticesThatCameTooLateTellNothing) {
    open(1, {0, 0, 100, 100}, "one");
    open(2, {50, 50, 150, 150}, "two");
    ASSERT_TRUE(pumpUntil([&] { return windowTitled("one") != 0 && windowTitled("two") != 0; }));
    display_->focus(windowNumber(2));
    ASSERT_TRUE(pumpUntilEvent("focus in 2"));

    // The server has answered the first request when the second one is made.
    display_->focus(windowNumber(1));
    display_->cursorPosition();
    display_->focus(windowNumber(2));
    settle();
    EXPECT_EQ(sink_.take(), Events{});

    // Lost while a window that is not shown yet waits for it.
    display_->show(windowNumber(1), false);
    settle();
    display_->focus(windowNumber(1));
    XSetInputFocus(other_, None, RevertToNone, CurrentTime);
    XFlush(other_);
    settle();
    EXPECT_EQ(sink_.take(), Events{});
    events_.clear();
    display_->show(windowNumber(1), true);
    ASSERT_TRUE(pumpUntilEvent("focus in 1"));
    EXPECT_EQ(events_, (Events{"focus out 2", "focus in 1"}));
}

TEST_F(X11DisplayTest, MovesInARowAreOneUnlessAButtonOrTheWindowChanges) {
    open(1, {0, 0, 100, 100}, "one");
    open(2, {200, 0, 300, 100}, "two");
    ASSERT_TRUE(pumpUntil([&] { return windowTitled("one") != 0 && windowTitled("two") != 0; }));
    const ::Window one = windowTitled("one");
    sendMove(one, {1, 1}, 0);
    sendMove(one, {2, 2}, 0);
    sendMove(windowTitled("two"), {3, 3}, 0);
    sendMove(one, {4, 4}, 0);
    sendMove(one, {5, 5}, Button1Mask);
    sendMove(one, {6, 6}, Button1Mask);
    XSync(other_, False);
    EXPECT_TRUE(pumpUntilEvent("move 1 button 0 at 6,6"));
    EXPECT_EQ(events_, (Events{"move 1 button 0 at 2,2", "move 2 button 0 at 3,3", "move 1 button 0 at 4,4",
                               "move 1 button 0 at 6,6"}));
}

TEST_F(X11DisplayTest, WhatOtherProgramsSayAndDoIsBelievedWithinReason) {
    open(1, {10, 20, 110, 70}, "one");
    ASSERT_TRUE(pumpUntil([&] { return windowTitled("one") != 0; }));
    const ::Window window = windowTitled("one");
    display_->writeClipboard("text");
    for (const int type : {KeyPress, FocusIn, UnmapNotify, DestroyNotify, ConfigureNotify, MappingNotify}) {
        XEvent lie{};
        lie.type = type;
        lie.xany.window = window;
        if (type == ConfigureNotify || type == UnmapNotify || type == DestroyNotify) {
            lie.xconfigure.window = window;  // All three name it twice.
        }
        if (type == ConfigureNotify) {
            lie.xconfigure.width = lie.xconfigure.height = 30000;
        }
        XSendEvent(other_, window, False, NoEventMask, &lie);
    }
    XSync(other_, False);
    settle();
    EXPECT_EQ(sink_.take(), Events{});

    XResizeWindow(other_, window, 30000, 30);
    XSync(other_, False);
    const SIZE screen = display_->screenSize();
    EXPECT_TRUE(pumpUntilEvent("resized 1 to " + std::to_string(screen.cx) + ",30"));
    XDestroyWindow(other_, window);
    XSync(other_, False);
    EXPECT_TRUE(pumpUntilEvent("destroyed 1"));
    display_->setTitle(windowNumber(1), "still known");
    display_->destroyWindow(windowNumber(1));
    EXPECT_EQ(display_->pump(sink_, 0), 0);
}

TEST_F(X11DisplayTest, WindowManagerIsToldWhatItNeedsAndItsFramesGetRoom) {
    const SIZE screen = display_->screenSize();
    ASSERT_EQ(display_->monitors().size(), 1U);
    const RECT monitor = display_->monitors().front();
    EXPECT_EQ(monitor.right, screen.cx);
    EXPECT_EQ(display_->workArea(monitor).bottom, screen.cy);
    open(1, {40, 40, 140, 90}, "one");
    DisplayWindowInfo info;
    info.kind = Kind::Dialog;
    info.window = windowNumber(2);
    info.owner = windowNumber(1);
    info.rect = {40, 40, 140, 90};
    info.title = "two";
    ASSERT_TRUE(pumpUntil([&] { return display_->isPlaced(windowNumber(1)); }));
    display_->createWindow(info);
    display_->show(info.window, true);
    EXPECT_TRUE(pumpUntilEvent("moved 2 to 66,66")) << "not exactly over the window that stands there";
    EXPECT_TRUE(display_->isPlaced(windowNumber(2)));

    const std::vector<unsigned long> icon = numbers(windowTitled("two"), "_NET_WM_ICON");
    ASSERT_EQ(icon.size(), 3 * 2 + 16 * 16 + 32 * 32 + 48 * 48U);
    EXPECT_EQ(icon[2 + 16 * 16], 32U);
    const std::vector<unsigned long> state = numbers(windowTitled("two"), "_NET_WM_STATE");
    EXPECT_EQ(std::count(state.begin(), state.end(), XInternAtom(other_, "_NET_WM_STATE_SKIP_TASKBAR", False)), 1);
    EXPECT_EQ(numbers(windowTitled("one"), "_NET_WM_STATE"), std::vector<unsigned long>());
    EXPECT_EQ(numbers(windowTitled("two"), "_NET_WM_USER_TIME"), std::vector<unsigned long>())
        << "the first window may have the focus";

    const ::Window root = DefaultRootWindow(other_);
    XSelectInput(other_, root, SubstructureRedirectMask);
    tellAsManager(root, "_NET_WORKAREA", XA_CARDINAL, {0, 0, 640, 450, 30, 10, 600, 400});
    tellAsManager(root, "_NET_CURRENT_DESKTOP", XA_CARDINAL, {1});
    tellAsManager(windowTitled("one"), "_NET_FRAME_EXTENTS", XA_CARDINAL, {1, 2, 20, 3});
    const RECT area = display_->workArea(monitor);
    EXPECT_EQ(area.left, 31);
    EXPECT_EQ(area.top, 30);
    EXPECT_EQ(area.right, 628);
    EXPECT_EQ(area.bottom, 407);
    XDeleteProperty(other_, root, XInternAtom(other_, "_NET_WORKAREA", False));
    XDeleteProperty(other_, root, XInternAtom(other_, "_NET_CURRENT_DESKTOP", False));
}

// A clipboard manager, which is asked once to save what the clipboard holds.
std::string savedByManager(::Display* display, const std::atomic<bool>& ended) {
    const auto atom = [display](const char* name) { return XInternAtom(display, name, False); };
    const ::Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display, atom("CLIPBOARD_MANAGER"), window, CurrentTime);
    XEvent asked{};
    while (!ended && asked.type == 0) {
        XCheckTypedEvent(display, SelectionRequest, &asked);
    }
    XConvertSelection(display, atom("CLIPBOARD"), atom("UTF8_STRING"), XA_CUT_BUFFER0, window, CurrentTime);
    XEvent given{};
    while (!ended && given.type == 0) {
        XCheckTypedEvent(display, SelectionNotify, &given);
    }
    std::string saved = propertyOf(display, window, XA_CUT_BUFFER0, 8);
    XEvent done{};
    done.xselection.type = SelectionNotify;
    done.xselection.requestor = asked.xselectionrequest.requestor;
    done.xselection.property = asked.xselectionrequest.property;
    XSendEvent(display, done.xselection.requestor, False, NoEventMask, &done);
    XSync(display, False);
    return saved;
}

TEST_F(X11DisplayTest, ClipboardIsHandedOverWithTheLastWindow) {
    open(1, {0, 0, 100, 100}, "one");
    display_->writeClipboard("kept");
    std::atomic<bool> ended = false;
    ::Display* managers = XOpenDisplay(nullptr);
    auto saved = std::async(std::launch::async, [&] { return savedByManager(managers, ended); });
    const Atom manager = XInternAtom(other_, "CLIPBOARD_MANAGER", False);
    ASSERT_TRUE(pumpUntil([&] { return XGetSelectionOwner(other_, manager) != 0; }));
    const auto start = std::chrono::steady_clock::now();
    display_->destroyWindow(windowNumber(1));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(900)) << "it need not wait out";
    ended = true;
    EXPECT_EQ(saved.get(), "kept");
    XCloseDisplay(managers);
}

TEST_F(X11DisplayTest, ClipboardIsServedToOtherPrograms) {
    display_->writeClipboard("Sm\xF6rg\xE5s \x80\r\n2");
    const ::Window requestor = XCreateSimpleWindow(other_, DefaultRootWindow(other_), 0, 0, 1, 1, 0, 0, 0);
    const Atom property = XInternAtom(other_, "RESULT", False);
    XConvertSelection(other_, XInternAtom(other_, "CLIPBOARD", False), XInternAtom(other_, "UTF8_STRING", False),
                      property, requestor, CurrentTime);
    XFlush(other_);
    EXPECT_TRUE(pumpUntil([&] { return !this->property(requestor, "RESULT").empty(); }));
    EXPECT_EQ(this->property(requestor, "RESULT"), "Smörgås €\n2");

    // Several forms at once; one of them is not to be had.
    const Atom pairType = XInternAtom(other_, "ATOM_PAIR", False);
    const Atom utf8 = XInternAtom(other_, "UTF8_STRING", False);
    tellAsManager(requestor, "PAIRS", pairType,
                  {XA_STRING, XA_CUT_BUFFER0, XA_PIXMAP, XA_CUT_BUFFER1, static_cast<long>(utf8), XA_CUT_BUFFER2});
    XConvertSelection(other_, XInternAtom(other_, "CLIPBOARD", False), XInternAtom(other_, "MULTIPLE", False),
                      XInternAtom(other_, "PAIRS", False), requestor, CurrentTime);
    XFlush(other_);
    EXPECT_TRUE(pumpUntil([&] { return !this->property(requestor, "CUT_BUFFER2").empty(); }));
    EXPECT_EQ(this->property(requestor, "CUT_BUFFER0"), "Sm\xF6rg\xE5s ?\n2");
    EXPECT_EQ(numbers(requestor, "PAIRS")[3], 0U);

    // Another owner that never answers: the wait ends, and there is no text.
    XSetSelectionOwner(other_, XInternAtom(other_, "CLIPBOARD", False), requestor, CurrentTime);
    XSync(other_, False);
    display_->pump(sink_, kPumpMs);
    std::string text;
    EXPECT_FALSE(display_->readClipboard(text));
}

}  // namespace
}  // namespace platform
