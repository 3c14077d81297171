// Focus is reported once a batch of events is through, and its loss a moment later, so that a move between two of our
// windows is one change and never looks as if another program had the focus in between.

#include "platform/display/x11_display.h"

#include <X11/XKBlib.h>
#include <X11/cursorfont.h>
#include <poll.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace platform {
namespace {

constexpr int kWheelStep = 120;
// A window manager takes the focus from a window that goes before it gives it to the next one. To the pages a loss of
// the focus is the end of typing, with messages about wrong values, so a short one must not be seen.
constexpr std::chrono::milliseconds kFocusLossSettles{60};
constexpr long kGrabEvents = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;

// The virtual key of a mouse button, 0 for the wheel and the buttons beyond.
int virtualButton(unsigned button) {
    constexpr std::array<int, 4> kButtons = {0, VK_LBUTTON, VK_MBUTTON, VK_RBUTTON};
    return button < kButtons.size() ? kButtons[button] : 0;
}

}  // namespace

X11Display::X11Display(std::unique_ptr<X11Connection> connection)
    : connection_(std::move(connection)),
      manager_(*connection_),
      keyboard_(connection_->display()),
      clipboard_(*connection_, X11Atom::Clipboard),
      primary_(*connection_, X11Atom::Primary) {}

X11Window* X11Display::find(HWND window) const {
    for (const auto& entry : windows_) {
        if (entry->window() == window) {
            return entry.get();
        }
    }
    return nullptr;
}

X11Window* X11Display::findById(::Window id) const {
    for (const auto& entry : windows_) {
        if (entry->id() == id) {
            return entry.get();
        }
    }
    return nullptr;
}

void X11Display::createWindow(const DisplayWindowInfo& info) {
    const X11Window* owner = find(info.owner);
    DisplayWindowInfo placed = info;
    if (!info.positioned && !manager_.putsFrames()) {
        const POINT at = manager_.freePlace({info.rect.left, info.rect.top});
        placed.rect = {at.x, at.y, at.x + info.rect.right - info.rect.left, at.y + info.rect.bottom - info.rect.top};
    }
    windows_.push_back(std::make_unique<X11Window>(*connection_, placed, owner != nullptr ? owner->id() : 0));
    const ::Window id = windows_.back()->id();
    if (!windows_.back()->isPopup()) {
        manager_.nameStart(id);
    }
    keyboard_.inputMethod().attach(id);
    XDefineCursor(connection_->display(), id, cursorOf(cursor_));
}

void X11Display::destroyWindow(HWND window) {
    X11Window* entry = find(window);
    if (entry == nullptr) {
        return;
    }
    keyboard_.inputMethod().detach(entry->id());
    entry->destroy();
    std::erase_if(windows_, [entry](const auto& candidate) { return candidate.get() == entry; });
    // Without a window the program does not listen for requests, and it may be about to end.
    if (windows_.empty()) {
        clipboard_.handOver();
    }
    for (HWND* role : {&grabbed_, &serverFocus_, &reportedFocus_, &wantedFocus_}) {
        if (*role == window) {
            *role = nullptr;
        }
    }
}

void X11Display::show(HWND window, bool visible) {
    if (X11Window* entry = find(window)) {
        entry->show(visible);
    }
}

bool X11Display::isPlaced(HWND window) const {
    const X11Window* entry = find(window);
    return entry == nullptr || entry->isMapped();
}

void X11Display::setTitle(HWND window, const std::string& title) {
    if (X11Window* entry = find(window)) {
        entry->setTitle(title);
    }
}

void X11Display::setRect(HWND window, const RECT& client) {
    if (X11Window* entry = find(window)) {
        entry->setRect(client);
    }
}

void X11Display::raise(HWND window) {
    if (const X11Window* entry = find(window)) {
        XRaiseWindow(connection_->display(), entry->id());
    }
}

void X11Display::setTopmost(HWND window, bool topmost) {
    if (X11Window* entry = find(window)) {
        entry->setTopmost(topmost);
    }
}

void X11Display::focus(HWND window) {
    const X11Window* entry = find(window);
    if (entry == nullptr) {
        return;
    }
    wantedFocus_ = window;
    // A window that is not shown cannot have the focus; it asks again when the server has shown it.
    if (entry->isMapped()) {
        takeFocus(*entry);
    }
}

void X11Display::takeFocus(const X11Window& window) {
    const bool managed = connection_->hasWindowManager();
    focusAskedBy_ = NextRequest(connection_->display());
    if (!managed) {
        XSetInputFocus(connection_->display(), window.id(), RevertToParent, CurrentTime);
        return;
    }
    // A focus taken past the window manager is one that it gives away again when a window goes.
    const X11Window* active = find(serverFocus_);
    const long activeId = active != nullptr ? static_cast<long>(active->id()) : 0;
    constexpr long kFromApplication = 1;
    connection_->tellWindowManager(window.id(), X11Atom::NetActiveWindow,
                                   {kFromApplication, static_cast<long>(connection_->lastTime()), activeId, 0, 0});
}

void X11Display::grabMouse(HWND popup) {
    grabbed_ = popup;
    const X11Window* entry = find(popup);
    if (entry == nullptr) {
        XUngrabPointer(connection_->display(), CurrentTime);
    } else if (entry->isMapped()) {
        takeGrab(*entry);
    }
}

void X11Display::takeGrab(const X11Window& window) {
    // With owner events what happens over our other windows is reported for them: a press there may be meant for them.
    XGrabPointer(connection_->display(), window.id(), True, kGrabEvents, GrabModeAsync, GrabModeAsync, 0,
                 cursorOf(nullptr), CurrentTime);
}

void X11Display::present(HWND window, const Surface& surface, const RECT& rect) {
    if (X11Window* entry = find(window)) {
        entry->present(surface, rect);
    }
}

::Cursor X11Display::cursorOf(HCURSOR cursor) {
    const bool text = cursor == reinterpret_cast<HCURSOR>(IDC_IBEAM);
    ::Cursor& shape = text ? textCursor_ : arrow_;
    if (shape == 0) {
        shape = XCreateFontCursor(connection_->display(), text ? XC_xterm : XC_left_ptr);
    }
    return shape;
}

void X11Display::setCursor(HCURSOR cursor) {
    if (cursor == cursor_) {
        return;
    }
    cursor_ = cursor;
    for (const auto& window : windows_) {
        XDefineCursor(connection_->display(), window->id(), cursorOf(cursor));
    }
}

void X11Display::setCaretRect(HWND window, const RECT& rect) {
    if (const X11Window* entry = find(window)) {
        keyboard_.inputMethod().setCaretRect(entry->id(), rect);
    }
}

SIZE X11Display::screenSize() const {
    return connection_->screenSize();
}

// What desktops tell their programs by the resource database; the server itself knows sizes of glass at best.
int X11Display::dotsPerInch() const {
    const char* value = XGetDefault(connection_->display(), "Xft", "dpi");
    const double dots = value != nullptr ? std::strtod(value, nullptr) : 0;
    constexpr double kMost = 10000;
    return dots > 0 && dots < kMost ? static_cast<int>(std::lround(dots)) : 0;
}

RECT X11Display::workArea(const RECT& monitor) const {
    const auto isFrame = [](const auto& window) { return window->isMapped() && !window->isPopup(); };
    const auto framed = std::find_if(windows_.begin(), windows_.end(), isFrame);
    return manager_.workArea(framed != windows_.end() ? (*framed)->id() : 0, monitor);
}

POINT X11Display::cursorPosition() const {
    ::Window root = 0;
    ::Window child = 0;
    POINT position{};
    POINT inWindow{};
    unsigned state = 0;
    XQueryPointer(connection_->display(), connection_->root(), &root, &child, &position.x, &position.y, &inWindow.x,
                  &inWindow.y, &state);
    return position;
}

void X11Display::beep() {
    XBell(connection_->display(), 0);
}

int X11Display::pump(InputSink& sink, int timeoutMs) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
    for (;;) {
        for (const auto& window : windows_) {
            window->flushPresents();
        }
        // Looking for events also sends what is pending.
        if (const int delivered = drain(sink)) {
            return delivered;
        }
        if (timeoutMs >= 0 && Clock::now() >= deadline) {
            return 0;
        }
        auto until = timeoutMs < 0 ? Clock::time_point::max() : deadline;
        if (focusLossSettles_) {
            until = std::min(until, *focusLossSettles_);
        }
        wait(until);
    }
}

void X11Display::wait(Clock::time_point until) const {
    pollfd descriptor{ConnectionNumber(connection_->display()), POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    const bool endless = until == Clock::time_point::max();
    poll(&descriptor, 1, endless ? -1 : static_cast<int>(std::max<std::chrono::milliseconds::rep>(left, 0)));
}

int X11Display::drain(InputSink& sink) {
    ::Display* display = connection_->display();
    int delivered = 0;
    XEvent event;
    while (XPending(display) > 0) {
        XNextEvent(display, &event);
        const bool believable = isBelievable(event);
        textFollows_ = false;
        if (!believable) {
            continue;
        }
        connection_->noteTime(event);
        const int waiting = XEventsQueued(display, QueuedAlready);
        if (XFilterEvent(&event, 0) == False) {
            delivered += dispatch(event, sink);
        } else {
            textFollows_ = XEventsQueued(display, QueuedAlready) > waiting;
        }
    }
    return delivered + reportFocus(sink);
}

// Any program may send any event to any window. Those that only the server can know of are believed from the server
// alone; so is key code 0, with which an input method marks the text that it has ready.
bool X11Display::isBelievable(const XEvent& event) const {
    if (event.xany.send_event == False) {
        return true;
    }
    switch (event.type) {
        case KeyPress:
        case KeyRelease:
            return event.xkey.keycode != 0 || textFollows_;
        case ButtonPress:
        case ButtonRelease:
        case MotionNotify:
        case Expose:
        case ConfigureNotify:
        case ClientMessage:
        case SelectionNotify:
            return true;
        default:
            return false;
    }
}

int X11Display::dispatch(XEvent& event, InputSink& sink) {
    switch (event.type) {
        case MappingNotify:
            keyboard_.onMappingNotify(event.xmapping);
            return 0;
        case SelectionRequest:
            (event.xselectionrequest.selection == primary_.selection() ? primary_ : clipboard_)
                .onSelectionRequest(event.xselectionrequest);
            return 0;
        case SelectionClear:
            clipboard_.onSelectionClear(event.xselectionclear);
            primary_.onSelectionClear(event.xselectionclear);
            return 0;
        case ConfigureNotify:
            if (event.xany.window == connection_->root()) {
                connection_->setScreenSize({event.xconfigure.width, event.xconfigure.height});
                sink.monitorsChanged();
                return 1;
            }
            break;
        default:
            break;
    }
    X11Window* window = findById(event.xany.window);
    return window != nullptr ? dispatchToWindow(event, *window, sink) : 0;
}

int X11Display::dispatchToWindow(XEvent& event, X11Window& window, InputSink& sink) {
    switch (event.type) {
        case KeyPress: {
            window.writeUserTime();
            const int focusEvents = reportFocus(sink);
            return focusEvents + (keyboard_.onKeyPress(event.xkey, sink) ? 1 : 0);
        }
        case KeyRelease:
            return keyboard_.onKeyRelease(event.xkey, sink) ? 1 : 0;
        case ButtonPress:
            window.writeUserTime();
            return onMouseButton(event.xbutton, window.window(), sink);
        case ButtonRelease:
            return onMouseButton(event.xbutton, window.window(), sink);
        case MotionNotify:
            return onMouseMove(event.xmotion, window.window(), sink);
        case ClientMessage:
            return onClientMessage(event.xclient, window, sink);
        case ConfigureNotify:
            return onConfigureNotify(event.xconfigure, window, sink);
        case FocusIn:
        case FocusOut:
            onFocusChange(event.xfocus, window);
            return 0;
        case Expose:
            window.onExpose(event.xexpose);
            return 0;
        case ReparentNotify:
            window.onReparentNotify(event.xreparent);
            return 0;
        case UnmapNotify:
            window.onUnmapNotify();
            return 0;
        case DestroyNotify:
            return onDestroyNotify(window, sink);
        case MapNotify:
            return onMapNotify(window, sink);
        default:
            return 0;
    }
}

int X11Display::onMouseButton(const XButtonEvent& event, HWND window, InputSink& sink) {
    const POINT at = {event.x, event.y};
    const auto time = static_cast<DWORD>(event.time);
    const bool down = event.type == ButtonPress;
    if (const int button = virtualButton(event.button)) {
        sink.modifiers(keyboard_.modifiersOf(event.state));
        sink.mouse(window, down ? InputSink::Mouse::Down : InputSink::Mouse::Up, button, at, time);
        return 1;
    }
    if (!down || (event.button != Button4 && event.button != Button5)) {
        return 0;
    }
    sink.modifiers(keyboard_.modifiersOf(event.state));
    sink.wheel(window, event.button == Button4 ? kWheelStep : -kWheelStep, at, time);
    return 1;
}

int X11Display::onMouseMove(const XMotionEvent& event, HWND window, InputSink& sink) {
    // Of a run of moves the last one counts.
    ::Display* display = connection_->display();
    if (XEventsQueued(display, QueuedAlready) > 0) {
        XEvent next;
        XPeekEvent(display, &next);
        if (next.type == MotionNotify && next.xmotion.window == event.window && next.xmotion.state == event.state) {
            return 0;
        }
    }
    sink.modifiers(keyboard_.modifiersOf(event.state));
    sink.mouse(window, InputSink::Mouse::Move, 0, {event.x, event.y}, static_cast<DWORD>(event.time));
    return 1;
}

int X11Display::onClientMessage(const XClientMessageEvent& event, X11Window& window, InputSink& sink) {
    if (event.message_type != connection_->atom(X11Atom::WmProtocols) || event.format != 32) {
        return 0;
    }
    ::Display* display = connection_->display();
    const auto protocol = static_cast<Atom>(event.data.l[0]);
    if (protocol == connection_->atom(X11Atom::WmDeleteWindow)) {
        sink.closeRequested(window.window());
        return 1;
    }
    if (protocol == connection_->atom(X11Atom::NetWmPing)) {
        XEvent answer{};
        answer.xclient = event;
        answer.xclient.window = connection_->root();
        XSendEvent(display, connection_->root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &answer);
    }
    return 0;
}

int X11Display::onConfigureNotify(const XConfigureEvent& event, X11Window& window, InputSink& sink) {
    const RECT old = window.rect();
    if (!window.onConfigureNotify(event)) {
        return 0;
    }
    const RECT now = window.rect();
    const HWND handle = window.window();
    int delivered = 0;
    if (now.left != old.left || now.top != old.top) {
        sink.moved(handle, {now.left, now.top});
        ++delivered;
    }
    if (now.right - now.left != old.right - old.left || now.bottom - now.top != old.bottom - old.top) {
        sink.resized(handle, {now.right - now.left, now.bottom - now.top});
        ++delivered;
    }
    return delivered;
}

int X11Display::onMapNotify(X11Window& window, InputSink& sink) {
    window.onMapNotify();
    if (window.window() == wantedFocus_) {
        takeFocus(window);
    }
    if (window.window() == grabbed_) {
        takeGrab(window);
    }
    if (!window.isPopup()) {
        manager_.endStart();
    }
    if (!window.isPlacedByOthers()) {
        return 0;
    }
    window.locate();
    sink.moved(window.window(), {window.rect().left, window.rect().top});
    return 1;
}

// A drop-down list belongs to a control that goes on, so it comes back.
int X11Display::onDestroyNotify(X11Window& window, InputSink& sink) {
    if (window.isPopup()) {
        keyboard_.inputMethod().detach(window.id());
        window.create();
        keyboard_.inputMethod().attach(window.id());
        return 0;
    }
    sink.destroyed(window.window());
    return 1;
}

void X11Display::onFocusChange(const XFocusChangeEvent& event, X11Window& window) {
    // A grab borrows the keyboard, and the pointer details say where keys go while no window has the focus at all.
    const bool borrowed = event.mode == NotifyGrab || event.mode == NotifyUngrab;
    if (borrowed || event.detail == NotifyInferior || event.detail == NotifyPointer) {
        return;
    }
    focusNotedBy_ = event.serial;
    if (event.type == FocusIn) {
        serverFocus_ = window.window();
        wantedFocus_ = nullptr;
        focusLossSettles_.reset();
        keyboard_.inputMethod().focusIn(window.id());
        return;
    }
    if (serverFocus_ == window.window()) {
        serverFocus_ = nullptr;
        focusLossSettles_ = Clock::now() + kFocusLossSettles;
    }
    keyboard_.inputMethod().focusOut(window.id());
}

int X11Display::reportFocus(InputSink& sink) {
    // While a request of ours is under way, older notices and a focus in between tell nothing.
    const bool stale = focusNotedBy_ < focusAskedBy_ || (serverFocus_ == nullptr && wantedFocus_ != nullptr);
    if (focusLossSettles_ && Clock::now() >= *focusLossSettles_) {
        focusLossSettles_.reset();
    }
    if (serverFocus_ == reportedFocus_ || stale || focusLossSettles_) {
        return 0;
    }
    const HWND lost = reportedFocus_;
    reportedFocus_ = serverFocus_;
    if (reportedFocus_ == nullptr) {
        keyboard_.forgetPressedKeys();
    }
    if (lost != nullptr) {
        sink.focusOut(lost);
    }
    if (reportedFocus_ != nullptr) {
        sink.focusIn(reportedFocus_);
    }
    return 1;
}

}  // namespace platform
