// Questions about the tree: parents, owners, neighbours, enumeration.
#include "platform/window/message_queue.h"
#include "platform/window/window.h"

namespace platform {
namespace {

HWND handleOf(const Window* window) {
    return window ? window->handle : nullptr;
}

// All windows inside, parents before their children.
void collectInside(const Window& window, std::vector<HWND>& handles) {
    for (const Window* child = window.firstChild; child; child = child->next) {
        handles.push_back(child->handle);
        collectInside(*child, handles);
    }
}

BOOL callForEach(const std::vector<HWND>& handles, WNDENUMPROC proc, LPARAM param) {
    for (const HWND handle : handles) {
        if (isAlive(handle) && !proc(handle, param)) {
            return FALSE;
        }
    }
    return TRUE;
}

HWND rootOwner(Window& window) {
    const Window* top = topLevelOf(window);
    while (top) {
        const Window* owner = findWindow(top->owner);
        if (!owner) {
            return top->handle;
        }
        top = owner;
    }
    return nullptr;
}

}  // namespace
}  // namespace platform

using platform::requireWindow;
using platform::Window;

HWND GetParent(HWND window) {
    const Window* found = requireWindow(window);
    if (!found || !found->parent) {
        return nullptr;
    }
    if (found->has(WS_POPUP)) {
        return found->owner;
    }
    return found->has(WS_CHILD) ? found->parent->handle : nullptr;
}

HWND GetWindow(HWND window, UINT relation) {
    const Window* found = requireWindow(window);
    if (!found) {
        return nullptr;
    }
    switch (relation) {
        case GW_HWNDFIRST:
            return found->parent ? platform::handleOf(found->parent->firstChild) : nullptr;
        case GW_HWNDLAST:
            return found->parent ? platform::handleOf(found->parent->lastChild) : nullptr;
        case GW_HWNDNEXT:
            return platform::handleOf(found->next);
        case GW_HWNDPREV:
            return platform::handleOf(found->previous);
        case GW_OWNER:
            return found->owner;
        case GW_CHILD:
            return platform::handleOf(found->firstChild);
        default:
            return nullptr;
    }
}

HWND GetDlgItem(HWND dialog, int id) {
    const Window* found = requireWindow(dialog);
    const Window* child = found ? found->firstChild : nullptr;
    while (child && static_cast<int>(child->id) != id) {
        child = child->next;
    }
    return platform::handleOf(child);
}

int GetDlgCtrlID(HWND window) {
    const Window* found = requireWindow(window);
    return found ? static_cast<int>(found->id) : 0;
}

HWND GetTopWindow(HWND window) {
    return GetWindow(window ? window : GetDesktopWindow(), GW_CHILD);
}

HWND GetAncestor(HWND window, UINT kind) {
    Window* found = requireWindow(window);
    if (!found || !found->parent) {
        return nullptr;
    }
    switch (kind) {
        case GA_PARENT:
            return found->parent->handle;
        case GA_ROOT:
            return platform::handleOf(platform::topLevelOf(*found));
        case GA_ROOTOWNER:
            return platform::rootOwner(*found);
        default:
            return nullptr;
    }
}

HWND GetDesktopWindow(void) {
    return platform::desktop().handle;
}

BOOL IsChild(HWND parent, HWND window) {
    const Window* outer = requireWindow(parent);
    const Window* inner = outer ? requireWindow(window) : nullptr;
    // The chain ends at the top-level window: a popup is no child of its owner.
    while (inner && inner->has(WS_CHILD) && inner->parent) {
        inner = inner->parent;
        if (inner == outer) {
            return TRUE;
        }
    }
    return FALSE;
}

HWND FindWindowA(LPCSTR className, LPCSTR text) {
    for (const Window* top = platform::desktop().firstChild; top; top = top->next) {
        const bool rightClass =
            !className || !top->windowClass || platform::findClass(className, top->instance) == top->windowClass;
        if (rightClass && (!text || lstrcmpiA(top->text.c_str(), text) == 0)) {
            return top->handle;
        }
    }
    return nullptr;
}

BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC proc, LPARAM param) {
    if (!proc || thread != platform::queueThread()) {
        return proc ? TRUE : FALSE;
    }
    return platform::callForEach(platform::childHandles(platform::desktop()), proc, param);
}

BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM param) {
    const Window* found = parent ? requireWindow(parent) : &platform::desktop();
    if (!found || !proc) {
        return FALSE;
    }
    std::vector<HWND> handles;
    platform::collectInside(*found, handles);
    platform::callForEach(handles, proc, param);
    return TRUE;
}
