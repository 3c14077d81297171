// A window as the window system keeps it, and the tree that all windows form: top-level windows are the children
// of the desktop, windows that only take messages hang below a root of their own. A Window dies with
// WM_NCDESTROY: whoever sends a message must look it up again by its handle afterwards.
#pragma once

#include "platform/graphics/region.h"
#include "platform/graphics/surface.h"
#include "platform/window/window_class.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform {

// What of a window waits to be painted.
struct PaintState {
    Region update;  // Relative to the upper left corner of the window, borders included.
    bool erase = false;
    bool frame = false;     // The borders are to be painted too.
    bool internal = false;  // A WM_PAINT was asked for although nothing is invalid.

    bool isPending() const { return internal || !update.isEmpty(); }
};

// What only a top-level window has.
struct TopLevel {
    std::unique_ptr<Surface> surface;  // Made when the window is first drawn into.
    bool onDisplay = false;            // The display knows the window, from its first showing on.
    bool placed = false;               // The program chose the position, not the window manager.
    HWND lastActivePopup = nullptr;
};

struct Window {
    HWND handle = nullptr;
    WindowClass* windowClass = nullptr;
    WNDPROC proc = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT_PTR id = 0;
    LONG_PTR userData = 0;
    HINSTANCE instance = nullptr;

    Window* parent = nullptr;
    Window* firstChild = nullptr;  // The uppermost one.
    Window* lastChild = nullptr;
    Window* next = nullptr;  // The sibling below.
    Window* previous = nullptr;
    HWND owner = nullptr;

    RECT rect{};    // With borders, in client coordinates of the parent (the screen's for a top-level window).
    RECT client{};  // The client area in the same coordinates.

    std::string text;
    std::vector<std::byte> extra;
    PaintState paint;
    TopLevel top;
    bool dying = false;    // DestroyWindow is under way.
    unsigned visited = 0;  // The last round of visits, while a tree ends, that came to this window.

    bool has(long styleBits) const { return (style & static_cast<DWORD>(styleBits)) != 0; }
    bool hasEx(long styleBits) const { return (exStyle & static_cast<DWORD>(styleBits)) != 0; }
    // A child by its style; a drop-down list has the style and is a top-level window nevertheless.
    bool isChildStyle() const { return has(WS_CHILD) && !has(WS_POPUP); }
    void setStyleBit(long bit, bool on);
    // Keeps the raised edge at what the other bits call for: it is never chosen by itself.
    void completeExStyle();
};

// All windows by the number in their handles, which is unique among those that live. In the open, because handles are
// looked up some hundred thousand times a second. Its windows may be destroyed as late as at the end of the process.
constexpr std::size_t kWindowSlots = 0x8000;
extern constinit Window* windowTable[kWindowSlots];
inline std::size_t windowIndex(HWND handle) {
    return (reinterpret_cast<std::uintptr_t>(handle) & 0xffff) >> 1;
}

// Null for a handle that names no living window.
inline Window* findWindow(HWND handle) {
    Window* window = windowTable[windowIndex(handle)];
    return window != nullptr && window->handle == handle ? window : nullptr;
}
// The same, and notes the error ERROR_INVALID_WINDOW_HANDLE.
Window* requireWindow(HWND handle);

Window& desktop();
Window& messageRoot();

// A new window without class and place; null when there are no handles left. Freed by releaseWindow.
Window* allocateWindow();
// Takes the window out of the tree; its handle becomes invalid.
void releaseWindow(Window& window);
// How many windows exist, the desktop and the message root not counted.
int windowCount();

// Puts the window below `after` (null: on top) in the parent's order.
void linkWindow(Window& window, Window& parent, Window* after);
void unlinkWindow(Window& window);

bool isTopLevel(const Window& window);
// The top-level window that contains it, or itself; null below the message root.
Window* topLevelOf(Window& window);
bool isDescendant(const Window& ancestor, const Window& window);
// Visible itself and so are all its ancestors.
bool isShown(const Window& window);
inline bool isAlive(HWND handle) {
    return findWindow(handle) != nullptr;
}

// Screen coordinates of the upper left corner of the window, and of its client area.
POINT windowOrigin(const Window& window);
POINT clientOrigin(const Window& window);

// The children as handles, uppermost first: safe to walk while messages are sent.
std::vector<HWND> childHandles(const Window& window);

inline int widthOf(const RECT& rect) {
    return rect.right - rect.left;
}
inline int heightOf(const RECT& rect) {
    return rect.bottom - rect.top;
}

}  // namespace platform
