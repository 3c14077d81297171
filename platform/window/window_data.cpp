// What is stored with a window: styles, identifier, procedure, extra bytes.
#include "platform/window/activation.h"
#include "platform/window/builtin_classes.h"
#include "platform/window/window.h"

#include <cstring>
#include <utility>

namespace platform {
namespace {

constexpr DWORD kErrorInvalidIndex = 1413;

// Extra bytes need not be aligned, so they are copied.
template <typename Value>
Value readExtra(const Window& window, int index) {
    Value value{};
    if (index < 0 || static_cast<std::size_t>(index) + sizeof value > window.extra.size()) {
        SetLastError(kErrorInvalidIndex);
        return value;
    }
    std::memcpy(&value, window.extra.data() + index, sizeof value);
    return value;
}

template <typename Value>
Value writeExtra(Window& window, int index, Value value) {
    const auto old = readExtra<Value>(window, index);
    if (index >= 0 && static_cast<std::size_t>(index) + sizeof value <= window.extra.size()) {
        std::memcpy(window.extra.data() + index, &value, sizeof value);
    }
    return old;
}

// The style bits as the window's procedure left them in WM_STYLECHANGING are what is stored.
DWORD changeStyle(HWND handle, int index, DWORD value) {
    Window* window = findWindow(handle);
    STYLESTRUCT styles{index == GWL_STYLE ? window->style : window->exStyle, value};
    SendMessageA(handle, WM_STYLECHANGING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&styles));
    window = findWindow(handle);
    if (!window) {
        return styles.styleOld;
    }
    if (index == GWL_STYLE) {
        const bool shown = isShown(*window);
        window->style = styles.styleNew;
        if (shown != isShown(*window) && isTopLevel(*window)) {
            showTopLevel(*window, !shown);
        }
    } else {
        const auto topmost = static_cast<DWORD>(WS_EX_TOPMOST);  // Changed by SetWindowPos alone.
        window->exStyle = (styles.styleNew & ~topmost) | (window->exStyle & topmost);
    }
    window->completeExStyle();
    styles.styleNew = index == GWL_STYLE ? window->style : window->exStyle;
    SendMessageA(handle, WM_STYLECHANGED, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&styles));
    return styles.styleOld;
}

}  // namespace

void setStyleQuietly(HWND handle, DWORD style) {
    if (Window* window = findWindow(handle)) {
        window->style = style;
    }
}

}  // namespace platform

using platform::requireWindow;
using platform::Window;

LONG_PTR GetWindowLongPtrA(HWND window, int index) {
    const Window* found = requireWindow(window);
    if (!found) {
        return 0;
    }
    switch (index) {
        case GWL_STYLE:
            return static_cast<LONG_PTR>(found->style);
        case GWL_EXSTYLE:
            return static_cast<LONG_PTR>(found->exStyle);
        case GWLP_ID:
            return static_cast<LONG_PTR>(found->id);
        case GWLP_USERDATA:
            return found->userData;
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(found->proc);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(found->instance);
        default:
            return platform::readExtra<LONG_PTR>(*found, index);
    }
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value) {
    Window* found = requireWindow(window);
    if (!found) {
        return 0;
    }
    switch (index) {
        case GWL_STYLE:
        case GWL_EXSTYLE:
            return static_cast<LONG_PTR>(platform::changeStyle(window, index, static_cast<DWORD>(value)));
        case GWLP_ID:
            return static_cast<LONG_PTR>(std::exchange(found->id, static_cast<UINT_PTR>(value)));
        case GWLP_USERDATA:
            return std::exchange(found->userData, value);
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(std::exchange(found->proc, reinterpret_cast<WNDPROC>(value)));
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(std::exchange(found->instance, reinterpret_cast<HINSTANCE>(value)));
        default:
            return platform::writeExtra<LONG_PTR>(*found, index, value);
    }
}

LONG GetWindowLongA(HWND window, int index) {
    const Window* found = index >= 0 ? requireWindow(window) : nullptr;
    return found ? platform::readExtra<LONG>(*found, index) : static_cast<LONG>(GetWindowLongPtrA(window, index));
}

LONG SetWindowLongA(HWND window, int index, LONG value) {
    Window* found = index >= 0 ? requireWindow(window) : nullptr;
    return found ? platform::writeExtra<LONG>(*found, index, value)
                 : static_cast<LONG>(SetWindowLongPtrA(window, index, value));
}

BOOL IsWindow(HWND window) {
    return platform::isAlive(window) ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND window) {
    const Window* found = requireWindow(window);
    return found && platform::isShown(*found) ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND window) {
    const Window* found = requireWindow(window);
    return found && !found->has(WS_DISABLED) ? TRUE : FALSE;
}
