// Window classes: registration and look-up. They last as long as the program.
#include "platform/window/builtin_classes.h"
#include "platform/window/window.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace platform {
namespace {

constexpr DWORD kErrorClassAlreadyExists = 1410;
constexpr ATOM kFirstAtom = 0xC000;

struct Registry {
    std::vector<std::unique_ptr<WindowClass>> classes;
    ATOM nextAtom = kFirstAtom;
    bool systemClassesKnown = false;
};

Registry& registry() {
    static Registry all;
    return all;
}

// The system's own classes register themselves like any program's, before the first look-up.
void ensureSystemClasses() {
    Registry& all = registry();
    if (all.systemClassesKnown) {
        return;
    }
    all.systemClassesKnown = true;
    registerDialogClass();
    registerStaticClass();
    registerButtonClass();
    registerEditClass();
    registerListBoxClasses();
    registerComboBoxClass();
    registerTabClass();
    registerScrollBarClass();
    registerTrackBarClass();
    registerHeaderClass();
    registerListViewClass();
    registerMenuClass();
}

bool isNamed(const WindowClass& windowClass, LPCSTR name) {
    if (IS_INTRESOURCE(name)) {
        return windowClass.atom == static_cast<ATOM>(reinterpret_cast<std::uintptr_t>(name));
    }
    return lstrcmpiA(windowClass.name.c_str(), name) == 0;
}

WindowClass* findOwn(LPCSTR name, HINSTANCE instance) {
    for (const auto& entry : registry().classes) {
        if (entry->instance == instance && isNamed(*entry, name)) {
            return entry.get();
        }
    }
    return nullptr;
}

}  // namespace

WindowClass* findClass(LPCSTR name, HINSTANCE instance) {
    if (!name) {
        return nullptr;
    }
    ensureSystemClasses();
    WindowClass* found = nullptr;
    for (const auto& entry : registry().classes) {
        if (!isNamed(*entry, name)) {
            continue;
        }
        if (entry->instance == instance) {
            return entry.get();
        }
        if (!found || (entry->style & CS_GLOBALCLASS)) {
            found = entry.get();
        }
    }
    return found;
}

}  // namespace platform

using platform::Window;
using platform::WindowClass;

ATOM RegisterClassA(const WNDCLASSA* windowClass) {
    if (!windowClass || !windowClass->lpszClassName || IS_INTRESOURCE(windowClass->lpszClassName) ||
        !windowClass->lpfnWndProc || windowClass->cbWndExtra < 0) {
        return 0;
    }
    platform::ensureSystemClasses();
    if (platform::findOwn(windowClass->lpszClassName, windowClass->hInstance)) {
        SetLastError(platform::kErrorClassAlreadyExists);
        return 0;
    }
    auto made = std::make_unique<WindowClass>();
    made->name = windowClass->lpszClassName;
    made->atom = platform::registry().nextAtom++;
    made->style = windowClass->style;
    made->proc = windowClass->lpfnWndProc;
    made->windowExtra = windowClass->cbWndExtra;
    made->instance = windowClass->hInstance;
    made->cursor = windowClass->hCursor;
    made->background = windowClass->hbrBackground;
    const ATOM atom = made->atom;
    platform::registry().classes.push_back(std::move(made));
    return atom;
}

int GetClassNameA(HWND window, LPSTR name, int size) {
    const Window* found = platform::requireWindow(window);
    if (!found || !name || size <= 0) {
        return 0;
    }
    const std::string& className = found->windowClass ? found->windowClass->name : found->text;
    const std::size_t length = std::min(className.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(name, className.data(), length);
    name[length] = '\0';
    return static_cast<int>(length);
}
