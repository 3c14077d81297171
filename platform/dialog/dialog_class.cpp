// The dialog class: what a dialog does with messages that its own procedure leaves alone.
#include "platform/dialog/dialog_state.h"
#include "platform/window/builtin_classes.h"

#include <windows.h>

namespace platform {

namespace {

LRESULT onWmEraseBkgnd(HWND dialog, WPARAM wParam) {
    auto* brush =
        reinterpret_cast<HBRUSH>(SendMessageA(dialog, WM_CTLCOLORDLG, wParam, reinterpret_cast<LPARAM>(dialog)));
    if (brush == nullptr) {
        brush = GetSysColorBrush(COLOR_3DFACE);
    }
    RECT client{};
    GetClientRect(dialog, &client);
    FillRect(reinterpret_cast<HDC>(wParam), &client, brush);
    return TRUE;
}

void saveFocus(HWND dialog, DialogState& state) {
    HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus)) {
        state.savedFocus = focus;
    }
}

// After EndDialog the dialog keeps the focus itself until it is gone, so that no control is told about a last one.
void restoreFocus(HWND dialog, DialogState& state, bool activating) {
    if (state.ended) {
        return;
    }
    HWND focus = state.savedFocus;
    if (!IsWindow(focus) || !IsChild(dialog, focus)) {
        focus = activating ? nullptr : firstFocus(dialog);
    }
    state.savedFocus = nullptr;
    if (focus == nullptr) {
        return;
    }
    // Coming back to the dialog leaves the selection of an edit as it was.
    if (activating) {
        SetFocus(focus);
    } else {
        focusControl(focus);
    }
}

LRESULT onWmActivate(HWND dialog, WPARAM wParam) {
    if (DialogState* state = dialogState(dialog)) {
        if (LOWORD(wParam) != WA_INACTIVE) {
            restoreFocus(dialog, *state, true);
        } else {
            saveFocus(dialog, *state);
        }
    }
    return 0;
}

LRESULT onWmSetFocus(HWND dialog) {
    if (DialogState* state = dialogState(dialog)) {
        restoreFocus(dialog, *state, false);
    }
    return 0;
}

LRESULT onWmShowWindow(HWND dialog, WPARAM wParam, LPARAM lParam) {
    DialogState* state = dialogState(dialog);
    if (wParam == FALSE && state != nullptr) {
        saveFocus(dialog, *state);
    }
    return DefWindowProcA(dialog, WM_SHOWWINDOW, wParam, lParam);
}

LRESULT onWmNextDlgCtl(HWND dialog, WPARAM wParam, LPARAM lParam) {
    HWND target = LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                      : GetNextDlgTabItem(dialog, GetFocus(), wParam != 0 ? TRUE : FALSE);
    if (target != nullptr) {
        focusControl(target);
    }
    // Controls that lose or get the focus may have closed the dialog.
    if (const DialogState* state = dialogState(dialog)) {
        moveDefaultLook(dialog, *state, target);
    }
    return 0;
}

LRESULT onDmSetDefId(HWND dialog, WPARAM wParam) {
    DialogState* state = dialogState(dialog);
    if (state == nullptr || state->ended) {
        return TRUE;
    }
    state->defaultId = static_cast<UINT>(wParam);
    moveDefaultLook(dialog, *state, GetDlgItem(dialog, static_cast<int>(wParam)));
    return TRUE;
}

LRESULT onDmGetDefId(HWND dialog) {
    const DialogState* state = dialogState(dialog);
    if (state == nullptr || state->ended || state->defaultId == 0) {
        return 0;
    }
    return MAKELRESULT(state->defaultId, DC_HASDEFID);
}

LRESULT onWmClose(HWND dialog) {
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
    return 0;
}

// A click on the dialog's own area closes a drop-down list that the focus has open.
LRESULT onWmLButtonDown(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND focus = GetFocus();
    if (focus != nullptr && SendMessageA(focus, CB_SHOWDROPDOWN, FALSE, 0) == 0) {
        SendMessageA(GetParent(focus), CB_SHOWDROPDOWN, FALSE, 0);
    }
    return DefWindowProcA(dialog, message, wParam, lParam);
}

LRESULT onWmNcDestroy(HWND dialog, WPARAM wParam, LPARAM lParam) {
    removeDialogState(dialog);
    return DefWindowProcA(dialog, WM_NCDESTROY, wParam, lParam);
}

LRESULT defaultDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return onWmEraseBkgnd(dialog, wParam);
        case WM_NCDESTROY:
            return onWmNcDestroy(dialog, wParam, lParam);
        case WM_SHOWWINDOW:
            return onWmShowWindow(dialog, wParam, lParam);
        case WM_ACTIVATE:
            return onWmActivate(dialog, wParam);
        case WM_SETFOCUS:
            return onWmSetFocus(dialog);
        case DM_SETDEFID:
            return onDmSetDefId(dialog, wParam);
        case DM_GETDEFID:
            return onDmGetDefId(dialog);
        case WM_NEXTDLGCTL:
            return onWmNextDlgCtl(dialog, wParam, lParam);
        case WM_LBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
            return onWmLButtonDown(dialog, message, wParam, lParam);
        case WM_GETFONT: {
            const DialogState* state = dialogState(dialog);
            return state != nullptr ? reinterpret_cast<LRESULT>(state->font) : 0;
        }
        case WM_CLOSE:
            return onWmClose(dialog);
        case WM_INITDIALOG:
        case WM_VKEYTOITEM:
        case WM_COMPAREITEM:
        case WM_CHARTOITEM:
            return 0;
        default:
            return DefWindowProcA(dialog, message, wParam, lParam);
    }
}

// For these a dialog procedure returns the answer itself; for all others it stands in DWLP_MSGRESULT.
bool answersDirectly(UINT message) {
    switch (message) {
        case WM_INITDIALOG:
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
        case WM_COMPAREITEM:
            return true;
        default:
            return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    }
}

}  // namespace

void registerDialogClass() {
    WNDCLASSA dialogClass{};
    dialogClass.style = CS_GLOBALCLASS | CS_SAVEBITS | CS_DBLCLKS;
    dialogClass.lpfnWndProc = DefDlgProcA;
    dialogClass.cbWndExtra = DLGWINDOWEXTRA;
    dialogClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    dialogClass.lpszClassName = "#32770";
    RegisterClassA(&dialogClass);
}

}  // namespace platform

LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const proc = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(dialog, DWLP_DLGPROC));
    INT_PTR handled = 0;
    if (proc != nullptr) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 0);
        handled = proc(dialog, message, wParam, lParam);
    }
    if (!IsWindow(dialog)) {
        return handled;
    }
    if (handled == 0) {
        return platform::defaultDialogProc(dialog, message, wParam, lParam);
    }
    return platform::answersDirectly(message) ? handled : GetWindowLongPtrA(dialog, DWLP_MSGRESULT);
}
