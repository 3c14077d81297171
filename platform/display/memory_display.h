// The display without a screen: windows are remembered, nothing is shown, and input comes from whoever holds the
// object. Deliberately missing: other programs. Focus moves only when the window room asks, the clipboard is a string.
#pragma once

#include "platform/display/display.h"

#include <chrono>
#include <deque>
#include <functional>
#include <vector>

namespace platform {

class MemoryDisplay final : public Display {
public:
    static constexpr SIZE kScreen = {1280, 1024};

    // What is known of a window; `presented` bounds what was shown since the last call of takePresented.
    struct Window {
        DisplayWindowInfo info;
        bool visible = false;
        bool topmost = false;
        const Surface* surface = nullptr;
        RECT presented{};
    };

    void createWindow(const DisplayWindowInfo& info) override;
    void destroyWindow(HWND window) override;
    void show(HWND window, bool visible) override;
    void setTitle(HWND window, const std::string& title) override;
    void setRect(HWND window, const RECT& client) override;
    void raise(HWND window) override;
    void setTopmost(HWND window, bool topmost) override;
    void focus(HWND window) override;
    void grabMouse(HWND popup) override { grabbed_ = popup; }
    void present(HWND window, const Surface& surface, const RECT& rect) override;
    void setCursor(HCURSOR cursor) override { cursor_ = cursor; }
    void setCaretRect(HWND window, const RECT& rect) override;
    int pump(InputSink& sink, int timeoutMs) override;
    SIZE screenSize() const override;
    std::vector<RECT> monitors() const override { return monitors_; }
    POINT cursorPosition() const override { return pointer_; }
    void beep() override { ++beeps_; }
    void writeClipboard(const std::string& text) override { clipboard_ = text; }
    bool readClipboard(std::string& text) override;
    bool clipboardHasText() override { return !clipboard_.empty(); }
    void writePrimary(const std::string& text) override { primary_ = text; }
    bool readPrimary(std::string& text) override;

    // The user's side. Events wait for the next pump. `modifiers` are the bits of InputSink::modifiers. The mouse acts
    // at a point of the screen, on the topmost window there, else the one that holds the grab. Without a grab
    // the window keeps the mouse while a button is held. Elsewhere nothing happens.
    void injectMouse(InputSink::Mouse what, int button, POINT screen, unsigned modifiers = 0);
    void injectWheel(int delta, POINT screen);
    void injectKey(int virtualKey, bool down, const std::string& text, unsigned modifiers = 0);
    void injectClose(HWND window);
    void injectMove(HWND window, POINT clientOrigin);
    void injectMonitors(const std::vector<RECT>& monitors);

    // Null for an unknown window.
    const Window* find(HWND window) const;
    RECT takePresented(HWND window);
    HWND focused() const { return focused_; }
    HCURSOR cursor() const { return cursor_; }
    RECT caretRect() const { return caretRect_; }
    int beeps() const { return beeps_; }

private:
    using Event = std::function<void(InputSink&)>;

    Window* entryOf(HWND window);
    HWND windowAt(POINT screen) const;
    // The window that gets a mouse event at this point of the screen, and the point in its client area.
    HWND mouseTarget(POINT screen, POINT& client) const;
    int reportFocus(InputSink& sink);

    std::vector<Window> windows_;  // From the bottom to the top of the screen.
    std::deque<Event> events_;
    HWND focused_ = nullptr;
    HWND reportedFocus_ = nullptr;  // What the sink knows.
    HWND grabbed_ = nullptr;
    HWND pressed_ = nullptr;  // Gets the mouse while a button is held.
    HCURSOR cursor_ = nullptr;
    POINT pointer_{};
    RECT caretRect_{};
    int beeps_ = 0;
    std::vector<RECT> monitors_ = {{0, 0, kScreen.cx, kScreen.cy}};
    std::string clipboard_;
    std::string primary_;
};

}  // namespace platform
