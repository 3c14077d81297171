// The edit control in which a label is changed. It tells its list what becomes of it by WM_COMMAND; the keys that end
// it are taken by editProc.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_parts.h"
#include "platform/graphics/scale.h"

#include <algorithm>
#include <new>

namespace platform {
namespace {

// Pixels at 96 dots an inch.
constexpr int kEditOverlap = 2;  // By which the edit begins before the label.
constexpr int kEditRise = 1;     // By which it is higher than the row, above and below.
constexpr int kEditSpare = 26;   // What it is wider than its text.
constexpr int kEditMargin = 3;   // Beside its text.

}  // namespace

LRESULT CALLBACK ListView::editProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const list = reinterpret_cast<ListView*>(GetWindowLongPtrA(GetParent(edit), 0));
    if (!list) {
        return DefWindowProcA(edit, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY && list->edit_ == edit) {
        list->edit_ = nullptr;
        list->editRow_ = kNone;
    }
    if (message == WM_GETDLGCODE) {
        return DLGC_WANTARROWS | DLGC_WANTMESSAGE;
    }
    if (message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
        list->endEdit(wParam == VK_RETURN);
        return 0;
    }
    return CallWindowProcA(list->editProc_, edit, message, wParam, lParam);
}

// -1 gives an edit up. Returns null when no edit has begun.
HWND ListView::onLvmEditLabel(int row) {
    const HWND window = window_;
    if (endingEdit_ || !endEdit(row != kNone) || !has(LVS_EDITLABELS) || !items_.has(row) || !selectAlone(row) ||
        !items_.has(row)) {
        return nullptr;
    }
    onLvmEnsureVisible(row, false);
    if (!isAlive(window)) {
        return nullptr;
    }
    std::string text = items_.at(row).text;
    HWND edit = CreateWindowExA(0, "Edit", text.c_str(), WS_CHILD | WS_BORDER | WS_CLIPSIBLINGS | ES_AUTOHSCROLL, 0, 0,
                                0, 0, window, nullptr, nullptr, nullptr);
    if (!edit) {
        if (GetLastError() == ERROR_NOT_ENOUGH_MEMORY) {
            throw std::bad_alloc();
        }
        return nullptr;
    }
    SendMessageA(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    editProc_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&editProc)));
    edit_ = edit;
    editRow_ = row;
    placeEdit();
    SendMessageA(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                 MAKELPARAM(toScale(kEditMargin), toScale(kEditMargin)));
    NMLVDISPINFOA begin{};
    begin.item.iItem = row;
    begin.item.mask = LVIF_TEXT;
    begin.item.pszText = text.data();
    begin.item.cchTextMax = static_cast<int>(text.size()) + 1;
    begin.item.lParam = items_.at(row).param;
    const bool refused = send(LVN_BEGINLABELEDITA, begin) != 0;
    if (!isAlive(window) || edit_ != edit) {
        return nullptr;
    }
    if (refused) {
        edit_ = nullptr;
        editRow_ = kNone;
        DestroyWindow(edit);
        return nullptr;
    }
    SendMessageA(edit, EM_SETSEL, 0, -1);
    ShowWindow(edit, SW_SHOWNA);
    SetFocus(edit);
    return isAlive(window) ? edit_ : nullptr;
}

void ListView::onEditCommand(HWND control, UINT code) {
    if (!control || control != edit_) {
        return;
    }
    if (code == EN_KILLFOCUS) {
        endEdit(true);
    } else if (code == EN_UPDATE) {
        placeEdit();
    }
}

// As wide as its text needs and the list allows.
void ListView::placeEdit() {
    if (!edit_ || !items_.has(editRow_)) {
        return;
    }
    const std::string text = windowText(edit_);
    const WindowDc dc(window_);
    SIZE size{};
    {
        const SelectedFont selected(dc, font_);
        GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    }
    const RECT label = labelRect(editRow_);
    const int left = label.left - toScale(kEditOverlap);
    const int width =
        std::min(static_cast<int>(size.cx) + toScale(kEditSpare), static_cast<int>(rowsRect().right) - left);
    SetWindowPos(edit_, nullptr, left, label.top - toScale(kEditRise), std::max(width, 0),
                 rowHeight_ + 2 * toScale(kEditRise), SWP_NOZORDER | SWP_NOACTIVATE);
}

bool ListView::endEdit(bool accept) {
    if (!edit_ || endingEdit_) {
        return true;
    }
    const HWND window = window_;
    const HWND edit = edit_;
    const int row = editRow_;
    endingEdit_ = true;
    std::string text = windowText(edit);
    NMLVDISPINFOA end{};
    end.item.mask = LVIF_TEXT;
    end.item.iItem = row;
    end.item.pszText = accept ? text.data() : nullptr;
    end.item.cchTextMax = accept ? static_cast<int>(text.size()) + 1 : 0;
    end.item.lParam = items_.has(row) ? items_.at(row).param : 0;
    const bool stored = send(LVN_ENDLABELEDITA, end) != 0;
    if (isAlive(window) && accept && stored) {
        setText(editRow_, 0, text);
    }
    if (!isAlive(window)) {
        return false;
    }
    edit_ = nullptr;
    editRow_ = kNone;
    endingEdit_ = false;
    if (GetFocus() == edit) {
        SetFocus(window);
    }
    if (IsWindow(edit)) {
        DestroyWindow(edit);
    }
    return isAlive(window);
}

}  // namespace platform
