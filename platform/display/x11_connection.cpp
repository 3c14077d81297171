// Opening the connection, and what happens to errors: one about a window that has just vanished is harmless and is
// passed over; a lost server becomes an exception, since Xlib's own way out is to end the process, the host's.

#include "platform/display/x11_connection.h"

#include <X11/Xatom.h>

#include <bit>
#include <cstdio>

namespace platform {
namespace {

constexpr std::array<const char*, static_cast<std::size_t>(X11Atom::Count)> kAtomNames = {
    "WM_PROTOCOLS",
    "WM_DELETE_WINDOW",
    "_MOTIF_WM_HINTS",
    "_NET_WM_PING",
    "_NET_WM_PID",
    "_NET_WM_NAME",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_COMBO",
    "_NET_WM_STATE",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_ICON",
    "_NET_WM_USER_TIME",
    "_NET_ACTIVE_WINDOW",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_CURRENT_DESKTOP",
    "_NET_WORKAREA",
    "_NET_FRAME_EXTENTS",
    "_NET_REQUEST_FRAME_EXTENTS",
    "_NET_STARTUP_ID",
    "_NET_STARTUP_INFO_BEGIN",
    "_NET_STARTUP_INFO",
    "WM_LOCALE_NAME",
    "UTF8_STRING",
    "CLIPBOARD",
    "PRIMARY",
    "CLIPBOARD_MANAGER",
    "SAVE_TARGETS",
    "MULTIPLE",
    "ATOM_PAIR",
    "TARGETS",
    "TIMESTAMP",
    "TEXT",
    "text/plain;charset=utf-8",
    "INCR",
    "_TAVRIK_TRANSFER",
};

// The handlers are the process's; a host may have its own connection and handlers, which keep theirs.
::Display* ourDisplay = nullptr;
const ::Display* lostDisplay = nullptr;
thread_local bool isOpening = false;
XErrorHandler previousErrorHandler = nullptr;
XIOErrorHandler previousIoErrorHandler = nullptr;

bool isExpectedError(int code) {
    // A window that vanished, a focus or grab on a window that is not (or no longer) shown.
    return code == BadWindow || code == BadDrawable || code == BadMatch || code == BadAccess;
}

int onError(::Display* display, XErrorEvent* error) {
    if (display != ourDisplay) {
        return previousErrorHandler(display, error);
    }
    if (!isExpectedError(error->error_code)) {
        std::array<char, 128> text{};
        XGetErrorText(display, error->error_code, text.data(), static_cast<int>(text.size()));
        std::fprintf(stderr, "tavrikwindow: the X server refused request %d: %s\n", error->request_code, text.data());
    }
    return 0;
}

int onIoError(::Display* display) {
    if (isOpening) {
        throw X11ConnectionLost();  // There is no exit handler yet.
    }
    if (display != ourDisplay) {
        return previousIoErrorHandler(display);
    }
    return 0;  // What comes next is the exit handler.
}

void onIoErrorExit(::Display* display, void*) {
    lostDisplay = display;
    throw X11ConnectionLost();
}

void installErrorHandlers() {
    static const bool installed = [] {
        previousErrorHandler = XSetErrorHandler(onError);
        previousIoErrorHandler = XSetIOErrorHandler(onIoError);
        return true;
    }();
    static_cast<void>(installed);
}

// Xlib does not return from a loss while it connects either.
::Display* openDisplay() {
    ::Display* display = nullptr;
    isOpening = true;
    try {
        display = XOpenDisplay(nullptr);
    } catch (const X11ConnectionLost&) {
        display = nullptr;
    }
    isOpening = false;
    return display;
}

bool isByteMask(unsigned long mask) {
    return mask != 0 && mask >> std::countr_zero(mask) == 0xFF;
}

}  // namespace

std::unique_ptr<X11Connection> X11Connection::open() {
    installErrorHandlers();
    ::Display* display = openDisplay();
    if (display == nullptr) {
        return nullptr;
    }
    ourDisplay = display;
    XSetIOErrorExitHandler(display, onIoErrorExit, nullptr);
    std::unique_ptr<X11Connection> connection(new X11Connection(display));
    if (!connection->chooseVisual()) {
        return nullptr;
    }
    connection->createShared();
    return connection;
}

X11Connection::X11Connection(::Display* display)
    : display_(display),
      screen_(DefaultScreen(display)),
      root_(RootWindow(display, screen_)),
      screenSize_{DisplayWidth(display, screen_), DisplayHeight(display, screen_)} {
    XSelectInput(display, root_, StructureNotifyMask);
}

X11Connection::~X11Connection() {
    if (isLost(display_)) {
        return;
    }
    try {
        if (gc_ != nullptr) {
            XFreeGC(display_, gc_);
        }
        XCloseDisplay(display_);
    } catch (const X11ConnectionLost&) {
        return;
    }
    if (ourDisplay == display_) {
        ourDisplay = nullptr;
    }
}

bool X11Connection::isLost(const ::Display* display) {
    return display == lostDisplay;
}

bool X11Connection::chooseVisual() {
    // Depth 24 first: a visual of depth 32 may be seen through.
    if (XMatchVisualInfo(display_, screen_, 24, TrueColor, &visual_) == 0 &&
        XMatchVisualInfo(display_, screen_, 32, TrueColor, &visual_) == 0) {
        return false;
    }
    const std::array<unsigned long, 3> masks = {visual_.red_mask, visual_.green_mask, visual_.blue_mask};
    for (std::size_t i = 0; i < masks.size(); ++i) {
        if (!isByteMask(masks[i])) {
            return false;
        }
        shifts_[i] = std::countr_zero(masks[i]);
    }
    const auto colours = static_cast<std::uint32_t>(masks[0] | masks[1] | masks[2]);
    opaqueBits_ = visual_.depth == 32 ? ~colours : 0;
    nativePixels_ = opaqueBits_ == 0 && shifts_ == std::array<int, 3>{16, 8, 0};
    return true;
}

void X11Connection::createShared() {
    const bool isDefault = visual_.visual == DefaultVisual(display_, screen_);
    colormap_ =
        isDefault ? DefaultColormap(display_, screen_) : XCreateColormap(display_, root_, visual_.visual, AllocNone);
    XInternAtoms(display_, const_cast<char**>(kAtomNames.data()), static_cast<int>(kAtomNames.size()), False,
                 atoms_.data());
    XSetWindowAttributes attributes{};
    attributes.colormap = colormap_;
    attributes.event_mask = PropertyChangeMask;
    utilityWindow_ = XCreateWindow(display_, root_, -1, -1, 1, 1, 0, visual_.depth, InputOutput, visual_.visual,
                                   CWColormap | CWBorderPixel | CWEventMask, &attributes);
    gc_ = XCreateGC(display_, utilityWindow_, 0, nullptr);
}

std::uint32_t X11Connection::pixel(std::uint32_t rgb) const {
    const std::uint32_t red = (rgb >> 16) & 0xFF;
    const std::uint32_t green = (rgb >> 8) & 0xFF;
    const std::uint32_t blue = rgb & 0xFF;
    return red << shifts_[0] | green << shifts_[1] | blue << shifts_[2] | opaqueBits_;
}

void X11Connection::noteTime(const XEvent& event) {
    // A time that another program made up may lie in the future, where the server refuses it.
    if (event.xany.send_event != False) {
        return;
    }
    if (event.type == KeyPress || event.type == ButtonPress) {
        userTime_ = event.type == KeyPress ? event.xkey.time : event.xbutton.time;
    }
    if (event.type == KeyPress || event.type == KeyRelease) {
        lastTime_ = event.xkey.time;
    } else if (event.type == ButtonPress || event.type == ButtonRelease) {
        lastTime_ = event.xbutton.time;
    } else if (event.type == MotionNotify) {
        lastTime_ = event.xmotion.time;
    } else if (event.type == PropertyNotify) {
        lastTime_ = event.xproperty.time;
    }
}

void X11Connection::setAtomProperty(::Window window, X11Atom property, std::span<const Atom> values) {
    XChangeProperty(display_, window, atom(property), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
}

void X11Connection::setTextProperty(::Window window, Atom property, Atom type, const std::string& bytes) {
    XChangeProperty(display_, window, property, type, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
}

void X11Connection::tellWindowManager(::Window window, X11Atom type, const std::array<long, 5>& data) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = atom(type);
    event.xclient.format = 32;
    for (std::size_t i = 0; i < data.size(); ++i) {
        event.xclient.data.l[i] = data[i];
    }
    XSendEvent(display_, root_, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void X11Connection::setNumbers(::Window window, Atom property, Atom type, std::span<const long> values) {
    XChangeProperty(display_, window, property, type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
}

std::vector<long> X11Connection::readNumbers(::Window window, Atom property, Atom type) const {
    constexpr long kMost = 1024;
    Atom actualType = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const int result = XGetWindowProperty(display_, window, property, 0, kMost, False, type, &actualType, &format,
                                          &count, &left, &data);
    std::vector<long> numbers;
    if (result == Success && actualType == type && format == 32) {
        const auto* first = reinterpret_cast<const long*>(data);
        numbers.assign(first, first + count);
    }
    if (data != nullptr) {
        XFree(data);
    }
    return numbers;
}

bool X11Connection::hasWindowManager() const {
    return readNumbers(root_, X11Atom::NetSupportingWmCheck, XA_WINDOW).size() == 1;
}

}  // namespace platform
