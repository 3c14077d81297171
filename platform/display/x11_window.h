// One top-level window on the X server: its hints for the window manager, its place, and showing pixels in it.
#pragma once

#include "platform/display/display.h"
#include "platform/display/x11_connection.h"

#include <vector>

namespace platform {

class X11Window {
public:
    // `owner` is the X window that this one is transient for, or 0.
    X11Window(X11Connection& connection, const DisplayWindowInfo& info, ::Window owner);
    X11Window(const X11Window&) = delete;
    X11Window& operator=(const X11Window&) = delete;

    ::Window id() const { return id_; }
    HWND window() const { return info_.window; }
    bool isPopup() const { return info_.kind == DisplayWindowInfo::Kind::Popup; }
    const RECT& rect() const { return rect_; }
    // True between the server's notices that the window is shown and that it is not.
    bool isMapped() const { return mapped_; }

    // Makes the window on the server, anew where another program destroyed it; it is shown again if it was.
    void create();
    // Takes the window from the server; the connection's end does so too.
    void destroy();
    void show(bool visible);
    void setTitle(const std::string& title);
    void setRect(const RECT& client);
    void setTopmost(bool topmost);

    // Notes the part to be sent with the next flush; the surface is read then and at every exposure.
    void present(const Surface& surface, const RECT& rect);
    void flushPresents();

    // The window manager chose the place; `locate` asks for it.
    bool isPlacedByOthers() const { return !info_.positioned && !isPopup(); }
    bool locate();
    // Tells the window manager when the person last did something here, which decides who may take the focus.
    void writeUserTime();

    void onMapNotify() { mapped_ = true; }
    void onUnmapNotify();
    void onReparentNotify(const XReparentEvent& event);
    void onExpose(const XExposeEvent& event);
    // Takes over the place that the server reports; false when the report is older than the last own change.
    bool onConfigureNotify(const XConfigureEvent& event);

private:
    void setWindowManagerHints();
    void setDecorationHints();
    void setSizeHints();
    void setState(X11Atom state, bool on);
    void writeState();
    SIZE believedSize(const XConfigureEvent& event) const;
    void putImage(const RECT& rect);

    X11Connection& connection_;
    ::Window id_ = 0;
    DisplayWindowInfo info_;  // With the title and the place that the program gave last.
    ::Window owner_;
    RECT rect_;
    bool modal_ = false;
    bool topmost_ = false;
    bool shown_ = false;  // Asked for, whether or not the server has done it.
    bool mapped_ = false;
    bool exposed_ = false;        // Before the first exposure the server keeps no pixels.
    bool reparented_ = false;     // A window manager has put a frame around it.
    unsigned long placedBy_ = 0;  // Serial number of the last own request for a place.
    const Surface* surface_ = nullptr;
    std::vector<RECT> pending_;  // Disjoint parts that wait for a flush.
};

}  // namespace platform
