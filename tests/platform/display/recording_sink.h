// An input sink that writes down what it is told, one text an event.
#pragma once

#include "platform/display/display.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace platform {

class RecordingSink final : public InputSink {
public:
    void mouse(HWND top, Mouse what, int button, POINT at, DWORD) override {
        const char* const names[] = {"move", "down", "up"};
        add("%s %d button %d at %d,%d", names[static_cast<int>(what)], number(top), button, at.x, at.y);
    }
    void wheel(HWND top, int delta, POINT at, DWORD) override {
        add("wheel %d by %d at %d,%d", number(top), delta, at.x, at.y);
    }
    void key(int virtualKey, bool down, bool repeat, const std::string& text, DWORD) override {
        add("key %02x %s%s '%s'", virtualKey, down ? "down" : "up", repeat ? " again" : "", text.c_str());
    }
    void modifiers(unsigned state) override {
        if (state != modifiers_) {
            add("modifiers %02x", state);
        }
        modifiers_ = state;
    }
    void closeRequested(HWND top) override { add("close %d", number(top)); }
    void focusIn(HWND top) override { add("focus in %d", number(top)); }
    void focusOut(HWND top) override { add("focus out %d", number(top)); }
    void moved(HWND top, POINT origin) override { add("moved %d to %d,%d", number(top), origin.x, origin.y); }
    void resized(HWND top, SIZE size) override { add("resized %d to %d,%d", number(top), size.cx, size.cy); }
    void monitorsChanged() override { add("monitors"); }
    void destroyed(HWND top) override { add("destroyed %d", number(top)); }

    std::vector<std::string> take() { return std::exchange(events_, {}); }

private:
    static int number(HWND window) { return static_cast<int>(reinterpret_cast<std::intptr_t>(window)); }

    template <typename... Values>
    void add(const char* format, Values... values) {
        char text[128];
        std::snprintf(text, sizeof text, format, values...);
        events_.emplace_back(text);
    }

    std::vector<std::string> events_;
    unsigned modifiers_ = 0;
};

using Events = std::vector<std::string>;

inline HWND windowNumber(int number) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(number));
}

}  // namespace platform
