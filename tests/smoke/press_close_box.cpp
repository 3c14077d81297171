// Tells a window of an X server what a window manager tells it when its close box is pressed.
// Usage: pressclosebox WINDOW, the number as xdotool prints it.

#include <X11/Xlib.h>

#include <cstdlib>

int main(int argc, char** argv) {
    Display* display = argc == 2 ? XOpenDisplay(nullptr) : nullptr;
    if (display == nullptr) {
        return 2;
    }
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = std::strtoul(argv[1], nullptr, 10);
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
    XCloseDisplay(display);
}
