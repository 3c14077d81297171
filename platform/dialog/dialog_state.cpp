// Dialog states, and the steps that creation, dialog class and keyboard handling share.
#include "platform/dialog/dialog_state.h"

#include "platform/graphics/window_dc.h"

#include <unordered_map>

namespace platform {

namespace {

constexpr int kFontPoints = 8;  // Of every dialog.

std::unordered_map<HWND, DialogState>& states() {
    static std::unordered_map<HWND, DialogState> all;
    return all;
}

UINT dialogCode(HWND control) {
    return static_cast<UINT>(SendMessageA(control, WM_GETDLGCODE, 0, 0));
}

bool isReachable(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    return (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

// The button that looks like the default one, on the dialog or on a nested page.
HWND shownDefault(HWND parent) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if ((dialogCode(child) & DLGC_DEFPUSHBUTTON) != 0) {
            return child;
        }
        if ((GetWindowLongA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0 && isReachable(child)) {
            HWND nested = shownDefault(child);
            if (nested != nullptr) {
                return nested;
            }
        }
    }
    return nullptr;
}

SIZE baseUnits() {
    static const SIZE base = dialogBaseUnits(kFontPoints);
    return base;
}

// Rounds halves away from zero, as all positions of dialogs are rounded.
int scaled(int value, int numerator, int denominator) {
    const int product = value * numerator;
    const int half = product < 0 ? -denominator / 2 : denominator / 2;
    return (product + half) / denominator;
}

}  // namespace

DialogState* dialogState(HWND dialog) {
    const auto found = states().find(dialog);
    return found != states().end() ? &found->second : nullptr;
}

DialogState& addDialogState(HWND dialog) {
    return states()[dialog];
}

void removeDialogState(HWND dialog) {
    states().erase(dialog);
}

void focusControl(HWND control) {
    if ((dialogCode(control) & DLGC_HASSETSEL) != 0) {
        SendMessageA(control, EM_SETSEL, 0, -1);
    }
    SetFocus(control);
}

HWND firstFocus(HWND dialog) {
    HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return first != nullptr ? first : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

void moveDefaultLook(HWND dialog, const DialogState& state, HWND control) {
    const bool isPush = control != nullptr && (dialogCode(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
    HWND next = isPush || state.defaultId == 0 ? control : GetDlgItem(dialog, static_cast<int>(state.defaultId));
    HWND shown = shownDefault(dialog);
    if (shown == next) {
        return;
    }
    if (shown != nullptr) {
        SendMessageA(shown, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    }
    if (next != nullptr && (dialogCode(next) & DLGC_UNDEFPUSHBUTTON) != 0) {
        SendMessageA(next, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

int horizontalPixels(int units) {
    return scaled(units, baseUnits().cx, 4);
}

int verticalPixels(int units) {
    return scaled(units, baseUnits().cy, 8);
}

}  // namespace platform
