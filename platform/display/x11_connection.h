// The connection to the X server and what all windows on it share: visual, atoms, a drawing context.
#pragma once

#include <windows.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace platform {

enum class X11Atom {
    WmProtocols,
    WmDeleteWindow,
    MotifWmHints,
    NetWmPing,
    NetWmPid,
    NetWmName,
    NetWmWindowType,
    NetWmWindowTypeNormal,
    NetWmWindowTypeDialog,
    NetWmWindowTypeCombo,
    NetWmState,
    NetWmStateAbove,
    NetWmStateModal,
    NetWmStateSkipTaskbar,
    NetWmStateSkipPager,
    NetWmIcon,
    NetWmUserTime,
    NetActiveWindow,
    NetSupportingWmCheck,
    NetCurrentDesktop,
    NetWorkArea,
    NetFrameExtents,
    NetRequestFrameExtents,
    NetStartupId,
    NetStartupInfoBegin,
    NetStartupInfo,
    WmLocaleName,
    Utf8String,
    Clipboard,
    Primary,
    ClipboardManager,
    SaveTargets,
    Multiple,
    AtomPair,
    Targets,
    Timestamp,
    Text,
    Utf8MimeText,
    Incr,
    TransferProperty,
    Count
};

// Thrown out of Xlib's own calls when the server is gone. Xlib would go on with a connection that takes no more
// requests, and in the end write past its buffer; after this nothing may be asked of the connection any more.
struct X11ConnectionLost {};

class X11Connection {
public:
    // Null when no server answers, or when it has no true-colour visual with eight bits a colour.
    static std::unique_ptr<X11Connection> open();
    // Whether this is the connection that was lost. Destructors must leave it alone; its memory is never freed.
    static bool isLost(const ::Display* display);
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    ::Display* display() const { return display_; }
    ::Window root() const { return root_; }
    int screen() const { return screen_; }
    const XVisualInfo& visual() const { return visual_; }
    Colormap colormap() const { return colormap_; }
    // Of the root window, as the server last said.
    SIZE screenSize() const { return screenSize_; }
    void setScreenSize(SIZE size) { screenSize_ = size; }
    // A window that is never shown: it owns selections.
    ::Window utilityWindow() const { return utilityWindow_; }
    GC gc() const { return gc_; }
    Atom atom(X11Atom name) const { return atoms_[static_cast<std::size_t>(name)]; }

    // The server's pixel for 0x00RRGGBB; with native pixels it is the same value.
    bool hasNativePixels() const { return nativePixels_; }
    std::uint32_t pixel(std::uint32_t rgb) const;

    // Time of the newest event that carried one; what the server wants for selections and focus.
    Time lastTime() const { return lastTime_; }
    void noteTime(const XEvent& event);
    // Time of the last key or button that the person pressed, in whichever window; 0 for none yet.
    Time userTime() const { return userTime_; }
    void setUserTime(Time time) { userTime_ = time; }

    void setAtomProperty(::Window window, X11Atom property, std::span<const Atom> values);
    void setNumbers(::Window window, Atom property, Atom type, std::span<const long> values);
    void setNumbers(::Window window, X11Atom property, Atom type, std::span<const long> values) {
        setNumbers(window, atom(property), type, values);
    }
    // Empty when the window has no such property of this type.
    std::vector<long> readNumbers(::Window window, Atom property, Atom type) const;
    std::vector<long> readNumbers(::Window window, X11Atom property, Atom type) const {
        return readNumbers(window, atom(property), type);
    }
    void setTextProperty(::Window window, Atom property, Atom type, const std::string& bytes);
    // Sends a client message about `window` to the window manager.
    void tellWindowManager(::Window window, X11Atom type, const std::array<long, 5>& data);
    bool hasWindowManager() const;

private:
    explicit X11Connection(::Display* display);
    bool chooseVisual();
    void createShared();

    ::Display* display_;
    int screen_;
    ::Window root_;
    SIZE screenSize_;
    XVisualInfo visual_{};
    bool nativePixels_ = false;
    std::array<int, 3> shifts_{};   // Of red, green and blue in a pixel.
    std::uint32_t opaqueBits_ = 0;  // Bits of a pixel that belong to no colour: full opacity on a 32-bit visual.
    Colormap colormap_ = 0;
    ::Window utilityWindow_ = 0;
    GC gc_ = nullptr;
    std::array<Atom, static_cast<std::size_t>(X11Atom::Count)> atoms_{};
    Time lastTime_ = CurrentTime;
    Time userTime_ = 0;
};

}  // namespace platform
