// Top-level windows and the display. A window is made known to the display when it is shown first; hidden ones,
// drop-down lists above all, cost nothing there.
#include "platform/window/top_level.h"

#include "platform/window/display_choice.h"

#include <algorithm>

namespace platform {
namespace {

DisplayWindowInfo::Kind kindOf(const Window& top) {
    if (isPopupKind(top)) {
        return DisplayWindowInfo::Kind::Popup;
    }
    const bool dialog = top.owner || top.hasEx(WS_EX_DLGMODALFRAME) || !top.has(WS_THICKFRAME);
    return dialog ? DisplayWindowInfo::Kind::Dialog : DisplayWindowInfo::Kind::Normal;
}

SIZE leastSize(HWND top) {
    MINMAXINFO info{};
    SendMessageA(top, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {info.ptMinTrackSize.x, info.ptMinTrackSize.y};
}

void createOnDisplay(Window& top) {
    DisplayWindowInfo info;
    info.kind = kindOf(top);
    info.window = top.handle;
    const Window* owner = findWindow(top.owner);
    info.owner = owner && owner->top.onDisplay ? owner->handle : nullptr;
    info.rect = top.rect;  // Borders that a list draws itself lie inside what the display shows.
    info.positioned = top.top.placed;
    info.resizable = top.has(WS_THICKFRAME);
    if (info.resizable) {
        info.least = leastSize(top.handle);
    }
    info.title = top.text;
    display().createWindow(info);
    if (top.hasEx(WS_EX_TOPMOST)) {
        display().setTopmost(top.handle, true);
    }
    top.top.onDisplay = true;
}

// A request for the focus that the server has not answered yet. Reports about other windows are older than it, but
// a server need not answer, so they are believed again after a while.
struct FocusRequest {
    HWND top = nullptr;
    DWORD time = 0;
};
constexpr DWORD kFocusAnswerMs = 500;
FocusRequest g_focusRequest;

}  // namespace

bool isPopupKind(const Window& top) {
    return (top.style & static_cast<DWORD>(WS_CAPTION)) != static_cast<DWORD>(WS_CAPTION);
}

Surface& surfaceOf(Window& top) {
    if (!top.top.surface) {
        top.top.surface = std::make_unique<Surface>(std::max(1, widthOf(top.rect)), std::max(1, heightOf(top.rect)));
    }
    return *top.top.surface;
}

void showOnDisplay(Window& top, bool visible) {
    if (!top.top.onDisplay) {
        if (!visible) {
            return;
        }
        createOnDisplay(top);
    }
    display().show(top.handle, visible);
}

void placeOnDisplay(Window& top) {
    const int width = std::max(1, widthOf(top.rect));
    const int height = std::max(1, heightOf(top.rect));
    if (top.top.surface && (top.top.surface->width() != width || top.top.surface->height() != height)) {
        top.top.surface->resize(width, height);
    }
    if (top.top.onDisplay) {
        display().setRect(top.handle, top.rect);
    }
}

void titleOnDisplay(const Window& top) {
    if (top.top.onDisplay) {
        display().setTitle(top.handle, top.text);
    }
}

void raiseOnDisplay(const Window& top) {
    if (top.top.onDisplay && top.has(WS_VISIBLE)) {
        display().raise(top.handle);
    }
}

void topmostOnDisplay(const Window& top, bool topmost) {
    if (top.top.onDisplay) {
        display().setTopmost(top.handle, topmost);
    }
}

void focusOnDisplay(const Window& top) {
    if (isPopupKind(top)) {
        return;
    }
    // What the display still reports about other windows is out of date, also while this one is yet to be shown.
    g_focusRequest = {top.handle, GetTickCount()};
    if (top.top.onDisplay) {
        display().focus(top.handle);
    }
}

bool isFocusReportOutdated(HWND top, bool gained) {
    const bool waiting = g_focusRequest.top && GetTickCount() - g_focusRequest.time < kFocusAnswerMs;
    if (waiting && (top != g_focusRequest.top || !gained)) {
        return true;
    }
    g_focusRequest.top = nullptr;
    return false;
}

void removeFromDisplay(Window& top) {
    if (top.top.onDisplay) {
        display().destroyWindow(top.handle);
    }
    top.top.onDisplay = false;
    top.top.surface.reset();
}

void presentAll() {
    for (Window* top = desktop().firstChild; top; top = top->next) {
        Surface* surface = top->top.surface.get();
        if (surface && surface->hasDamage() && top->top.onDisplay && top->has(WS_VISIBLE)) {
            display().present(top->handle, *surface, surface->takeDamage());
        }
    }
}

}  // namespace platform
