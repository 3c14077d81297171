// An X11 display that outlives its server: the call in which the connection breaks is abandoned, and from then on every
// call does nothing. What the broken connection holds is never freed, for freeing would ask the server.
#pragma once

#include "platform/display/x11_display.h"

#include <memory>

namespace platform {

class X11Survivor final : public Display {
public:
    explicit X11Survivor(std::unique_ptr<X11Connection> connection);
    ~X11Survivor() override;
    X11Survivor(const X11Survivor&) = delete;
    X11Survivor& operator=(const X11Survivor&) = delete;

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
    bool isLost() const override { return lost_; }
    SIZE screenSize() const override;
    int dotsPerInch() const override { return dotsPerInch_; }
    std::vector<RECT> monitors() const override;
    RECT workArea(const RECT& monitor) const override;
    POINT cursorPosition() const override;
    void beep() override;
    void writeClipboard(const std::string& text) override;
    bool readClipboard(std::string& text) override;
    bool clipboardHasText() override;
    void writePrimary(const std::string& text) override;
    bool readPrimary(std::string& text) override;

private:
    template <typename Call>
    void attempt(Call call) const;

    std::unique_ptr<X11Display> display_;  // Null when the connection broke while the display was made.
    mutable SIZE screenSize_{};            // As it was last known.
    int dotsPerInch_ = 0;
    mutable bool lost_ = false;
};

}  // namespace platform
