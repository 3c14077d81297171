// The display of an X server: dispatches its events to windows, keyboard, clipboard and the window room.
#pragma once

#include "platform/display/display.h"
#include "platform/display/x11_clipboard.h"
#include "platform/display/x11_connection.h"
#include "platform/display/x11_keyboard.h"
#include "platform/display/x11_manager.h"
#include "platform/display/x11_window.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

class X11Display final : public Display {
public:
    explicit X11Display(std::unique_ptr<X11Connection> connection);

    void createWindow(const DisplayWindowInfo& info) override;
    void destroyWindow(HWND window) override;
    void show(HWND window, bool visible) override;
    bool isPlaced(HWND window) const override;
    void setTitle(HWND window, const std::string& title) override;
    void setRect(HWND window, const RECT& client) override;
    void raise(HWND window) override;
    void setTopmost(HWND window, bool topmost) override;
    void focus(HWND window) override;
    void grabMouse(HWND popup) override;
    void present(HWND window, const Surface& surface, const RECT& rect) override;
    void setCursor(HCURSOR cursor) override;
    void setCaretRect(HWND window, const RECT& rect) override;
    int pump(InputSink& sink, int timeoutMs) override;
    SIZE screenSize() const override;
    int dotsPerInch() const override;
    std::vector<RECT> monitors() const override { return manager_.monitors(); }
    RECT workArea(const RECT& monitor) const override;
    POINT cursorPosition() const override;
    void beep() override;
    void writeClipboard(const std::string& text) override { clipboard_.write(text); }
    bool readClipboard(std::string& text) override { return clipboard_.read(text); }
    bool clipboardHasText() override { return clipboard_.hasText(); }
    void writePrimary(const std::string& text) override { primary_.write(text); }
    bool readPrimary(std::string& text) override { return primary_.read(text); }

private:
    using Clock = std::chrono::steady_clock;

    X11Window* find(HWND window) const;
    X11Window* findById(::Window id) const;
    ::Cursor cursorOf(HCURSOR cursor);

    // Waits for the server, or for a time to come; the largest one never does.
    void wait(Clock::time_point until) const;
    // Delivers what has arrived and answers how many events the sink got.
    int drain(InputSink& sink);
    bool isBelievable(const XEvent& event) const;
    int dispatch(XEvent& event, InputSink& sink);
    // Events of one window, by kind; each answers how many events the sink got.
    int dispatchToWindow(XEvent& event, X11Window& window, InputSink& sink);
    int onMouseButton(const XButtonEvent& event, HWND window, InputSink& sink);
    int onMouseMove(const XMotionEvent& event, HWND window, InputSink& sink);
    int onClientMessage(const XClientMessageEvent& event, X11Window& window, InputSink& sink);
    int onConfigureNotify(const XConfigureEvent& event, X11Window& window, InputSink& sink);
    void onFocusChange(const XFocusChangeEvent& event, X11Window& window);
    int onMapNotify(X11Window& window, InputSink& sink);
    int onDestroyNotify(X11Window& window, InputSink& sink);
    int reportFocus(InputSink& sink);
    void takeFocus(const X11Window& window);
    void takeGrab(const X11Window& window);

    std::unique_ptr<X11Connection> connection_;
    X11Manager manager_;
    X11Keyboard keyboard_;
    X11Clipboard clipboard_;
    X11Clipboard primary_;
    std::vector<std::unique_ptr<X11Window>> windows_;
    HCURSOR cursor_ = nullptr;
    ::Cursor arrow_ = 0;
    ::Cursor textCursor_ = 0;
    HWND grabbed_ = nullptr;
    bool textFollows_ = false;  // The input method has just put a key event with its text in front of the queue.

    HWND serverFocus_ = nullptr;      // As the server's events say.
    HWND reportedFocus_ = nullptr;    // As the sink knows.
    HWND wantedFocus_ = nullptr;      // Asked for, and not yet given or given up.
    unsigned long focusAskedBy_ = 0;  // Serial number of the last request for the focus; older notices are stale.
    unsigned long focusNotedBy_ = 0;  // Serial number of the last notice.
    std::optional<Clock::time_point> focusLossSettles_;  // When a loss of the focus is to be believed.
};

}  // namespace platform
