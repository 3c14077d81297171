// The beginning and the end of windows. Each may be refused or cut short by the window's own procedure.
#include "platform/window/activation.h"
#include "platform/window/caret.h"
#include "platform/window/hooks.h"
#include "platform/window/input_queue.h"
#include "platform/window/message_queue.h"
#include "platform/window/mouse.h"
#include "platform/window/out_of_memory.h"
#include "platform/window/position.h"
#include "platform/window/top_level.h"
#include "platform/window/update_region.h"
#include "platform/window/window.h"

#include <algorithm>

namespace platform {
namespace {

constexpr DWORD kErrorTopLevelChild = 1406;
constexpr DWORD kErrorUnknownClass = 1407;
constexpr DWORD kErrorWrongThread = 1444;

// Size and place of a window that leaves the choice to the system; without the size it has none.
constexpr int kDefaultPlace = 40;
constexpr SIZE kDefaultSize = {640, 480};

// Parent in the tree and owner that go with the handle the program gave.
struct Family {
    Window* parent = nullptr;
    HWND owner = nullptr;
};

bool resolveFamily(HWND handle, DWORD style, Family& family) {
    const bool child = (style & static_cast<DWORD>(WS_CHILD | WS_POPUP)) == static_cast<DWORD>(WS_CHILD);
    if (handle == HWND_MESSAGE) {
        family.parent = &messageRoot();
        return true;
    }
    if (!handle || handle == desktop().handle) {
        family.parent = &desktop();
        if (child && !handle) {
            SetLastError(kErrorTopLevelChild);
        }
        return !child || handle;
    }
    Window* window = requireWindow(handle);
    if (!window) {
        return false;
    }
    if (child) {
        family.parent = window;
        return true;
    }
    family.parent = &desktop();
    const Window* top = topLevelOf(*window);
    family.owner = top ? top->handle : nullptr;
    return true;
}

DWORD completeStyle(DWORD style) {
    if (style & static_cast<DWORD>(WS_CHILD)) {
        return style;
    }
    style |= static_cast<DWORD>(WS_CLIPSIBLINGS);
    return style & static_cast<DWORD>(WS_POPUP) ? style : style | static_cast<DWORD>(WS_CAPTION);
}

// Replaces CW_USEDEFAULT. True when the program chose the place.
bool completePlace(CREATESTRUCTA& create) {
    const bool placed = create.x != CW_USEDEFAULT;
    if (!placed) {
        create.x = create.y = kDefaultPlace;
    }
    if (create.cx == CW_USEDEFAULT) {
        create.cx = kDefaultSize.cx;
        create.cy = kDefaultSize.cy;
    }
    return placed;
}

Window* makeWindow(const CREATESTRUCTA& create, WindowClass& windowClass, const Family& family) {
    Window* window = allocateWindow();
    if (!window) {
        return nullptr;
    }
    try {
        window->extra.resize(static_cast<std::size_t>(windowClass.windowExtra));
    } catch (const std::bad_alloc&) {
        releaseWindow(*window);
        throw;
    }
    window->windowClass = &windowClass;
    window->proc = windowClass.proc;
    window->style = static_cast<DWORD>(create.style) & ~static_cast<DWORD>(WS_VISIBLE);
    window->exStyle = create.dwExStyle;
    window->completeExStyle();
    window->instance = create.hInstance;
    window->owner = family.owner;
    if (window->isChildStyle()) {
        window->id = reinterpret_cast<UINT_PTR>(create.hMenu);
    }
    return window;
}

void removeNow(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) {
        return;
    }
    dropFocusOf(*window);
    dropCaptureOf(*window);
    dropCaretOf(*window);
    dropActivationOf(*window);
    dropPostedOf(handle);
    dropTimersOf(handle);
    clearPaint(*window);
    if (isTopLevel(*window)) {
        dropInputOf(handle);
        removeFromDisplay(*window);
    }
    releaseWindow(*window);
}

// WM_NCDESTROY from the innermost windows outwards; each window is gone after it.
void finishTree(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) {
        return;
    }
    // Nothing that ends takes memory.
    while (window && window->firstChild) {
        finishTree(window->firstChild->handle);
        window = findWindow(handle);
    }
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    removeNow(handle);
}

// WM_NCCREATE to WM_MOVE. False when the window refused; it is gone then.
bool sendCreation(HWND handle, CREATESTRUCTA& create) {
    const auto param = reinterpret_cast<LPARAM>(&create);
    if (!SendMessageA(handle, WM_NCCREATE, 0, param) || !isAlive(handle)) {
        const KeptError error;
        finishTree(handle);
        return false;
    }
    Window* window = findWindow(handle);
    const RECT client = askClientRect(handle, window->rect);
    window = findWindow(handle);
    if (window) {
        window->client = client;
    }
    if (!window || SendMessageA(handle, WM_CREATE, 0, param) == -1) {
        const KeptError error;
        finishTree(handle);
        return false;
    }
    window = findWindow(handle);
    if (window && window->parent != &messageRoot()) {
        const RECT placed = window->client;
        SendMessageA(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(widthOf(placed), heightOf(placed)));
        SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(placed.left, placed.top));
    }
    return isAlive(handle);
}

void notifyParent(HWND handle, UINT event) {
    const Window* window = findWindow(handle);
    if (window && window->isChildStyle() && !window->hasEx(WS_EX_NOPARENTNOTIFY) && window->parent->parent) {
        SendMessageA(window->parent->handle, WM_PARENTNOTIFY, MAKEWPARAM(event, window->id),
                     reinterpret_cast<LPARAM>(handle));
    }
}

// Asks the hook, which may change place and size. False when it refuses.
bool admitCreation(HWND handle, CREATESTRUCTA& create) {
    CBT_CREATEWNDA info{&create, HWND_TOP};
    if (callCbtHooks(HCBT_CREATEWND, handle, reinterpret_cast<LPARAM>(&info)) || !isAlive(handle)) {
        removeNow(handle);
        return false;
    }
    return true;
}

HWND createWindow(CREATESTRUCTA& create) {
    WindowClass* windowClass = findClass(create.lpszClass, create.hInstance);
    Family family;
    if (!windowClass) {
        SetLastError(kErrorUnknownClass);
        return nullptr;
    }
    if (!claimQueue()) {
        SetLastError(kErrorWrongThread);
        return nullptr;
    }
    if (!resolveFamily(create.hwndParent, static_cast<DWORD>(create.style), family)) {
        return nullptr;
    }
    create.style = static_cast<LONG>(completeStyle(static_cast<DWORD>(create.style)));
    const bool placed = completePlace(create);
    Window* window = makeWindow(create, *windowClass, family);
    if (!window) {
        return nullptr;
    }
    const HWND handle = window->handle;
    const HWND parent = family.parent->handle;
    if (!admitCreation(handle, create)) {
        return nullptr;
    }
    window = findWindow(handle);
    Window* tree = findWindow(parent);
    if (!tree) {
        removeNow(handle);
        return nullptr;
    }
    window->rect = {create.x, create.y, create.x + std::max(create.cx, 0), create.y + std::max(create.cy, 0)};
    window->client = window->rect;
    window->top.placed = placed;
    // New children lie below their siblings, new top-level windows above all others.
    linkWindow(*window, *tree, tree == &desktop() ? nullptr : tree->lastChild);
    if (!sendCreation(handle, create)) {
        return nullptr;
    }
    notifyParent(handle, WM_CREATE);
    if ((static_cast<DWORD>(create.style) & static_cast<DWORD>(WS_VISIBLE)) && isAlive(handle)) {
        ShowWindow(handle, SW_SHOW);
    }
    return isAlive(handle) ? handle : nullptr;
}

// The next child below that has not been visited on this round; the one that `round` numbers.
Window* nextToVisit(Window& parent, unsigned round) {
    for (Window* child = parent.firstChild; child; child = child->next) {
        if (child->visited != round) {
            child->visited = round;
            return child;
        }
    }
    return nullptr;
}

unsigned newRound() {
    static unsigned last = 0;
    return ++last;
}

void destroyOwned(HWND owner) {
    const unsigned round = newRound();
    while (const Window* window = nextToVisit(desktop(), round)) {
        if (window->owner == owner && !window->dying) {
            DestroyWindow(window->handle);
        }
    }
}

// WM_DESTROY from the window inwards.
void sendDestroy(HWND handle) {
    if (const Window* window = findWindow(handle)) {
        dropCaretOf(*window);
    }
    SendMessageA(handle, WM_DESTROY, 0, 0);
    const unsigned round = newRound();
    Window* window = findWindow(handle);
    while (const Window* child = window ? nextToVisit(*window, round) : nullptr) {
        sendDestroy(child->handle);
        window = findWindow(handle);
    }
}

void hideBeforeEnd(HWND handle) {
    const Window* window = findWindow(handle);
    if (!window || !window->has(WS_VISIBLE)) {
        return;
    }
    if (window->isChildStyle()) {
        ShowWindow(handle, SW_HIDE);
    } else {
        SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
}

}  // namespace
}  // namespace platform

using platform::findWindow;
using platform::Window;

HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, LPVOID param) {
    CREATESTRUCTA create{param, instance,  menuOrId, parent, height, width, y, x, static_cast<LONG>(style),
                         text,  className, exStyle};
    return platform::orOutOfMemory([&] { return platform::createWindow(create); }, nullptr);
}

BOOL DestroyWindow(HWND window) {
    Window* found = platform::requireWindow(window);
    if (!found || !found->parent) {
        return FALSE;
    }
    if (platform::callCbtHooks(HCBT_DESTROYWND, window, 0)) {
        return FALSE;
    }
    found = findWindow(window);
    // A window whose end has begun is not ended a second time by its own handlers.
    if (!found || found->dying) {
        return found ? FALSE : TRUE;
    }
    found->dying = true;
    if (found->isChildStyle()) {
        platform::notifyParent(window, WM_DESTROY);
    }
    platform::hideBeforeEnd(window);
    platform::destroyOwned(window);
    found = findWindow(window);
    if (found && platform::activeWindow() == window) {
        platform::activateOther(*found);
    }
    if (platform::isAlive(window)) {
        platform::sendDestroy(window);
    }
    platform::finishTree(window);
    return TRUE;
}
