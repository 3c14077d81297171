// The monitors, as the server tells them by the Xinerama requests, which every server with several monitors answers.
// The two requests are written out here; a library of its own for them would have to be there wherever the program
// runs.
#include "platform/display/rect_math.h"
#include "platform/display/x11_manager.h"

// The protocol has another type of that name.
#define BOOL ProtocolBool
#include <X11/Xlibint.h>
#include <X11/extensions/panoramiXproto.h>
#undef BOOL
#undef max
#undef min

namespace platform {
namespace {

constexpr std::uint32_t kMost = 64;  // A server that says more is not believed.

// False for an answer that is no answer.
bool readMonitors(::Display* dpy, int opcode, std::vector<RECT>& monitors) {
    xXineramaQueryScreensReq* req = nullptr;
    xXineramaQueryScreensReply reply{};
    monitors.reserve(kMost);  // Nothing may throw in the middle of an answer.
    LockDisplay(dpy);
    GetReq(XineramaQueryScreens, req);
    req->reqType = static_cast<CARD8>(opcode);
    req->panoramiXReqType = X_XineramaQueryScreens;
    const bool answered = _XReply(dpy, reinterpret_cast<xReply*>(&reply), 0, xFalse) != 0;
    const bool complete = answered && reply.number <= kMost && reply.length == 2 * reply.number;
    for (CARD32 i = 0; complete && i < reply.number; ++i) {
        xXineramaScreenInfo info{};
        _XRead(dpy, reinterpret_cast<char*>(&info), sz_XineramaScreenInfo);
        monitors.push_back({info.x_org, info.y_org, info.x_org + info.width, info.y_org + info.height});
    }
    if (answered && !complete) {
        _XEatDataWords(dpy, reply.length);
    }
    UnlockDisplay(dpy);
    SyncHandle();
    return complete;
}

}  // namespace

std::vector<RECT> X11Manager::monitors() const {
    const SIZE size = connection_.screenSize();
    const RECT screen = {0, 0, size.cx, size.cy};
    std::vector<RECT> told;
    if (xinerama_ == 0 || !readMonitors(connection_.display(), xinerama_, told)) {
        return {screen};
    }
    std::vector<RECT> monitors;
    for (const RECT& monitor : told) {
        const RECT seen = intersectionOf(monitor, screen);
        if (!isEmptyRect(seen)) {
            monitors.push_back(seen);
        }
    }
    return monitors.empty() ? std::vector<RECT>{screen} : monitors;
}

}  // namespace platform
