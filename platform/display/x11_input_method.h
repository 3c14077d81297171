// The input method (dead keys, compositions, other programs' input methods) and one input context for each window.
#pragma once

#include <windows.h>

#include <X11/Xlib.h>

#include <string>
#include <vector>

namespace platform {

class X11InputMethod {
public:
    // Without an input method at all, key events give the text of their symbols.
    explicit X11InputMethod(::Display* display);
    ~X11InputMethod();
    X11InputMethod(const X11InputMethod&) = delete;
    X11InputMethod& operator=(const X11InputMethod&) = delete;

    void attach(::Window window);
    void detach(::Window window);
    void focusIn(::Window window);
    void focusOut(::Window window);
    void setCaretRect(::Window window, const RECT& rect);

    // The text that a key press produces, in code page 1252, and its symbol.
    std::string lookup(XKeyEvent& event, KeySym& symbol);

private:
    struct Context {
        ::Window window;
        XIC handle;
    };

    void open();
    void close();
    // Picks how the method shows a composition: at the caret where it can, else in its own way.
    void chooseStyle();
    XIC createContext(::Window window);
    XIC contextOf(::Window window) const;
    static void onDestroyed(XIM method, XPointer self, XPointer unused);

    ::Display* display_;
    XIM method_ = nullptr;
    XIMStyle style_ = 0;
    XFontSet fontSet_ = nullptr;  // Demanded by a method that composes at the caret.
    std::vector<Context> contexts_;
};

}  // namespace platform
