// The modal loop of dialogs.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/window/out_of_memory.h"

#include <windows.h>

namespace platform {

namespace {

// Takes the next message. When there is none yet, the dialog is shown, and its owner is told that it is idle.
bool nextMessage(HWND dialog, HWND owner, MSG& message, bool& shown) {
    if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        return message.message != WM_QUIT;
    }
    if (!shown) {
        ShowWindow(dialog, SW_SHOWNORMAL);
        shown = true;
    }
    if ((GetWindowLongA(dialog, GWL_STYLE) & DS_NOIDLEMSG) == 0) {
        SendMessageA(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(dialog));
    }
    return GetMessageA(&message, nullptr, 0, 0) > 0;
}

bool isRunning(HWND dialog) {
    const DialogState* state = dialogState(dialog);
    return state != nullptr && !state->ended;
}

// Returns when the dialog has ended or is gone; a quit message is left for the loop outside.
void runLoop(HWND dialog, HWND owner) {
    bool shown = false;
    while (isRunning(dialog)) {
        MSG message{};
        if (!nextMessage(dialog, owner, message, shown)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        // What the owner did with its idle time may have ended the dialog.
        if (isRunning(dialog) && !IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

// A press that leads to a dialog, such as one that leaves a wrong field, must not keep the mouse: the dialog's own
// buttons would not get theirs.
void endMouseCapture() {
    if (HWND captured = GetCapture()) {
        SendMessageA(captured, WM_CANCELMODE, 0, 0);
    }
}

}  // namespace

INT_PTR runDialog(HINSTANCE instance, const DialogTemplate& source, HWND owner, DLGPROC proc, LPARAM param) {
    endMouseCapture();
    HWND top = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    HWND disabled = top != nullptr && IsWindowEnabled(top) ? top : nullptr;
    if (disabled != nullptr) {
        EnableWindow(disabled, FALSE);
    }
    HWND dialog = orOutOfMemory([&] { return createDialog(instance, source, top, proc, param, disabled); }, nullptr);
    if (dialog != nullptr) {
        runLoop(dialog, top);
    }
    const DialogState* state = dialog != nullptr ? dialogState(dialog) : nullptr;
    const bool ended = state != nullptr && state->ended;
    // EndDialog has enabled the owner; a dialog that was never created, destroyed or left behind has not.
    if (disabled != nullptr && !ended) {
        const KeptError error;
        EnableWindow(disabled, TRUE);
    }
    if (state == nullptr) {
        return dialog == nullptr ? -1 : 0;
    }
    const INT_PTR result = state->result;
    DestroyWindow(dialog);
    return result;
}

}  // namespace platform

BOOL EndDialog(HWND dialog, INT_PTR result) {
    platform::DialogState* state = platform::dialogState(dialog);
    if (state == nullptr) {
        return FALSE;
    }
    state->result = result;
    state->ended = true;
    HWND owner = GetWindow(dialog, GW_OWNER);
    const bool wasActive = GetActiveWindow() == dialog;
    // The owner is enabled before the dialog vanishes: else another program's window would be activated.
    if (state->disabledOwner != nullptr) {
        EnableWindow(state->disabledOwner, TRUE);
    }
    if (IsChild(dialog, GetFocus())) {
        SetFocus(dialog);
    }
    SetWindowPos(dialog, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    if (wasActive && owner != nullptr) {
        SetActiveWindow(owner);
    }
    // Wakes the modal loop, which may be waiting.
    PostMessageA(dialog, WM_NULL, 0, 0);
    return TRUE;
}

INT_PTR DialogBoxIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate, HWND owner, DLGPROC proc,
                                LPARAM param) {
    return platform::orOutOfMemory(
        [&]() -> INT_PTR {
            const auto source = platform::parseDialogTemplate(platform::dialogInMemory(dialogTemplate));
            return source ? platform::runDialog(instance, *source, owner, proc, param) : -1;
        },
        -1);
}
