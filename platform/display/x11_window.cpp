// Pixels go straight from the caller's surface into the request where the server's pixels are the same, and row by
// row through a converted copy where they are not.

#include "platform/display/x11_window.h"

#include "platform/display/rect_math.h"
#include "platform/display/x11_icon.h"
#include "platform/resources/code_page.h"

#include <X11/Xatom.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <utility>

namespace platform {
namespace {

constexpr long kEvents = KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask |
                         ExposureMask | FocusChangeMask | StructureNotifyMask;

// More parts than this are sent as one: a request has its cost too.
constexpr std::size_t kMostPendingParts = 8;

unsigned extent(LONG from, LONG to) {
    return to > from ? static_cast<unsigned>(to - from) : 1;
}

std::uint32_t backgroundColour() {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    return static_cast<std::uint32_t>(GetRValue(face)) << 16 | static_cast<std::uint32_t>(GetGValue(face)) << 8 |
           static_cast<std::uint32_t>(GetBValue(face));
}

// The locale that the environment names, where the system knows it. Setting it would change it for the host.
std::string userLocale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name == nullptr || *name == '\0') {
            continue;
        }
        const locale_t known = newlocale(LC_CTYPE_MASK, name, nullptr);
        if (known == nullptr) {
            break;
        }
        freelocale(known);
        return name;
    }
    return "C";
}

// WM_NAME is Latin-1, which lacks the code page's own characters.
std::string latin1(const std::string& text) {
    std::string result = text;
    for (char& c : result) {
        if (characterOfByte(static_cast<unsigned char>(c)) > 0xFF) {
            c = '?';
        }
    }
    return result;
}

}  // namespace

X11Window::X11Window(X11Connection& connection, const DisplayWindowInfo& info, ::Window owner)
    : connection_(connection), info_(info), owner_(owner), rect_(info.rect) {
    create();
}

void X11Window::create() {
    const bool popup = isPopup();
    XSetWindowAttributes attributes{};
    attributes.background_pixel = connection_.pixel(backgroundColour());
    attributes.bit_gravity = NorthWestGravity;
    attributes.colormap = connection_.colormap();
    attributes.override_redirect = popup ? True : False;
    attributes.save_under = popup ? True : False;
    attributes.event_mask = kEvents;
    id_ = XCreateWindow(
        connection_.display(), connection_.root(), rect_.left, rect_.top, extent(rect_.left, rect_.right),
        extent(rect_.top, rect_.bottom), 0, connection_.visual().depth, InputOutput, connection_.visual().visual,
        CWBackPixel | CWBorderPixel | CWBitGravity | CWColormap | CWOverrideRedirect | CWSaveUnder | CWEventMask,
        &attributes);
    setTitle(info_.title);
    setWindowManagerHints();
    setDecorationHints();
    setSizeHints();
    onUnmapNotify();
    if (std::exchange(shown_, false)) {
        show(true);
    }
}

void X11Window::destroy() {
    XDestroyWindow(connection_.display(), id_);
}

void X11Window::setWindowManagerHints() {
    ::Display* display = connection_.display();
    std::string name = program_invocation_short_name;
    std::string className = "Tavrik";
    XClassHint classHint{name.data(), className.data()};
    XWMHints hints{};
    hints.flags = InputHint | StateHint;
    hints.input = isPopup() ? False : True;
    hints.initial_state = NormalState;
    // The client machine comes with this call; the titles are set apart. The locale that it writes is the one the host
    // has set, mostly none, and not the person's.
    XSetWMProperties(display, id_, nullptr, nullptr, nullptr, 0, nullptr, &hints, &classHint);
    connection_.setTextProperty(id_, connection_.atom(X11Atom::WmLocaleName), XA_STRING, userLocale());
    const std::array<long, 1> process = {getpid()};
    connection_.setNumbers(id_, X11Atom::NetWmPid, XA_CARDINAL, process);
    if (owner_ != 0) {
        XSetTransientForHint(display, id_, owner_);
    }

    constexpr std::array<X11Atom, 3> kTypes = {X11Atom::NetWmWindowTypeNormal, X11Atom::NetWmWindowTypeDialog,
                                               X11Atom::NetWmWindowTypeCombo};
    const std::array<Atom, 1> type = {connection_.atom(kTypes[static_cast<std::size_t>(info_.kind)])};
    connection_.setAtomProperty(id_, X11Atom::NetWmWindowType, type);
    // Dialogs with an owner are modal to it: their owner is disabled while they are shown.
    modal_ = info_.kind == DisplayWindowInfo::Kind::Dialog && owner_ != 0;
    if (isPopup()) {
        return;
    }
    connection_.setNumbers(id_, X11Atom::NetWmIcon, XA_CARDINAL, windowIcon());
    const std::array<Atom, 2> protocols = {connection_.atom(X11Atom::WmDeleteWindow),
                                           connection_.atom(X11Atom::NetWmPing)};
    connection_.setAtomProperty(id_, X11Atom::WmProtocols, protocols);
}

// A dialog has a title and a close box, but is neither made an icon nor enlarged.
void X11Window::setDecorationHints() {
    if (info_.kind != DisplayWindowInfo::Kind::Dialog || info_.resizable) {
        return;
    }
    constexpr unsigned long kFunctionsAndDecorations = 1 | 2;
    constexpr unsigned long kMoveAndClose = 4 | 32;
    constexpr unsigned long kBorderTitleAndMenu = 2 | 8 | 16;
    const std::array<unsigned long, 5> hints = {kFunctionsAndDecorations, kMoveAndClose, kBorderTitleAndMenu, 0, 0};
    const Atom property = connection_.atom(X11Atom::MotifWmHints);
    XChangeProperty(connection_.display(), id_, property, property, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(hints.data()), static_cast<int>(hints.size()));
}

void X11Window::setSizeHints() {
    XSizeHints hints{};
    // With static gravity the place is that of the client area, whatever frame comes around it.
    hints.flags = PSize | PWinGravity;
    hints.win_gravity = StaticGravity;
    if (info_.positioned) {
        hints.flags |= USPosition | PPosition;
    }
    if (!info_.resizable) {
        hints.flags |= PMinSize | PMaxSize;
    }
    hints.x = rect_.left;
    hints.y = rect_.top;
    hints.width = hints.min_width = hints.max_width = static_cast<int>(extent(rect_.left, rect_.right));
    hints.height = hints.min_height = hints.max_height = static_cast<int>(extent(rect_.top, rect_.bottom));
    if (info_.resizable && info_.least.cx > 0 && info_.least.cy > 0) {
        hints.flags |= PMinSize;
        hints.min_width = info_.least.cx;
        hints.min_height = info_.least.cy;
    }
    XSetWMNormalHints(connection_.display(), id_, &hints);
}

void X11Window::show(bool visible) {
    if (visible == shown_) {
        return;
    }
    shown_ = visible;
    ::Display* display = connection_.display();
    if (visible) {
        writeState();  // The window manager forgets the state of a withdrawn window.
        writeUserTime();
        XMapRaised(display, id_);
    } else {
        XWithdrawWindow(display, id_, connection_.screen());
    }
}

void X11Window::setTitle(const std::string& title) {
    info_.title = title;
    connection_.setTextProperty(id_, XA_WM_NAME, XA_STRING, latin1(title));
    connection_.setTextProperty(id_, connection_.atom(X11Atom::NetWmName), connection_.atom(X11Atom::Utf8String),
                                codePageToUtf8(title));
}

void X11Window::setRect(const RECT& client) {
    if (sameRect(client, rect_)) {
        return;
    }
    info_.rect = rect_ = client;
    info_.positioned = true;
    setSizeHints();
    placedBy_ = NextRequest(connection_.display());
    XMoveResizeWindow(connection_.display(), id_, rect_.left, rect_.top, extent(rect_.left, rect_.right),
                      extent(rect_.top, rect_.bottom));
}

void X11Window::setTopmost(bool topmost) {
    if (topmost == topmost_) {
        return;
    }
    topmost_ = topmost;
    if (shown_) {
        setState(X11Atom::NetWmStateAbove, topmost);
    }
    if (topmost) {
        XRaiseWindow(connection_.display(), id_);
    }
}

// A window without this property may have the focus, as the first one of a program should.
void X11Window::writeUserTime() {
    const std::array<long, 1> time = {static_cast<long>(connection_.userTime())};
    if (time[0] != 0 && !isPopup()) {
        connection_.setNumbers(id_, X11Atom::NetWmUserTime, XA_CARDINAL, time);
    }
}

// A shown window's state belongs to the window manager, which is asked to change it.
void X11Window::setState(X11Atom state, bool on) {
    constexpr long kFromApplication = 1;
    connection_.tellWindowManager(id_, X11Atom::NetWmState,
                                  {on ? 1 : 0, static_cast<long>(connection_.atom(state)), 0, kFromApplication, 0});
}

void X11Window::writeState() {
    std::vector<Atom> states;
    if (modal_) {
        states.push_back(connection_.atom(X11Atom::NetWmStateModal));
    }
    if (owner_ != 0) {
        states.push_back(connection_.atom(X11Atom::NetWmStateSkipTaskbar));
        states.push_back(connection_.atom(X11Atom::NetWmStateSkipPager));
    }
    if (topmost_) {
        states.push_back(connection_.atom(X11Atom::NetWmStateAbove));
    }
    connection_.setAtomProperty(id_, X11Atom::NetWmState, states);
}

void X11Window::present(const Surface& surface, const RECT& rect) {
    surface_ = &surface;
    RECT part = intersectionOf(rect, {0, 0, surface.width(), surface.height()});
    if (isEmptyRect(part)) {
        return;
    }
    if (pending_.size() >= kMostPendingParts) {
        for (const RECT& other : pending_) {
            part = boundsOf(part, other);
        }
        pending_.clear();
    }
    // Joining two parts may make the result meet a third one, so the search starts over.
    for (std::size_t i = 0; i < pending_.size();) {
        if (isEmptyRect(intersectionOf(pending_[i], part))) {
            ++i;
            continue;
        }
        part = boundsOf(part, pending_[i]);
        pending_.erase(pending_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    pending_.push_back(part);
}

void X11Window::flushPresents() {
    if (!exposed_) {
        return;  // The exposure that is still to come shows everything.
    }
    for (const RECT& part : pending_) {
        putImage(part);
    }
    pending_.clear();
}

void X11Window::onUnmapNotify() {
    mapped_ = false;
    exposed_ = false;
}

void X11Window::onReparentNotify(const XReparentEvent& event) {
    reparented_ = event.parent != connection_.root();
}

void X11Window::onExpose(const XExposeEvent& event) {
    exposed_ = true;
    if (surface_ != nullptr) {
        present(*surface_, {event.x, event.y, event.x + event.width, event.y + event.height});
    }
    if (event.count == 0) {
        flushPresents();
    }
}

bool X11Window::locate() {
    POINT origin{};
    ::Window child = 0;
    if (XTranslateCoordinates(connection_.display(), id_, connection_.root(), 0, 0, &origin.x, &origin.y, &child) ==
        False) {
        return false;  // It is gone meanwhile.
    }
    rect_ = {origin.x, origin.y, origin.x + rect_.right - rect_.left, origin.y + rect_.bottom - rect_.top};
    return true;
}

bool X11Window::onConfigureNotify(const XConfigureEvent& event) {
    if (event.serial < placedBy_) {
        return false;
    }
    const SIZE size = believedSize(event);
    // Inside a frame the server reports the place within it. A notice that was sent is the window manager's, of the
    // screen, or some other program's, of nothing.
    if (event.send_event == False && !reparented_) {
        rect_.left = event.x;
        rect_.top = event.y;
    } else if (!locate()) {
        return false;
    }
    rect_.right = rect_.left + size.cx;
    rect_.bottom = rect_.top + size.cy;
    return true;
}

// Other programs can resize the window beyond all reason. The part that fits the screen is shown then, or the size that
// the program gave itself where that is larger. A window manager's own notice is about the place alone.
SIZE X11Window::believedSize(const XConfigureEvent& event) const {
    if (event.send_event != False) {
        return {rect_.right - rect_.left, rect_.bottom - rect_.top};
    }
    const ::Display* display = connection_.display();
    const int widest = std::max<int>(DisplayWidth(display, connection_.screen()), info_.rect.right - info_.rect.left);
    const int highest = std::max<int>(DisplayHeight(display, connection_.screen()), info_.rect.bottom - info_.rect.top);
    return {std::min(event.width, widest), std::min(event.height, highest)};
}

void X11Window::putImage(const RECT& rect) {
    const RECT part = intersectionOf(rect, {0, 0, surface_->width(), surface_->height()});
    if (isEmptyRect(part)) {
        return;
    }
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    std::vector<std::uint32_t> converted;
    const std::uint32_t* pixels = surface_->row(part.top) + part.left;
    int stride = surface_->width();
    if (!connection_.hasNativePixels()) {
        converted.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        for (int y = 0; y < height; ++y) {
            const std::uint32_t* row = pixels + static_cast<std::ptrdiff_t>(y) * stride;
            for (int x = 0; x < width; ++x) {
                converted.push_back(connection_.pixel(row[x]));
            }
        }
        pixels = converted.data();
        stride = width;
    }
    const XVisualInfo& visual = connection_.visual();
    XImage image{};
    image.width = width;
    image.height = height;
    image.format = ZPixmap;
    image.data = const_cast<char*>(reinterpret_cast<const char*>(pixels));
    // The library swaps the bytes where the server's order differs.
    image.byte_order = std::endian::native == std::endian::little ? LSBFirst : MSBFirst;
    image.bitmap_bit_order = image.byte_order;
    image.bitmap_unit = 32;
    image.bitmap_pad = 32;
    image.depth = visual.depth;
    image.bits_per_pixel = 32;
    image.bytes_per_line = stride * 4;
    image.red_mask = visual.red_mask;
    image.green_mask = visual.green_mask;
    image.blue_mask = visual.blue_mask;
    if (XInitImage(&image) != 0) {
        XPutImage(connection_.display(), id_, connection_.gc(), &image, 0, 0, part.left, part.top,
                  static_cast<unsigned>(width), static_cast<unsigned>(height));
    }
}

}  // namespace platform
