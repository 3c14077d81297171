// The answers come as properties that the window manager keeps up to date, so they are read anew each time.
#include "platform/display/x11_manager.h"

#include "platform/display/rect_math.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace platform {
namespace {

// As left, top, right and bottom widths; for a window manager that does not tell.
constexpr RECT kUsualFrame = {6, 28, 6, 6};
constexpr LONG kCascadeStep = 26;

}  // namespace

X11Manager::X11Manager(X11Connection& connection) : connection_(connection) {
    if (const char* id = std::getenv("DESKTOP_STARTUP_ID")) {
        startId_ = id;
    }
    // The person's last deed was to start the program.
    const std::size_t time = startId_.rfind("_TIME");
    if (time != std::string::npos) {
        connection_.setUserTime(std::strtoul(startId_.c_str() + time + 5, nullptr, 10));
    }
    connection_.tellWindowManager(connection_.utilityWindow(), X11Atom::NetRequestFrameExtents, {});
    int firstEvent = 0;
    int firstError = 0;
    if (XQueryExtension(connection_.display(), "XINERAMA", &xinerama_, &firstEvent, &firstError) == False) {
        xinerama_ = 0;
    }
}

bool X11Manager::putsFrames() const {
    XWindowAttributes root{};
    return XGetWindowAttributes(connection_.display(), connection_.root(), &root) != 0 &&
           (root.all_event_masks & SubstructureRedirectMask) != 0;
}

RECT X11Manager::frameExtents(::Window framed) const {
    for (const ::Window window : {framed, connection_.utilityWindow()}) {
        const std::vector<long> widths =
            window != 0 ? connection_.readNumbers(window, X11Atom::NetFrameExtents, XA_CARDINAL) : std::vector<long>();
        constexpr long kWidest = 200;
        const auto isWidth = [](long width) { return width >= 0 && width <= kWidest; };
        if (widths.size() == 4 && std::all_of(widths.begin(), widths.end(), isWidth)) {
            return {static_cast<LONG>(widths[0]), static_cast<LONG>(widths[2]), static_cast<LONG>(widths[1]),
                    static_cast<LONG>(widths[3])};
        }
    }
    return kUsualFrame;
}

RECT X11Manager::workArea(::Window framed, const RECT& monitor) const {
    if (!putsFrames()) {
        return monitor;
    }
    const SIZE size = connection_.screenSize();
    const RECT screen = {0, 0, size.cx, size.cy};
    RECT area = screen;
    const auto desktop = connection_.readNumbers(connection_.root(), X11Atom::NetCurrentDesktop, XA_CARDINAL);
    const auto areas = connection_.readNumbers(connection_.root(), X11Atom::NetWorkArea, XA_CARDINAL);
    const std::size_t at = desktop.size() == 1 ? static_cast<std::size_t>(desktop[0]) * 4 : 0;
    if (at + 4 <= areas.size() && at % 4 == 0) {
        const auto part = [&](std::size_t index, LONG most) {
            return static_cast<LONG>(std::clamp<long>(areas[at + index], 0, most));
        };
        area.left = part(0, screen.right);
        area.top = part(1, screen.bottom);
        area.right = area.left + part(2, screen.right - area.left);
        area.bottom = area.top + part(3, screen.bottom - area.top);
    }
    area = intersectionOf(area, monitor);
    if (isEmptyRect(area)) {
        area = monitor;
    }
    const RECT frame = frameExtents(framed);
    return {area.left + frame.left, area.top + frame.top, std::max(area.left + frame.left, area.right - frame.right),
            std::max(area.top + frame.top, area.bottom - frame.bottom)};
}

POINT X11Manager::freePlace(POINT wanted) const {
    ::Display* display = connection_.display();
    ::Window root = 0;
    ::Window parent = 0;
    ::Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, connection_.root(), &root, &parent, &children, &count) == 0) {
        return wanted;
    }
    std::vector<POINT> taken;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display, children[i], &attributes) != 0 && attributes.map_state == IsViewable) {
            taken.push_back({attributes.x, attributes.y});
        }
    }
    XFree(children);
    const auto isTaken = [&](POINT place) {
        return std::any_of(taken.begin(), taken.end(),
                           [&](POINT other) { return other.x == place.x && other.y == place.y; });
    };
    while (isTaken(wanted)) {
        wanted = {wanted.x + kCascadeStep, wanted.y + kCascadeStep};
    }
    return wanted;
}

void X11Manager::nameStart(::Window first) {
    if (startId_.empty() || std::exchange(startNamed_, true)) {
        return;
    }
    connection_.setTextProperty(first, connection_.atom(X11Atom::NetStartupId), connection_.atom(X11Atom::Utf8String),
                                startId_);
}

void X11Manager::endStart() {
    if (startNamed_ && !startId_.empty()) {
        std::string message = "remove: ID=\"";
        for (const char c : std::exchange(startId_, {})) {
            message += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        }
        tellLaunchers(message + '"');
    }
}

// In pieces of what an event holds, the final NUL included.
void X11Manager::tellLaunchers(const std::string& message) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = connection_.utilityWindow();
    event.xclient.message_type = connection_.atom(X11Atom::NetStartupInfoBegin);
    event.xclient.format = 8;
    constexpr std::size_t kPiece = sizeof event.xclient.data.b;
    for (std::size_t at = 0; at <= message.size(); at += kPiece) {
        std::memset(event.xclient.data.b, 0, kPiece);
        message.copy(event.xclient.data.b, kPiece, at);
        XSendEvent(connection_.display(), connection_.root(), False, PropertyChangeMask, &event);
        event.xclient.message_type = connection_.atom(X11Atom::NetStartupInfo);
    }
}

}  // namespace platform
