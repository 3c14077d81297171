// The display's events: input is kept until a message is asked for, the rest is carried out when the display has
// delivered all it had.
#include "platform/window/input_queue.h"

#include "platform/window/activation.h"
#include "platform/window/display_choice.h"
#include "platform/window/focus.h"
#include "platform/window/input_event.h"
#include "platform/window/keyboard.h"
#include "platform/window/mouse.h"
#include "platform/window/position.h"
#include "platform/window/top_level.h"
#include "platform/window/window.h"

#include <deque>
#include <utility>

namespace platform {
namespace {

struct ServerEvent {
    enum class Kind { FocusIn, FocusOut, Close, Moved, Resized, Monitors, Destroyed };
    Kind kind;
    HWND top;
    POINT value;  // The new origin, or the new size.
};

class InputQueue final : public InputSink {
public:
    void mouse(HWND top, Mouse what, int button, POINT at, DWORD timeMs) override {
        InputEvent event = makeMouse(top, InputEvent::Kind::Mouse, at, timeMs);
        event.what = what;
        event.code = button;
        // Only the last of several moves in a row matters.
        const bool follows = what == Mouse::Move && !events_.empty() && events_.back().kind == event.kind &&
                             events_.back().what == Mouse::Move && events_.back().top == top;
        if (follows) {
            events_.back() = std::move(event);
        } else {
            events_.push_back(std::move(event));
        }
    }

    void wheel(HWND top, int delta, POINT at, DWORD timeMs) override {
        InputEvent event = makeMouse(top, InputEvent::Kind::Wheel, at, timeMs);
        event.code = delta;
        events_.push_back(std::move(event));
    }

    void key(int virtualKey, bool down, bool repeat, const std::string& text, DWORD timeMs) override {
        InputEvent event;
        event.kind = InputEvent::Kind::Key;
        event.time = timeMs;
        event.down = down;
        event.repeat = repeat;
        takeModifiers(event);
        if (virtualKey > 0 && virtualKey < 256) {
            event.code = virtualKey;
            event.text = text;
            events_.push_back(std::move(event));
            return;
        }
        event.kind = InputEvent::Kind::Character;
        for (const char character : down ? text : std::string()) {
            event.code = static_cast<unsigned char>(character);
            events_.push_back(event);
        }
    }

    void modifiers(unsigned state) override {
        modifiers_ = state;
        modifiersKnown_ = true;
    }

    void closeRequested(HWND top) override { server_.push_back({ServerEvent::Kind::Close, top, {}}); }
    // Only where the focus is in the end matters.
    void focusIn(HWND top) override { replaceFocusEvent({ServerEvent::Kind::FocusIn, top, {}}); }
    void focusOut(HWND top) override { replaceFocusEvent({ServerEvent::Kind::FocusOut, top, {}}); }
    void moved(HWND top, POINT clientOrigin) override {
        server_.push_back({ServerEvent::Kind::Moved, top, clientOrigin});
    }
    void resized(HWND top, SIZE client) override {
        server_.push_back({ServerEvent::Kind::Resized, top, {client.cx, client.cy}});
    }
    void monitorsChanged() override { server_.push_back({ServerEvent::Kind::Monitors, nullptr, {}}); }
    void destroyed(HWND top) override { server_.push_back({ServerEvent::Kind::Destroyed, top, {}}); }

    bool takeServerEvent(ServerEvent& event) {
        if (server_.empty()) {
            return false;
        }
        event = server_.front();
        server_.pop_front();
        return true;
    }

    bool take(MSG& message, const MessageFilter& filter, bool remove);
    void dropOf(HWND top) {
        std::erase_if(events_, [top](const InputEvent& event) { return top && event.top == top; });
        std::erase_if(server_, [top](const ServerEvent& event) { return event.top == top; });
    }

private:
    InputEvent makeMouse(HWND top, InputEvent::Kind kind, POINT at, DWORD timeMs) {
        InputEvent event;
        event.kind = kind;
        event.top = top;
        event.time = timeMs;
        if (const Window* window = findWindow(top)) {
            const POINT origin = windowOrigin(*window);
            event.at = {at.x + origin.x, at.y + origin.y};
        }
        takeModifiers(event);
        return event;
    }

    void takeModifiers(InputEvent& event) {
        event.modifiersKnown = std::exchange(modifiersKnown_, false);
        event.modifiers = modifiers_;
    }

    void replaceFocusEvent(const ServerEvent& event) {
        std::erase_if(server_, [](const ServerEvent& earlier) {
            return earlier.kind == ServerEvent::Kind::FocusIn || earlier.kind == ServerEvent::Kind::FocusOut;
        });
        server_.push_back(event);
    }

    bool takeKey(std::size_t index, MSG& message, const MessageFilter& filter, bool remove);

    std::deque<InputEvent> events_;
    std::deque<ServerEvent> server_;
    unsigned modifiers_ = 0;
    bool modifiersKnown_ = false;
};

InputQueue& input() {
    static InputQueue only;
    return only;
}

bool InputQueue::takeKey(std::size_t index, MSG& message, const MessageFilter& filter, bool remove) {
    const InputEvent event = events_[index];
    if (event.modifiersKnown && remove) {
        applyModifiers(event);
    }
    const bool receiver = makeKeyMessage(event, message);
    if (receiver && !filter.accepts(message.hwnd, message.message)) {
        return false;
    }
    if (remove || !receiver) {
        events_.erase(events_.begin() + static_cast<std::ptrdiff_t>(index));
    }
    if (remove) {
        keyMessageTaken(event, message);
    }
    return receiver;
}

bool InputQueue::take(MSG& message, const MessageFilter& filter, bool remove) {
    std::size_t index = 0;
    while (index < events_.size()) {
        const std::size_t before = events_.size();
        if (events_[index].kind == InputEvent::Kind::Key || events_[index].kind == InputEvent::Kind::Character) {
            if (takeKey(index, message, filter, remove)) {
                return true;
            }
            index += events_.size() == before ? 1 : 0;
            continue;
        }
        // The messages that go along with a click may run a loop of their own, so the event leaves the queue first.
        const InputEvent event = events_[index];
        const POINT oldPointer = lastPointerPosition();
        setLastPointerPosition(event.at);
        if (remove) {
            events_.erase(events_.begin() + static_cast<std::ptrdiff_t>(index));
        }
        const MouseOutcome outcome = makeMouseMessage(event, filter, remove, message);
        if (outcome == MouseOutcome::Message) {
            return true;
        }
        if (outcome == MouseOutcome::Filtered) {
            setLastPointerPosition(oldPointer);
            if (remove) {
                events_.insert(events_.begin() + static_cast<std::ptrdiff_t>(index), event);
            }
            ++index;
        } else if (!remove) {
            events_.erase(events_.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    return false;
}

void onServerFocus(HWND handle) {
    Window* top = findWindow(handle);
    if (!top || activeWindow() == handle) {
        return;
    }
    // The server may give the focus to a window that a modal one has disabled.
    const HWND popup = top->has(WS_DISABLED) ? shownPopupOf(handle) : handle;
    if (popup != activeWindow()) {
        activate(popup, ActivationCause::Server);
    }
    if (popup != handle) {
        if (const Window* shown = findWindow(popup)) {
            focusOnDisplay(*shown);
        }
    }
}

// What nobody can see or close any more must not keep a modal loop running: the window goes with all that it owns, as
// if its program had destroyed it, and the loop that waits for a message looks whether it still has a window.
// The focus leaves it without a message, which would have a page check what was typed, with a box that nobody asked
// for.
void destroyedByServer(HWND top) {
    for (const HWND handle : childHandles(desktop())) {
        const Window* window = findWindow(handle);
        for (const Window* up = window; up; up = findWindow(up->owner)) {
            if (up->handle == top) {
                dropFocusOf(*window);
            }
        }
    }
    DestroyWindow(top);
    post(nullptr, WM_NULL, 0, 0);
}

void onMonitorsChanged() {
    const SIZE screen = display().screenSize();
    constexpr WPARAM kBitsPerPixel = 32;
    for (const HWND top : childHandles(desktop())) {
        if (IsWindow(top)) {
            SendMessageA(top, WM_DISPLAYCHANGE, kBitsPerPixel, MAKELPARAM(screen.cx, screen.cy));
        }
    }
}

void carryOut(const ServerEvent& event) {
    switch (event.kind) {
        case ServerEvent::Kind::FocusIn:
            if (!isFocusReportOutdated(event.top, true)) {
                onServerFocus(event.top);
            }
            break;
        case ServerEvent::Kind::FocusOut:
            if (!isFocusReportOutdated(event.top, false) && activeWindow() == event.top) {
                activate(nullptr, ActivationCause::Server);
            }
            break;
        case ServerEvent::Kind::Close:
            if (IsWindowEnabled(event.top)) {
                PostMessageA(event.top, WM_SYSCOMMAND, SC_CLOSE, 0);
            }
            break;
        case ServerEvent::Kind::Moved:
            movedByServer(event.top, event.value);
            break;
        case ServerEvent::Kind::Resized:
            resizedByServer(event.top, {event.value.x, event.value.y});
            break;
        case ServerEvent::Kind::Monitors:
            onMonitorsChanged();
            break;
        case ServerEvent::Kind::Destroyed:
            destroyedByServer(event.top);
            break;
    }
}

}  // namespace

void pumpDisplay(int timeoutMs) {
    display().pump(input(), timeoutMs);
    ServerEvent event;
    while (input().takeServerEvent(event)) {
        carryOut(event);
    }
}

bool takeInput(MSG& message, const MessageFilter& filter, bool remove) {
    return input().take(message, filter, remove);
}

void dropInputOf(HWND top) {
    input().dropOf(top);
}

}  // namespace platform
