// Messages of the single-line edit, its text and its notifications.
#include "platform/controls/edit.h"

#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

constexpr int kUnlimited = 0x7FFFFFFE;

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

}  // namespace

void registerEditClass() {
    registerControlClass<Edit>("Edit", CS_PARENTDC, IDC_IBEAM);
}

bool Edit::has(DWORD style) const {
    return (styleOf(window_) & style) != 0;
}

bool Edit::notify(UINT code) {
    const HWND window = window_;
    notifyCommand(window, code);
    return IsWindow(window) != FALSE;
}

bool Edit::listIsOpen() const {
    return combo_ && SendMessageA(combo_, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

LRESULT Edit::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (onSelectionMessage(message, wParam, lParam, result) || onEditMessage(message, wParam, lParam, result) ||
        onMouse(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
        case WM_NCCREATE:
            return onWmNcCreate(lParam);
        case WM_CREATE:
            onWmCreate(*reinterpret_cast<const CREATESTRUCTA*>(lParam));
            return 0;
        case WM_SETTEXT:
            return onWmSetText(reinterpret_cast<LPCSTR>(lParam));
        case WM_GETTEXT:
            return onWmGetText(wParam, reinterpret_cast<LPSTR>(lParam));
        case WM_GETTEXTLENGTH:
            return content_.length();
        case WM_GETDLGCODE:
            return onWmGetDlgCode(reinterpret_cast<const MSG*>(lParam));
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(view_.font());
        case WM_SETFOCUS:
            onWmSetFocus();
            return 0;
        case WM_KILLFOCUS:
            onWmKillFocus();
            return 0;
        case WM_ENABLE:
        case WM_STYLECHANGED:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_SIZE:
            view_.layout();
            showCaret();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers the whole field.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_CHAR:
            onWmChar(static_cast<char>(wParam));
            return TRUE;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return onKey(message, wParam, lParam);
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT Edit::onKey(UINT message, WPARAM wParam, LPARAM lParam) {
    if (onComboKey(message, static_cast<UINT>(wParam), lParam)) {
        return 0;
    }
    if (message == WM_SYSKEYDOWN) {
        return DefWindowProcA(window_, message, wParam, lParam);
    }
    onWmKeyDown(static_cast<UINT>(wParam));
    return 0;
}

// The mouse. False for any other message.
bool Edit::onMouse(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_LBUTTONDOWN:
            onWmLButtonDown(pointOf(lParam), (wParam & MK_SHIFT) != 0);
            result = TRUE;
            return true;
        case WM_LBUTTONDBLCLK:
            onWmLButtonDblClk();
            result = TRUE;
            return true;
        case WM_MOUSEMOVE:
            onWmMouseMove(pointOf(lParam));
            return true;
        case WM_LBUTTONUP:
            onWmLButtonUp();
            return true;
        case WM_MBUTTONDOWN:
            onWmMButtonDown(pointOf(lParam));
            return true;
        case WM_CAPTURECHANGED:
            tracking_ = false;
            return true;
        case WM_CONTEXTMENU:
            onWmContextMenu(lParam);
            return true;
        case WM_MOUSEWHEEL:
            result = combo_ ? SendMessageA(combo_, listIsOpen() ? kComboListWheel : WM_MOUSEWHEEL, wParam, lParam) : 0;
            return true;
        default:
            return false;
    }
}

// Messages about the selection, and those of the clipboard. False for any other.
bool Edit::onSelectionMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = TRUE;
    switch (message) {
        case EM_GETSEL:
            result = onEmGetSel(reinterpret_cast<DWORD*>(wParam), reinterpret_cast<DWORD*>(lParam));
            return true;
        case EM_SETSEL:
            onEmSetSel(static_cast<int>(wParam), static_cast<int>(lParam));
            return true;
        case EM_REPLACESEL:
            replaceSelection(lParam ? reinterpret_cast<LPCSTR>(lParam) : "", wParam ? Change::Typed : Change::Replaced);
            return true;
        case EM_SCROLLCARET:
            showCaret();
            return true;
        case EM_POSFROMCHAR:
            result = onEmPosFromChar(static_cast<int>(wParam));
            return true;
        case WM_CUT:
            onWmCut();
            result = 0;
            return true;
        case WM_COPY:
            onWmCopy();
            result = 0;
            return true;
        case WM_PASTE:
            onWmPaste();
            result = 0;
            return true;
        case WM_CLEAR:
            onWmClear();
            result = 0;
            return true;
        default:
            return false;
    }
}

// The other messages of edits. False for any other.
bool Edit::onEditMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = TRUE;
    switch (message) {
        case EM_GETMODIFY:
            result = modified_;
            return true;
        case EM_SETMODIFY:
            modified_ = wParam != 0;
            result = 0;
            return true;
        case EM_LINELENGTH:
            result = content_.length();
            return true;
        case EM_SETLIMITTEXT:
            limit_ = wParam == 0 || wParam > kUnlimited ? kUnlimited : static_cast<int>(wParam);
            result = 0;
            return true;
        case EM_GETLIMITTEXT:
            result = limit_;
            return true;
        case EM_CANUNDO:
            result = content_.canUndo();
            return true;
        case EM_UNDO:
        case WM_UNDO:
            result = onEmUndo();
            return true;
        case EM_SETREADONLY:
            onEmSetReadOnly(wParam != 0);
            return true;
        case EM_SETMARGINS:
            view_.setMargins(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
            InvalidateRect(window_, nullptr, FALSE);
            return true;
        default:
            return false;
    }
}

LRESULT Edit::onWmNcCreate(LPARAM lParam) {
    const auto& create = *reinterpret_cast<const CREATESTRUCTA*>(lParam);
    combo_ = static_cast<DWORD>(create.style) & kComboEditStyle ? create.hwndParent : nullptr;
    // A border without a client edge belongs to the client area: the style bit goes and the edit draws it.
    if ((create.style & WS_BORDER) && !(create.dwExStyle & WS_EX_CLIENTEDGE)) {
        view_.setFramed(true);
        SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(styleOf(window_) & ~static_cast<DWORD>(WS_BORDER)));
    }
    return DefWindowProcA(window_, WM_NCCREATE, 0, lParam);
}

void Edit::onWmCreate(const CREATESTRUCTA& create) {
    view_.setFont(nullptr);
    if (create.lpszName && *create.lpszName) {
        replaceSelection(create.lpszName, Change::Set);
        content_.select(0, 0);
        modified_ = true;  // As observed; only a later set-text makes it unmodified.
    }
}

LRESULT Edit::onWmSetText(LPCSTR text) {
    content_.select(0, content_.length());
    replaceSelection(text ? text : "", Change::Set);
    modified_ = false;
    select(0, 0);
    // The same text is told like any other; a combo box's field says nothing about texts that a program sets.
    if (!combo_ && notify(EN_UPDATE)) {
        notify(EN_CHANGE);
    }
    return TRUE;
}

LRESULT Edit::onWmGetText(std::size_t size, LPSTR buffer) const {
    if (size == 0 || !buffer) {
        return 0;
    }
    const std::size_t count = std::min(size - 1, content_.text().size());
    std::memcpy(buffer, content_.text().data(), count);
    buffer[count] = '\0';
    return static_cast<LRESULT>(count);
}

LRESULT Edit::onWmGetDlgCode(const MSG* message) const {
    LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
    const bool closesList =
        message && message->message == WM_KEYDOWN && (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    if (closesList && listIsOpen()) {
        code |= DLGC_WANTMESSAGE;
    }
    return code;
}

void Edit::onWmSetFont(HFONT font, bool redraw) {
    view_.setFont(font);
    view_.scrollToCaret();
    if (focused_) {
        DestroyCaret();
        CreateCaret(window_, nullptr, lineWidth(), view_.lineHeight());
        SetCaretPos(view_.xOf(content_.caret()), view_.textRect().top);
        ShowCaret(window_);
    }
    if (redraw) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void Edit::onWmSetFocus() {
    focused_ = true;
    view_.invalidate(content_.selectionStart(), content_.selectionEnd());
    CreateCaret(window_, nullptr, lineWidth(), view_.lineHeight());
    SetCaretPos(view_.xOf(content_.caret()), view_.textRect().top);
    ShowCaret(window_);
    notify(EN_SETFOCUS);
}

void Edit::onWmKillFocus() {
    focused_ = false;
    DestroyCaret();
    view_.invalidate(content_.selectionStart(), content_.selectionEnd());
    notify(EN_KILLFOCUS);
}

bool Edit::selectionShown() const {
    return focused_ || has(ES_NOHIDESEL);
}

void Edit::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) { view_.paint(dc, selectionShown()); });
}

void Edit::select(int anchor, int caret) {
    const int oldStart = content_.selectionStart();
    const int oldEnd = content_.selectionEnd();
    content_.select(anchor, caret);
    if (selectionShown() && (oldStart != content_.selectionStart() || oldEnd != content_.selectionEnd())) {
        view_.invalidate(oldStart, oldEnd);
        view_.invalidate(content_.selectionStart(), content_.selectionEnd());
    }
    showCaret();
}

void Edit::showCaret() {
    if (view_.scrollToCaret()) {
        InvalidateRect(window_, nullptr, FALSE);
    }
    if (focused_) {
        SetCaretPos(view_.xOf(content_.caret()), view_.textRect().top);
    }
}

// Cuts what is to be inserted at the limit, and at the end of a field that does not scroll. False when the window died.
bool Edit::fitInsertion(std::string& text, Change change) {
    if (change == Change::Set) {
        return true;
    }
    const int kept = content_.length() - (content_.selectionEnd() - content_.selectionStart());
    if (kept + static_cast<int>(text.size()) > limit_) {
        text.resize(static_cast<std::size_t>(std::max(limit_ - kept, 0)));
        if (!notify(EN_MAXTEXT)) {
            return false;
        }
    }
    if (has(ES_AUTOHSCROLL) || text.empty()) {
        return true;
    }
    const auto start = static_cast<std::size_t>(content_.selectionStart());
    const std::size_t wanted = text.size();
    std::string candidate = content_.text();
    candidate.replace(start, content_.selected().size(), text);
    while (!text.empty() && !view_.fits(candidate)) {
        text.pop_back();
        candidate.erase(start + text.size(), 1);
    }
    return text.size() == wanted || notify(EN_MAXTEXT);
}

void Edit::replaceQuietly(std::string_view text, bool undoable) {
    const int start = content_.selectionStart();
    view_.invalidateFrom(start);
    content_.replaceSelection(text, undoable);
    view_.textChanged();
    view_.invalidateFrom(start);
    showCaret();
}

bool Edit::replaceSelection(std::string_view text, Change change) {
    if (text.empty() && !content_.hasSelection()) {
        return true;
    }
    std::string insertion = has(ES_UPPERCASE) ? upperCase(text) : std::string(text);
    if (!fitInsertion(insertion, change)) {
        return false;
    }
    replaceQuietly(insertion, change == Change::Typed);
    modified_ = true;
    return change == Change::Set || (notify(EN_UPDATE) && notify(EN_CHANGE));
}

LRESULT Edit::onEmUndo() {
    if (has(ES_READONLY)) {
        return TRUE;
    }
    const EditText::UndoStep step = content_.undoStep();
    content_.selectInserted();
    content_.forgetUndo();
    if (!replaceSelection(step.text, Change::Typed)) {
        return TRUE;
    }
    content_.selectInserted();
    showCaret();
    InvalidateRect(window_, nullptr, FALSE);
    notify(EN_CHANGE);  // A second time, now that the selection is set.
    return TRUE;
}

void Edit::onEmSetSel(int start, int end) {
    if (start == -1) {
        start = end = content_.caret();
    }
    const auto position = [this](int value) { return value < 0 ? content_.length() : value; };
    select(position(start), position(end));
}

LRESULT Edit::onEmGetSel(DWORD* start, DWORD* end) const {
    if (start) {
        *start = static_cast<DWORD>(content_.selectionStart());
    }
    if (end) {
        *end = static_cast<DWORD>(content_.selectionEnd());
    }
    return MAKELRESULT(content_.selectionStart(), content_.selectionEnd());
}

LRESULT Edit::onEmPosFromChar(int position) {
    if (position < 0 || position >= content_.length()) {
        return -1;
    }
    return MAKELRESULT(view_.xOf(position), view_.textRect().top);
}

void Edit::onEmSetReadOnly(bool readOnly) {
    const DWORD others = styleOf(window_) & ~static_cast<DWORD>(ES_READONLY);
    SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(readOnly ? others | ES_READONLY : others));
    InvalidateRect(window_, nullptr, FALSE);
}

}  // namespace platform
