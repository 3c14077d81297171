// Window classes: registration, look-up, and what programs may ask about them.
#include "platform/window/builtin_classes.h"
#include "platform/window/window.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace platform {
namespace {

constexpr DWORD kErrorClassAlreadyExists = 1410;
constexpr DWORD kErrorClassDoesNotExist = 1411;
constexpr DWORD kErrorClassHasWindows = 1412;
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
    if (all.systemClassesKnown)
        return;
    all.systemClassesKnown = true;
    registerDialogClass();
    registerStaticClass();
    registerButtonClass();
    registerEditClass();
    registerListBoxClasses();
    registerComboBoxClass();
    registerTabClass();
}

bool isNamed(const WindowClass& windowClass, LPCSTR name) {
    if (IS_INTRESOURCE(name))
        return windowClass.atom == static_cast<ATOM>(reinterpret_cast<std::uintptr_t>(name));
    return lstrcmpiA(windowClass.name.c_str(), name) == 0;
}

WindowClass* findOwn(LPCSTR name, HINSTANCE instance) {
    for (const auto& entry : registry().classes) {
        if (entry->instance == instance && isNamed(*entry, name))
            return entry.get();
    }
    return nullptr;
}

}  // namespace

WindowClass* findClass(LPCSTR name, HINSTANCE instance) {
    if (!name)
        return nullptr;
    ensureSystemClasses();
    WindowClass* found = nullptr;
    for (const auto& entry : registry().classes) {
        if (!isNamed(*entry, name))
            continue;
        if (entry->instance == instance)
            return entry.get();
        if (!found || (entry->style & CS_GLOBALCLASS))
            found = entry.get();
    }
    return found;
}

}  // namespace platform

using platform::Window;
using platform::WindowClass;

ATOM RegisterClassExA(const WNDCLASSEXA* windowClass) {
    if (!windowClass || !windowClass->lpszClassName || IS_INTRESOURCE(windowClass->lpszClassName) ||
        !windowClass->lpfnWndProc || windowClass->cbClsExtra < 0 || windowClass->cbWndExtra < 0)
        return 0;
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
    made->classExtra.resize(static_cast<std::size_t>(windowClass->cbClsExtra));
    made->instance = windowClass->hInstance;
    made->icon = windowClass->hIcon;
    made->cursor = windowClass->hCursor;
    made->background = windowClass->hbrBackground;
    const ATOM atom = made->atom;
    platform::registry().classes.push_back(std::move(made));
    return atom;
}

ATOM RegisterClassA(const WNDCLASSA* windowClass) {
    if (!windowClass)
        return 0;
    const WNDCLASSEXA extended{sizeof(WNDCLASSEXA),       windowClass->style,         windowClass->lpfnWndProc,
                               windowClass->cbClsExtra,   windowClass->cbWndExtra,    windowClass->hInstance,
                               windowClass->hIcon,        windowClass->hCursor,       windowClass->hbrBackground,
                               windowClass->lpszMenuName, windowClass->lpszClassName, nullptr};
    return RegisterClassExA(&extended);
}

BOOL UnregisterClassA(LPCSTR className, HINSTANCE instance) {
    const WindowClass* found = className ? platform::findOwn(className, instance) : nullptr;
    if (!found || found->windows > 0) {
        SetLastError(found ? platform::kErrorClassHasWindows : platform::kErrorClassDoesNotExist);
        return FALSE;
    }
    std::erase_if(platform::registry().classes, [found](const auto& entry) { return entry.get() == found; });
    return TRUE;
}

BOOL GetClassInfoA(HINSTANCE instance, LPCSTR className, WNDCLASSA* windowClass) {
    const WindowClass* found = platform::findClass(className, instance);
    if (!found || !windowClass) {
        SetLastError(platform::kErrorClassDoesNotExist);
        return FALSE;
    }
    windowClass->style = found->style;
    windowClass->lpfnWndProc = found->proc;
    windowClass->cbClsExtra = static_cast<int>(found->classExtra.size());
    windowClass->cbWndExtra = found->windowExtra;
    windowClass->hInstance = instance;
    windowClass->hIcon = found->icon;
    windowClass->hCursor = found->cursor;
    windowClass->hbrBackground = found->background;
    windowClass->lpszMenuName = nullptr;
    windowClass->lpszClassName = className;
    return TRUE;
}

int GetClassNameA(HWND window, LPSTR name, int size) {
    const Window* found = platform::requireWindow(window);
    if (!found || !name || size <= 0)
        return 0;
    const std::string& className = found->windowClass ? found->windowClass->name : found->text;
    const std::size_t length = std::min(className.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(name, className.data(), length);
    name[length] = '\0';
    return static_cast<int>(length);
}

ULONG_PTR GetClassLongPtrA(HWND window, int index) {
    const Window* found = platform::requireWindow(window);
    if (!found || !found->windowClass)
        return 0;
    const WindowClass& windowClass = *found->windowClass;
    if (index == GCLP_HBRBACKGROUND)
        return reinterpret_cast<ULONG_PTR>(windowClass.background);
    if (index == GCL_STYLE)
        return windowClass.style;
    ULONG_PTR value = 0;
    if (index >= 0 && static_cast<std::size_t>(index) + sizeof value <= windowClass.classExtra.size())
        std::memcpy(&value, windowClass.classExtra.data() + index, sizeof value);
    return value;
}
