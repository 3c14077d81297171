// Handles and the tree of windows. A handle holds the number of a slot and how often the slot was used, so that the
// handle of a destroyed window stays invalid when the slot is used again.
#include "platform/window/window.h"

#include <utility>

namespace platform {
namespace {

struct Slot {
    std::unique_ptr<Window> window;
    unsigned generation = 1;
};

constexpr unsigned kFirstIndex = 16;  // Keeps clear of the small numbers that have a meaning of their own.
constexpr unsigned kMaxIndex = 0x7fff;
constexpr unsigned kGenerationMask = 0x7fff;

class HandleTable {
public:
    Window* find(HWND handle) const {
        const auto value = reinterpret_cast<std::uintptr_t>(handle);
        const std::size_t index = (value & 0xffff) >> 1;
        if (index >= slots_.size() || (value & 1) || (value >> 16) != slots_[index].generation) {
            return nullptr;
        }
        return slots_[index].window.get();
    }

    Window* allocate() {
        auto window = std::make_unique<Window>();
        unsigned index = 0;
        if (!free_.empty()) {
            index = free_.back();
            free_.pop_back();
        } else if (slots_.size() <= kMaxIndex) {
            // Giving a slot back takes no memory.
            index = static_cast<unsigned>(slots_.size());
            slots_.emplace_back();
            try {
                free_.reserve(slots_.capacity());
            } catch (...) {
                slots_.pop_back();
                throw;
            }
        } else {
            return nullptr;
        }
        Slot& slot = slots_[index];
        slot.window = std::move(window);
        slot.window->handle =
            reinterpret_cast<HWND>((static_cast<std::uintptr_t>(slot.generation) << 16) | (index << 1));
        ++count_;
        return slot.window.get();
    }

    void release(const Window& window) {
        const auto index = static_cast<unsigned>((reinterpret_cast<std::uintptr_t>(window.handle) & 0xffff) >> 1);
        Slot& slot = slots_[index];
        slot.generation = (slot.generation & kGenerationMask) + 1;
        slot.window.reset();
        free_.push_back(index);
        --count_;
    }

    int count() const { return count_; }

private:
    std::vector<Slot> slots_ = std::vector<Slot>(kFirstIndex);
    std::vector<unsigned> free_;
    int count_ = 0;
};

// A pointer, because this is asked for some hundred thousand times a second: a static object would be asked each time
// whether it is there yet. Never freed: windows may be destroyed as late as at the end of the process.
HandleTable* theTable = nullptr;

[[gnu::noinline]] HandleTable& makeTable() {
    theTable = new HandleTable;
    return *theTable;
}

HandleTable& table() {
    return theTable != nullptr ? *theTable : makeTable();
}

// The two roots exist from the beginning and are never destroyed.
struct Roots {
    Roots() {
        desktop = table().allocate();
        desktop->proc = DefWindowProcA;
        desktop->style = static_cast<DWORD>(WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN);
        messages = table().allocate();
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

Window* findWindow(HWND handle) {
    return table().find(handle);
}

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
    return table().allocate();
}

void releaseWindow(Window& window) {
    unlinkWindow(window);
    table().release(window);
}

int windowCount() {
    roots();
    return table().count() - 2;
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

bool isAlive(HWND handle) {
    return findWindow(handle) != nullptr;
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
