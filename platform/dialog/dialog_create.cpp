// Creation of dialogs. Every font of a template is the one dialog font; menus and help ids are left out.
#include "platform/dialog/dialog_create.h"

#include "platform/dialog/dialog_state.h"
#include "platform/graphics/window_dc.h"
#include "platform/window/out_of_memory.h"

#include <algorithm>
#include <limits>

namespace platform {

namespace {

constexpr DWORD kNoFailCreate = 0x0010;  // DS_NOFAILCREATE: a control that cannot be created is left out.

// Of the monitor on which the middle of the place lies.
RECT workArea(const RECT& place) {
    const POINT centre = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromPoint(centre, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

POINT inside(const RECT& area, POINT at, SIZE window) {
    at.x = std::max(area.left, std::min(at.x, area.right - window.cx));
    at.y = std::max(area.top, std::min(at.y, area.bottom - window.cy));
    return at;
}

// Styles that every dialog window gets beside those of its template.
DWORD windowStyle(const DialogTemplate& source) {
    DWORD style = source.style | DS_3DLOOK;
    if ((style & DS_CONTROL) != 0) {
        style &= ~static_cast<DWORD>(WS_CAPTION | WS_SYSMENU);
    }
    return style & ~static_cast<DWORD>(WS_VISIBLE);
}

DWORD windowExStyle(const DialogTemplate& source) {
    DWORD exStyle = source.exStyle;
    if ((source.style & DS_MODALFRAME) != 0) {
        exStyle |= WS_EX_DLGMODALFRAME;
    }
    if ((source.style & DS_CONTROL) != 0 || (source.style & WS_CHILD) == 0) {
        exStyle |= WS_EX_CONTROLPARENT;
    }
    return exStyle;
}

POINT windowPosition(const DialogTemplate& source, SIZE size, HWND owner) {
    const POINT at = {horizontalPixels(source.x), verticalPixels(source.y)};
    if ((source.style & WS_CHILD) != 0) {
        return at;
    }
    if ((source.style & DS_CENTER) != 0) {
        return centredPosition(size, owner);
    }
    POINT onScreen = at;
    if ((source.style & DS_ABSALIGN) == 0 && owner != nullptr) {
        ClientToScreen(owner, &onScreen);
    }
    return inside(workArea({onScreen.x, onScreen.y, onScreen.x + size.cx, onScreen.y + size.cy}), onScreen, size);
}

HWND createWindow(HINSTANCE instance, const DialogTemplate& source, HWND owner) {
    const DWORD style = windowStyle(source);
    const DWORD exStyle = windowExStyle(source);
    RECT frame = {0, 0, horizontalPixels(source.width), verticalPixels(source.height)};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    const SIZE size = {frame.right - frame.left, frame.bottom - frame.top};
    const POINT at = windowPosition(source, size, owner);
    const bool ownClass = source.className.ordinal != 0 || !source.className.text.empty();
    return CreateWindowExA(exStyle, ownClass ? source.className.get() : "#32770", source.caption.c_str(), style, at.x,
                           at.y, size.cx, size.cy, owner, nullptr, instance, nullptr);
}

// The last default button of a template wins.
void becomeDefault(HWND dialog, DialogState& state, UINT id) {
    HWND former = state.defaultId != 0 ? GetDlgItem(dialog, static_cast<int>(state.defaultId)) : nullptr;
    state.defaultId = id;
    if (former != nullptr) {
        SendMessageA(former, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    }
}

bool createControl(HINSTANCE instance, HWND dialog, const DialogItem& item, HFONT font) {
    DWORD style = item.style | WS_CHILD;
    DWORD exStyle = item.exStyle | WS_EX_NOPARENTNOTIFY;
    if ((style & WS_BORDER) != 0) {
        // A template's plain border is shown as the sunken edge of a field.
        style &= ~static_cast<DWORD>(WS_BORDER);
        exStyle |= WS_EX_CLIENTEDGE;
    }
    HWND control = CreateWindowExA(exStyle, item.className.get(), item.text.get(), style, horizontalPixels(item.x),
                                   verticalPixels(item.y), horizontalPixels(item.width), verticalPixels(item.height),
                                   dialog, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(item.id)), instance,
                                   const_cast<void*>(item.creationData));
    if (control == nullptr) {
        return false;
    }
    if (font != nullptr) {
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
    }
    const bool isDefault = (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
    DialogState* state = dialogState(dialog);
    if (isDefault && state != nullptr) {
        becomeDefault(dialog, *state, item.id);
    }
    return true;
}

bool createControls(HINSTANCE instance, HWND dialog, const DialogTemplate& source, HFONT font) {
    const bool forgiving = (source.style & kNoFailCreate) != 0;
    // A control tells the dialog procedure about its creation, which may destroy the dialog.
    return std::all_of(source.items.begin(), source.items.end(), [&](const DialogItem& item) {
        return (createControl(instance, dialog, item, font) || forgiving) && IsWindow(dialog);
    });
}

void selectAndFocus(HWND control) {
    if ((SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
        SendMessageA(control, EM_SETSEL, 0, std::numeric_limits<LONG>::max());
    }
    SetFocus(control);
}

// A procedure that returns TRUE from WM_INITDIALOG leaves the focus to us. A page that is not shown yet gets none.
void initialise(HWND dialog, const DialogTemplate& source, LPARAM param) {
    // A dialog of the system's own that has no memory to begin does not come up half made.
    const LRESULT wantsFocus =
        sendUnguarded(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(firstFocus(dialog)), param);
    const bool hiddenPage = (source.style & DS_CONTROL) != 0 && (source.style & WS_VISIBLE) == 0;
    if (wantsFocus == 0 || hiddenPage || !IsWindow(dialog)) {
        return;
    }
    // Asked again, because the procedure may have enabled, disabled or created controls.
    HWND focus = firstFocus(dialog);
    if (focus != nullptr) {
        selectAndFocus(focus);
    }
}

}  // namespace

POINT centredPosition(SIZE window, HWND owner) {
    RECT around{};
    HWND top = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    const bool isOverOwner = top != nullptr && IsWindowVisible(top);
    if (isOverOwner) {
        GetWindowRect(top, &around);
    }
    const RECT area = workArea(around);
    if (!isOverOwner) {
        around = area;
    }
    const POINT at = {(around.left + around.right - window.cx) / 2, (around.top + around.bottom - window.cy) / 2};
    return inside(area, at, window);
}

HWND createDialog(HINSTANCE instance, const DialogTemplate& source, HWND owner, DLGPROC proc, LPARAM param,
                  HWND disabledOwner) {
    HWND dialog = createWindow(instance, source, owner);
    if (dialog == nullptr) {
        return nullptr;
    }
    try {
        HFONT font = (source.style & DS_SETFONT) != 0 ? dialogFont(source.pointSize) : nullptr;
        DialogState& state = addDialogState(dialog);
        state.font = font;
        state.disabledOwner = disabledOwner;
        SetWindowLongPtrA(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(proc));
        if (font != nullptr) {
            SendMessageA(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        }
        if (!createControls(instance, dialog, source, font)) {
            const KeptError error;
            DestroyWindow(dialog);
            return nullptr;
        }
        initialise(dialog, source, param);
    } catch (const std::bad_alloc&) {
        DestroyWindow(dialog);
        throw;
    }
    if (!IsWindow(dialog)) {
        return nullptr;
    }
    if ((source.style & WS_VISIBLE) != 0 && (GetWindowLongA(dialog, GWL_STYLE) & WS_VISIBLE) == 0) {
        ShowWindow(dialog, SW_SHOWNORMAL);
    }
    return dialog;
}

}  // namespace platform

HWND CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate, HWND owner, DLGPROC proc,
                                LPARAM param) {
    return platform::orOutOfMemory(
        [&]() -> HWND {
            const auto source = platform::parseDialogTemplate(platform::dialogInMemory(dialogTemplate));
            return source ? platform::createDialog(instance, *source, owner, proc, param) : nullptr;
        },
        nullptr);
}
