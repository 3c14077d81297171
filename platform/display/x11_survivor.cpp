// The survivor's calls, and how it comes to be.
#include "platform/display/x11_survivor.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace platform {
namespace {

// Keeps the descriptors 0 to 2 taken while the connection is made. A host may have closed some of them, and what is
// printed to the standard streams would go to the server if the connection took their place. The host's descriptors are
// as they were afterwards.
class StandardDescriptors {
public:
    StandardDescriptors() {
        int descriptor = 0;
        while ((descriptor = open("/dev/null", O_RDWR | O_CLOEXEC)) >= 0 && descriptor <= STDERR_FILENO) {
            taken_.push_back(descriptor);
        }
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
    ~StandardDescriptors() {
        for (const int descriptor : taken_) {
            close(descriptor);
        }
    }
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;

private:
    std::vector<int> taken_;
};

volatile std::sig_atomic_t serverCalls = 0;
pthread_t serverThread{};

// A request that meets a server which has just gone raises a signal that ends the process by default. Within our own
// calls it does nothing, and the request fails; elsewhere it does what it does by default.
void onBrokenPipe(int) {
    if (serverCalls == 0 || pthread_equal(pthread_self(), serverThread) == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        std::raise(SIGPIPE);
    }
}

// A host that handles or ignores the signal keeps its way.
void surviveBrokenPipe() {
    struct sigaction action {};
    if (sigaction(SIGPIPE, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
        action.sa_handler = onBrokenPipe;
        action.sa_flags = SA_RESTART;
        sigaction(SIGPIPE, &action, nullptr);
    }
}

class ServerCall {
public:
    ServerCall() {
        serverThread = pthread_self();
        serverCalls = serverCalls + 1;
    }
    ~ServerCall() { serverCalls = serverCalls - 1; }
    ServerCall(const ServerCall&) = delete;
    ServerCall& operator=(const ServerCall&) = delete;
};

}  // namespace

template <typename Call>
void X11Survivor::attempt(Call call) const {
    if (lost_) {
        return;
    }
    try {
        const ServerCall inside;
        call();
    } catch (const X11ConnectionLost&) {
        lost_ = true;
    }
}

X11Survivor::X11Survivor(std::unique_ptr<X11Connection> connection) {
    attempt([&] {
        display_ = std::make_unique<X11Display>(std::move(connection));
        screenSize_ = display_->screenSize();
        dotsPerInch_ = display_->dotsPerInch();
    });
}

X11Survivor::~X11Survivor() {
    if (lost_) {
        static_cast<void>(display_.release());
    }
}

void X11Survivor::createWindow(const DisplayWindowInfo& info) {
    attempt([&] { display_->createWindow(info); });
}

void X11Survivor::destroyWindow(HWND window) {
    attempt([&] { display_->destroyWindow(window); });
}

void X11Survivor::show(HWND window, bool visible) {
    attempt([&] { display_->show(window, visible); });
}

bool X11Survivor::isPlaced(HWND window) const {
    bool placed = true;
    attempt([&] { placed = display_->isPlaced(window); });
    return placed;
}

void X11Survivor::setTitle(HWND window, const std::string& title) {
    attempt([&] { display_->setTitle(window, title); });
}

void X11Survivor::setRect(HWND window, const RECT& client) {
    attempt([&] { display_->setRect(window, client); });
}

void X11Survivor::raise(HWND window) {
    attempt([&] { display_->raise(window); });
}

void X11Survivor::setTopmost(HWND window, bool topmost) {
    attempt([&] { display_->setTopmost(window, topmost); });
}

void X11Survivor::focus(HWND window) {
    attempt([&] { display_->focus(window); });
}

void X11Survivor::grabMouse(HWND popup) {
    attempt([&] { display_->grabMouse(popup); });
}

void X11Survivor::present(HWND window, const Surface& surface, const RECT& rect) {
    attempt([&] { display_->present(window, surface, rect); });
}

void X11Survivor::setCursor(HCURSOR cursor) {
    attempt([&] { display_->setCursor(cursor); });
}

void X11Survivor::setCaretRect(HWND window, const RECT& rect) {
    attempt([&] { display_->setCaretRect(window, rect); });
}

int X11Survivor::pump(InputSink& sink, int timeoutMs) {
    int delivered = 0;
    attempt([&] { delivered = display_->pump(sink, timeoutMs); });
    return delivered;
}

SIZE X11Survivor::screenSize() const {
    attempt([&] { screenSize_ = display_->screenSize(); });
    return screenSize_;
}

std::vector<RECT> X11Survivor::monitors() const {
    std::vector<RECT> monitors = {{0, 0, screenSize_.cx, screenSize_.cy}};
    attempt([&] { monitors = display_->monitors(); });
    return monitors;
}

RECT X11Survivor::workArea(const RECT& monitor) const {
    RECT area = monitor;
    attempt([&] { area = display_->workArea(monitor); });
    return area;
}

POINT X11Survivor::cursorPosition() const {
    POINT position{};
    attempt([&] { position = display_->cursorPosition(); });
    return position;
}

void X11Survivor::beep() {
    attempt([&] { display_->beep(); });
}

void X11Survivor::writeClipboard(const std::string& text) {
    attempt([&] { display_->writeClipboard(text); });
}

bool X11Survivor::readClipboard(std::string& text) {
    bool found = false;
    attempt([&] { found = display_->readClipboard(text); });
    return found;
}

bool X11Survivor::clipboardHasText() {
    bool found = false;
    attempt([&] { found = display_->clipboardHasText(); });
    return found;
}

void X11Survivor::writePrimary(const std::string& text) {
    attempt([&] { display_->writePrimary(text); });
}

bool X11Survivor::readPrimary(std::string& text) {
    bool found = false;
    attempt([&] { found = display_->readPrimary(text); });
    return found;
}

std::unique_ptr<Display> openX11Display() {
    const StandardDescriptors kept;
    std::unique_ptr<X11Connection> connection;
    surviveBrokenPipe();
    try {
        const ServerCall inside;
        connection = X11Connection::open();
    } catch (const X11ConnectionLost&) {
        return nullptr;
    }
    return connection != nullptr ? std::make_unique<X11Survivor>(std::move(connection)) : nullptr;
}

}  // namespace platform
