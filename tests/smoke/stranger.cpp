// Another program at the same X server, which does to windows what any program may.
// Usage: stranger close WINDOW     tells the window what a window manager tells it when its close box is pressed
//        stranger destroy WINDOW   destroys it
//        stranger litter COUNT     sends so many events without sense to each window there is, always the same ones
// WINDOW is the number as xdotool prints it.

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

void pressCloseBox(Display* display, Window window) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, window, False, NoEventMask, &event);
}

std::vector<Window> allWindows(Display* display) {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    std::vector<Window> windows(children, children + count);
    XFree(children);
    return windows;
}

// Anything but what a person could have done: no key of the keyboard, no button, no close box.
XEvent makeLitter(Display* display, Window window, std::mt19937& random) {
    const Atom closeBox = XInternAtom(display, "WM_DELETE_WINDOW", False);
    const std::vector<unsigned long> numbers = {0, 1, 8, 32, 300, 30000, 65535, window, 0xFFFFFFFF, random()};
    const auto number = [&] { return numbers[random() % numbers.size()]; };
    XEvent event{};
    for (long& part : event.pad) {
        part = static_cast<long>(number());
    }
    event.type = static_cast<int>(KeyPress + random() % (MappingNotify - KeyPress + 1));
    event.xany.window = window;
    if (event.type == KeyPress || event.type == KeyRelease) {
        event.xkey.keycode = static_cast<unsigned>(random() % 8);
    } else if (event.type == ButtonPress || event.type == ButtonRelease) {
        event.xbutton.button = static_cast<unsigned>(random() % 2 == 0 ? 0 : 6 + random() % 250);
    } else if (event.type == ConfigureNotify) {
        event.xconfigure.window = window;
    } else if (event.type == ClientMessage) {
        event.xclient.message_type = 1 + random() % 500;
        event.xclient.format = 8 << random() % 3;
        event.xclient.data.l[0] = static_cast<long>(random() % 500);
        if (static_cast<Atom>(event.xclient.data.l[0]) == closeBox) {
            event.xclient.data.l[0] = 0;
        }
    } else if (event.type == SelectionRequest || event.type == SelectionNotify || event.type == PropertyNotify) {
        for (std::size_t i = 5; i < 9; ++i) {
            event.pad[i] = static_cast<long>(random() % 500);
        }
    }
    return event;
}

int passOver(Display*, XErrorEvent*) {
    return 0;
}

void litter(Display* display, int count) {
    std::mt19937 random(1);
    XSetErrorHandler(passOver);
    for (int i = 0; i < count; ++i) {
        if (i % 1000 == 0) {
            XSync(display, False);  // The receiver is to have time.
        }
        for (const Window window : allWindows(display)) {
            XEvent event = makeLitter(display, window, random);
            XSendEvent(display, window, False, NoEventMask, &event);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    Display* display = argc == 3 ? XOpenDisplay(nullptr) : nullptr;
    if (display == nullptr) {
        return 2;
    }
    const std::string what = argv[1];
    const unsigned long number = std::strtoul(argv[2], nullptr, 10);
    if (what == "close") {
        pressCloseBox(display, number);
    } else if (what == "destroy") {
        XDestroyWindow(display, number);
    } else {
        litter(display, static_cast<int>(number));
    }
    XCloseDisplay(display);
}
