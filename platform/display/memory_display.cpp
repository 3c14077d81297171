// Input waits in a queue until the window room pumps, as it would in a connection to a server.

#include "platform/display/memory_display.h"

#include "platform/display/rect_math.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace platform {
namespace {

DWORD nowMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace

void MemoryDisplay::createWindow(const DisplayWindowInfo& info) {
    Window window;
    window.info = info;
    windows_.push_back(std::move(window));
}

void MemoryDisplay::destroyWindow(HWND window) {
    std::erase_if(windows_, [window](const Window& entry) { return entry.info.window == window; });
    for (HWND* role : {&focused_, &reportedFocus_, &grabbed_, &pressed_}) {
        if (*role == window) {
            *role = nullptr;
        }
    }
}

void MemoryDisplay::show(HWND window, bool visible) {
    if (Window* entry = entryOf(window)) {
        entry->visible = visible;
        if (!visible && focused_ == window) {
            focused_ = nullptr;
        }
    }
    if (visible) {
        raise(window);
    }
}

void MemoryDisplay::setTitle(HWND window, const std::string& title) {
    if (Window* entry = entryOf(window)) {
        entry->info.title = title;
    }
}

void MemoryDisplay::setRect(HWND window, const RECT& client) {
    if (Window* entry = entryOf(window)) {
        entry->info.rect = client;
    }
}

void MemoryDisplay::raise(HWND window) {
    const auto isWindow = [window](const Window& entry) { return entry.info.window == window; };
    const auto found = std::find_if(windows_.begin(), windows_.end(), isWindow);
    if (found == windows_.end()) {
        return;
    }
    // Popups count as topmost: a drop-down list lies over everything.
    const auto isTopmost = [](const Window& entry) {
        return entry.topmost || entry.info.kind == DisplayWindowInfo::Kind::Popup;
    };
    const bool topmost = isTopmost(*found);
    std::rotate(found, found + 1, windows_.end());
    if (!topmost) {
        std::stable_partition(windows_.begin(), windows_.end(), [&](const Window& entry) { return !isTopmost(entry); });
    }
}

void MemoryDisplay::setTopmost(HWND window, bool topmost) {
    if (Window* entry = entryOf(window)) {
        entry->topmost = topmost;
    }
    raise(window);
}

void MemoryDisplay::focus(HWND window) {
    const Window* entry = find(window);
    if (entry != nullptr && entry->visible) {
        focused_ = window;
    }
}

void MemoryDisplay::present(HWND window, const Surface& surface, const RECT& rect) {
    Window* entry = entryOf(window);
    if (entry == nullptr) {
        return;
    }
    entry->surface = &surface;
    const RECT whole = {0, 0, surface.width(), surface.height()};
    entry->presented = boundsOf(entry->presented, intersectionOf(rect, whole));
}

void MemoryDisplay::setCaretRect(HWND, const RECT& rect) {
    caretRect_ = rect;
}

int MemoryDisplay::pump(InputSink& sink, int timeoutMs) {
    int delivered = reportFocus(sink);
    // Taken from the queue one by one, since the sink may pump again or destroy windows.
    while (!events_.empty()) {
        const Event event = std::move(events_.front());
        events_.pop_front();
        event(sink);
        ++delivered;
    }
    if (delivered > 0 || timeoutMs == 0) {
        return delivered;
    }
    // Nobody but this thread can add an event, so a wait passes in full; one without limit has no end to speak of.
    std::this_thread::sleep_for(timeoutMs > 0 ? std::chrono::milliseconds(timeoutMs) : std::chrono::hours(24));
    return 0;
}

int MemoryDisplay::reportFocus(InputSink& sink) {
    if (focused_ == reportedFocus_) {
        return 0;
    }
    const HWND lost = reportedFocus_;
    reportedFocus_ = focused_;
    if (lost != nullptr) {
        sink.focusOut(lost);
    }
    if (reportedFocus_ != nullptr) {
        sink.focusIn(reportedFocus_);
    }
    return 1;
}

bool MemoryDisplay::readClipboard(std::string& text) {
    if (clipboard_.empty()) {
        return false;
    }
    text = clipboard_;
    return true;
}

bool MemoryDisplay::readPrimary(std::string& text) {
    text = primary_;
    return !text.empty();
}

void MemoryDisplay::injectMouse(InputSink::Mouse what, int button, POINT screen, unsigned modifiers) {
    events_.push_back([=, this](InputSink& sink) {
        pointer_ = screen;
        POINT client{};
        const HWND target = mouseTarget(screen, client);
        if (what == InputSink::Mouse::Down) {
            pressed_ = target;
        } else if (what == InputSink::Mouse::Up) {
            pressed_ = nullptr;
        }
        if (target == nullptr) {
            return;
        }
        sink.modifiers(modifiers);
        sink.mouse(target, what, button, client, nowMs());
    });
}

void MemoryDisplay::injectWheel(int delta, POINT screen) {
    events_.push_back([=, this](InputSink& sink) {
        POINT client{};
        if (const HWND target = mouseTarget(screen, client)) {
            sink.wheel(target, delta, client, nowMs());
        }
    });
}

void MemoryDisplay::injectKey(int virtualKey, bool down, const std::string& text, unsigned modifiers) {
    events_.push_back([=](InputSink& sink) {
        sink.modifiers(modifiers);
        sink.key(virtualKey, down, false, text, nowMs());
    });
}

void MemoryDisplay::injectClose(HWND window) {
    events_.push_back([=, this](InputSink& sink) {
        if (find(window) != nullptr) {
            sink.closeRequested(window);
        }
    });
}

SIZE MemoryDisplay::screenSize() const {
    RECT all{};
    for (const RECT& monitor : monitors_) {
        all = boundsOf(all, monitor);
    }
    return {all.right, all.bottom};
}

void MemoryDisplay::injectMonitors(const std::vector<RECT>& monitors) {
    events_.push_back([=, this](InputSink& sink) {
        monitors_ = monitors;
        sink.monitorsChanged();
    });
}

void MemoryDisplay::injectMove(HWND window, POINT clientOrigin) {
    events_.push_back([=, this](InputSink& sink) {
        Window* entry = entryOf(window);
        if (entry == nullptr) {
            return;
        }
        RECT& rect = entry->info.rect;
        rect = {clientOrigin.x, clientOrigin.y, clientOrigin.x + rect.right - rect.left,
                clientOrigin.y + rect.bottom - rect.top};
        sink.moved(window, clientOrigin);
    });
}

const MemoryDisplay::Window* MemoryDisplay::find(HWND window) const {
    const auto isWindow = [window](const Window& entry) { return entry.info.window == window; };
    const auto found = std::find_if(windows_.begin(), windows_.end(), isWindow);
    return found != windows_.end() ? &*found : nullptr;
}

MemoryDisplay::Window* MemoryDisplay::entryOf(HWND window) {
    return const_cast<Window*>(find(window));
}

RECT MemoryDisplay::takePresented(HWND window) {
    Window* entry = entryOf(window);
    return entry != nullptr ? std::exchange(entry->presented, RECT{}) : RECT{};
}

HWND MemoryDisplay::windowAt(POINT screen) const {
    const auto isHit = [screen](const Window& entry) { return entry.visible && hasPoint(entry.info.rect, screen); };
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(), isHit);
    return found != windows_.rend() ? found->info.window : nullptr;
}

HWND MemoryDisplay::mouseTarget(POINT screen, POINT& client) const {
    HWND target = grabbed_ == nullptr && pressed_ != nullptr ? pressed_ : windowAt(screen);
    if (target == nullptr) {
        target = grabbed_;
    }
    if (const Window* entry = find(target)) {
        client = {screen.x - entry->info.rect.left, screen.y - entry->info.rect.top};
    }
    return target;
}

std::unique_ptr<Display> openMemoryDisplay() {
    return std::make_unique<MemoryDisplay>();
}

}  // namespace platform
