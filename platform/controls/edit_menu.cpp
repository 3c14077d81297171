// The context menu of the single-line edit.
#include "platform/controls/combo_parts.h"
#include "platform/controls/edit.h"

namespace platform {
namespace {

// The number of an entry is the message that carries it out.
struct Entry {
    UINT command;
    const char* text;  // Null for a line between entries.
};

constexpr Entry kEntries[] = {
    {EM_UNDO, "&\xC5ngra"},    {0, nullptr},           {WM_CUT, "Klipp &ut"}, {WM_COPY, "&Kopiera"},
    {WM_PASTE, "Klistra &in"}, {WM_CLEAR, "&Ta bort"}, {0, nullptr},          {EM_SETSEL, "&Markera allt"},
};

// A point of the screen, or the middle of the window for a menu that was asked for by a key.
POINT menuPoint(HWND window, LPARAM lParam) {
    POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    if (at.x == -1 && at.y == -1) {
        RECT client;
        GetClientRect(window, &client);
        at = {client.right / 2, client.bottom / 2};
        ClientToScreen(window, &at);
    }
    return at;
}

}  // namespace

bool Edit::canDo(UINT command) const {
    const bool readOnly = has(ES_READONLY);
    switch (command) {
        case EM_UNDO:
            return content_.canUndo() && !readOnly;
        case WM_CUT:
            return content_.hasSelection() && !has(ES_PASSWORD) && !readOnly;
        case WM_COPY:
            return content_.hasSelection() && !has(ES_PASSWORD);
        case WM_PASTE:
            return IsClipboardFormatAvailable(CF_TEXT) && !readOnly;
        case WM_CLEAR:
            return content_.hasSelection() && !readOnly;
        default:
            return content_.selectionStart() > 0 || content_.selectionEnd() < content_.length();
    }
}

void Edit::onWmContextMenu(LPARAM lParam) {
    const HWND window = window_;
    if (!focused_) {
        SetFocus(window);
    }
    // The field that was to lose the focus may have taken it back.
    if (!IsWindow(window) || !focused_) {
        return;
    }
    if (listIsOpen()) {
        SendMessageA(combo_, kComboFlip, 0, 0);  // The menu takes the mouse from the list, which cannot stay open.
        if (!IsWindow(window)) {
            return;
        }
    }
    const HMENU menu = CreatePopupMenu();
    for (const Entry& entry : kEntries) {
        const UINT flags = !entry.text ? MF_SEPARATOR : canDo(entry.command) ? MF_STRING : MF_GRAYED;
        AppendMenuA(menu, flags, entry.command, entry.text);
    }
    const POINT at = menuPoint(window, lParam);
    const auto command = static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, window, nullptr));
    DestroyMenu(menu);
    if (command && IsWindow(window)) {
        SendMessageA(window, command, 0, command == EM_SETSEL ? -1 : 0);
    }
}

}  // namespace platform
