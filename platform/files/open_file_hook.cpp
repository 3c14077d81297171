// The caller's part of the open-file dialog: the child dialog from its template and the hook procedure that serves it.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/files/open_file_dialog.h"

namespace platform {

// With a hook procedure alone the child dialog is empty. False when the template cannot be read.
bool OpenFileDialog::readChildTemplate() {
    if ((ofn_.Flags & OFN_ENABLETEMPLATEHANDLE) != 0) {
        const auto* inMemory = reinterpret_cast<LPCDLGTEMPLATEA>(ofn_.hInstance);
        childTemplate_ = inMemory != nullptr ? parseDialogTemplate(dialogInMemory(inMemory)) : std::nullopt;
    } else if ((ofn_.Flags & OFN_ENABLETEMPLATE) != 0) {
        childTemplate_ = parseDialogTemplate(dialogResource(ofn_.hInstance, ofn_.lpTemplateName));
    } else {
        if ((ofn_.Flags & OFN_ENABLEHOOK) != 0 && ofn_.lpfnHook != nullptr) {
            childTemplate_.emplace();
        }
        return true;
    }
    return childTemplate_.has_value();
}

void OpenFileDialog::createChild() {
    if (!childTemplate_) {
        return;
    }
    DialogTemplate source = *childTemplate_;
    source.style = (source.style & ~static_cast<DWORD>(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE)) | WS_CHILD |
                   WS_CLIPSIBLINGS | DS_CONTROL;
    source.exStyle |= WS_EX_CONTROLPARENT;
    HWND dialog = window_;
    HWND child = createDialog(ofn_.hInstance, source, dialog, childProc, reinterpret_cast<LPARAM>(&ofn_));
    if (!IsWindow(dialog)) {
        return;
    }
    child_ = child;
    if (child_ != nullptr) {
        ShowWindow(child_, SW_SHOWNA);
    }
}

// The hook procedure gets what its child dialog gets, from the font on.
INT_PTR CALLBACK OpenFileDialog::childProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* self = reinterpret_cast<OpenFileDialog*>(GetWindowLongPtrA(GetParent(child), DWLP_USER));
    const bool hooked = self != nullptr && (self->ofn_.Flags & OFN_ENABLEHOOK) != 0 && self->ofn_.lpfnHook != nullptr;
    return hooked ? static_cast<INT_PTR>(self->ofn_.lpfnHook(child, message, wParam, lParam)) : FALSE;
}

int OpenFileDialog::childHeight() const {
    return childTemplate_ ? verticalPixels(childTemplate_->height) : 0;
}

int OpenFileDialog::childWidth() const {
    return childTemplate_ ? horizontalPixels(childTemplate_->width) : 0;
}

LRESULT OpenFileDialog::notifyHook(UINT code) {
    if (child_ == nullptr) {
        return 0;
    }
    OFNOTIFYA notification{};
    notification.hdr.hwndFrom = window_;
    notification.hdr.code = code;
    notification.lpOFN = &ofn_;
    return SendMessageA(child_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

}  // namespace platform
