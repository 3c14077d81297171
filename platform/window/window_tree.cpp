// Handles and the tree of windows. A handle holds the number of a slot and how often the slot was used, so that the
// handle of a destroyed window stays invalid when the slot is used again.
#include "platform/window/window.h"

#include <utility>

namespace platform {
namespace {

constexpr unsigned kFirstIndex = 16;  // Keeps clear of the small numbers that have a meaning of their own.
constexpr unsigned kGenerationMask = 0x7fff;

// The rest of the table, which windows of the same number share one after the other. Giving a number back takes no
// memory.
struct Numbers {
    std::uint16_t generations[kWindowSlots];  // How many windows had it before.
    std::uint16_t free[kWindowSlots];
    std::size_t freeCount;
    std::size_t used;  // From kFirstIndex on.
    int count;
};
constinit Numbers numbers{};

HWND handleOf(std::size_t index) {
    return reinterpret_cast<HWND>(((std::uintptr_t{numbers.generations[index]} + 1) << 16) | (index << 1));
}

Window* allocate() {
    if (numbers.freeCount == 0 && kFirstIndex + numbers.used == kWindowSlots) {
        return nullptr;
    }
    auto window = std::make_unique<Window>();
    const std::size_t index = numbers.freeCount != 0 ? numbers.free[--numbers.freeCount] : kFirstIndex + numbers.used++;
    window->handle = handleOf(index);
    ++numbers.count;
    return windowTable[index] = window.release();
}

void release(Window& window) {
    const std::size_t index = windowIndex(window.handle);
    const std::unique_ptr<Window> ended(std::exchange(windowTable[index], nullptr));
    numbers.generations[index] = (numbers.generations[index] + 1) & kGenerationMask;
    numbers.free[numbers.freeCount++] = static_cast<std::uint16_t>(index);
    --numbers.count;
}

// The two roots exist from the beginning and are never destroyed.
struct Roots {
    Roots() {
        desktop = allocate();
        desktop->proc = DefWindowProcA;
        desktop->style = static_cast<DWORD>(WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN);
        messages = allocate();
        messages->proc = DefWindowProcA;
        messages->style = static_cast<DWORD>(WS_POPUP);
    }
    Window* desktop;
    Window* messages;
};

const Roots& roots() {
    static const Roots both;
    return both;
}

}  // namespace

void Window::setStyleBit(long bit, bool on) {
    const auto bits = static_cast<DWORD>(bit);
    style = on ? style | bits : style & ~bits;
}

void Window::completeExStyle() {
    const bool framed = has(WS_DLGFRAME | WS_THICKFRAME) && !hasEx(WS_EX_STATICEDGE);
    const auto raised = static_cast<DWORD>(WS_EX_WINDOWEDGE);
    exStyle = framed || hasEx(WS_EX_DLGMODALFRAME) ? exStyle | raised : exStyle & ~raised;
}

constinit Window* windowTable[kWindowSlots]{};

Window* requireWindow(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    }
    return window;
}

Window& desktop() {
    return *roots().desktop;
}
Window& messageRoot() {
    return *roots().messages;
}

Window* allocateWindow() {
    roots();
    return allocate();
}

void releaseWindow(Window& window) {
    unlinkWindow(window);
    release(window);
}

int windowCount() {
    roots();
    return numbers.count - 2;
}

void linkWindow(Window& window, Window& parent, Window* after) {
    window.parent = &parent;
    window.previous = after;
    window.next = after ? after->next : parent.firstChild;
    (window.previous ? window.previous->next : parent.firstChild) = &window;
    (window.next ? window.next->previous : parent.lastChild) = &window;
}

void unlinkWindow(Window& window) {
    if (!window.parent) {
        return;
    }
    (window.previous ? window.previous->next : window.parent->firstChild) = window.next;
    (window.next ? window.next->previous : window.parent->lastChild) = window.previous;
    window.parent = window.next = window.previous = nullptr;
}

bool isTopLevel(const Window& window) {
    return window.parent == roots().desktop;
}

Window* topLevelOf(Window& window) {
    Window* top = &window;
    while (top->parent && !isTopLevel(*top)) {
        top = top->parent;
    }
    return top->parent ? top : nullptr;
}

bool isDescendant(const Window& ancestor, const Window& window) {
    for (const Window* up = window.parent; up; up = up->parent) {
        if (up == &ancestor) {
            return true;
        }
    }
    return false;
}

bool isShown(const Window& window) {
    const Window* up = &window;
    while (up && up->has(WS_VISIBLE)) {
        up = up->parent;
    }
    return !up;
}

POINT windowOrigin(const Window& window) {
    POINT origin{window.rect.left, window.rect.top};
    for (const Window* up = window.parent; up; up = up->parent) {
        origin.x += up->client.left;
        origin.y += up->client.top;
    }
    return origin;
}

POINT clientOrigin(const Window& window) {
    POINT origin = windowOrigin(window);
    origin.x += window.client.left - window.rect.left;
    origin.y += window.client.top - window.rect.top;
    return origin;
}

std::vector<HWND> childHandles(const Window& window) {
    std::vector<HWND> handles;
    for (const Window* child = window.firstChild; child; child = child->next) {
        handles.push_back(child->handle);
    }
    return handles;
}

}  // namespace platform
