// The screen as the window room sees it: top-level windows, input, clipboard. Two implementations: an X server,
// and memory. Exactly one is in use in a process.
#pragma once

#include "platform/graphics/surface.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace platform {

// What a display window is made from; `kind` decides how the window manager treats it.
struct DisplayWindowInfo {
    enum class Kind { Normal, Dialog, Popup };  // Popup: a drop-down list, without frame, never focused by the server.
    Kind kind = Kind::Normal;
    HWND window = nullptr;
    HWND owner = nullptr;     // Transient for this window; null for none.
    RECT rect{};              // Client area in screen coordinates.
    bool positioned = false;  // False: the window manager may choose the place, which the sink is told of.
    bool resizable = false;
    SIZE least{};       // Below which the user cannot resize it.
    std::string title;  // Code page 1252.
};

// Input arrives here; the window room implements it. All coordinates are pixels of the named top-level window's client
// area.
class InputSink {
public:
    virtual ~InputSink() = default;

    enum class Mouse { Move, Down, Up };
    // `button` is VK_LBUTTON, VK_MBUTTON or VK_RBUTTON, 0 for a move.
    virtual void mouse(HWND top, Mouse what, int button, POINT at, DWORD timeMs) = 0;
    virtual void wheel(HWND top, int delta, POINT at, DWORD timeMs) = 0;
    // A key by its virtual code. `text` holds the characters it produces in code page 1252 (empty for none);
    // a character that no key names (from an input method) comes with virtualKey 0.
    virtual void key(int virtualKey, bool down, bool repeat, const std::string& text, DWORD timeMs) = 0;
    // Modifier and lock state of the keyboard before the event that follows: bits MK_SHIFT, MK_CONTROL, and kAlt.
    static constexpr unsigned kAlt = 0x20;
    static constexpr unsigned kCapsLock = 0x40;
    static constexpr unsigned kNumLock = 0x80;
    virtual void modifiers(unsigned state) = 0;
    virtual void closeRequested(HWND top) = 0;
    // The server gave the keyboard focus to the window, or took it away (no window of ours has it then).
    virtual void focusIn(HWND top) = 0;
    virtual void focusOut(HWND top) = 0;
    virtual void moved(HWND top, POINT clientOrigin) = 0;
    virtual void resized(HWND top, SIZE client) = 0;
    // Monitors have come, gone, or changed their size.
    virtual void monitorsChanged() = 0;
    // Another program destroyed the window. The display still knows it, until it is told to destroy it, but nobody
    // will see it again.
    virtual void destroyed(HWND top) = 0;
    // A part must be shown again; the display presents it itself from the surface it was last given.
};

class Display {
public:
    virtual ~Display() = default;

    virtual void createWindow(const DisplayWindowInfo& info) = 0;
    virtual void destroyWindow(HWND window) = 0;
    virtual void show(HWND window, bool visible) = 0;
    // Whether a window that is to be shown has come to its place.
    virtual bool isPlaced(HWND) const { return true; }
    virtual void setTitle(HWND window, const std::string& title) = 0;
    virtual void setRect(HWND window, const RECT& client) = 0;
    virtual void raise(HWND window) = 0;
    virtual void setTopmost(HWND window, bool topmost) = 0;
    // Asks the server for the keyboard focus.
    virtual void focus(HWND window) = 0;
    // While a popup is grabbed the display reports to it all mouse events that are over none of our windows
    // (coordinates outside its client area), so that a click anywhere can close a drop-down list. Null ends the grab.
    virtual void grabMouse(HWND popup) = 0;
    // Shows the part `rect` of the surface, which stays owned by the caller and lives until destroyWindow.
    virtual void present(HWND window, const Surface& surface, const RECT& rect) = 0;
    virtual void setCursor(HCURSOR cursor) = 0;                    // IDC_ARROW or IDC_IBEAM as a handle.
    virtual void setCaretRect(HWND window, const RECT& rect) = 0;  // Where an input method shows itself.

    // Delivers waiting events to the sink and returns how many there were; waits for the first one at most
    // timeoutMs (0: not at all, -1: without limit). Sends pending output to the server before it waits.
    virtual int pump(InputSink& sink, int timeoutMs) = 0;
    // Whether the screen is gone for good. Every call is still allowed then, and does nothing.
    virtual bool isLost() const { return false; }

    // Of all monitors together.
    virtual SIZE screenSize() const = 0;
    // The monitors, the first one first; never empty.
    virtual std::vector<RECT> monitors() const {
        const SIZE screen = screenSize();
        return {{0, 0, screen.cx, screen.cy}};
    }
    // Where client areas may lie so that they and their frames are seen on the monitor.
    virtual RECT workArea(const RECT& monitor) const { return monitor; }
    // 0 where nobody has said how fine the screen is.
    virtual int dotsPerInch() const { return 0; }
    virtual POINT cursorPosition() const = 0;
    virtual void beep() = 0;

    // Clipboard text in code page 1252. `readClipboard` may wait for another program, a second at most; false when
    // there is none.
    virtual void writeClipboard(const std::string& text) = 0;
    virtual bool readClipboard(std::string& text) = 0;
    virtual bool clipboardHasText() = 0;
    // The primary selection: the text marked last, which the middle button inserts elsewhere.
    virtual void writePrimary(const std::string& text) = 0;
    virtual bool readPrimary(std::string& text) = 0;
};

std::unique_ptr<Display> openMemoryDisplay();
// Null when no X server answers. The process survives when the server goes away later.
std::unique_ptr<Display> openX11Display();

}  // namespace platform
