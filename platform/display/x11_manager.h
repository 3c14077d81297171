// What is asked of and told to the window manager beside the hints of single windows. Without one there are no frames,
// and the whole screen is free.
#pragma once

#include "platform/display/x11_connection.h"

#include <string>

namespace platform {

class X11Manager {
public:
    explicit X11Manager(X11Connection& connection);

    // Whether windows get frames, also from a window manager too old to announce itself.
    bool putsFrames() const;
    // Where client areas may lie so that their frames are seen: the monitor without panels and without the frames'
    // width. `framed` is a window that may have its frame already, 0 for none.
    RECT workArea(::Window framed, const RECT& monitor) const;
    // Never empty; the first one first.
    std::vector<RECT> monitors() const;
    // A place for a new window, where no other one stands yet. For want of a window manager that would choose one.
    POINT freePlace(POINT wanted) const;

    // The launcher that started the program waits for its first window: that one names the start, and the waiting ends
    // when it is shown.
    void nameStart(::Window first);
    void endStart();

private:
    RECT frameExtents(::Window framed) const;
    void tellLaunchers(const std::string& message);

    X11Connection& connection_;
    int xinerama_ = 0;  // The number of its requests; 0 where the server has none.
    std::string startId_;
    bool startNamed_ = false;
};

}  // namespace platform
