// Keys, mouse and clipboard of the single-line edit.
#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"
#include "platform/controls/edit.h"

#include <tavrikdisplay.h>

#include <array>
#include <cstring>

namespace platform {
namespace {

// What Ctrl with a letter types.
constexpr char kCtrlA = 0x01;
constexpr char kCtrlC = 0x03;
constexpr char kCtrlV = 0x16;
constexpr char kCtrlX = 0x18;
constexpr char kCtrlZ = 0x1A;
constexpr char kDeleteCharacter = 0x7F;

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

std::string firstLine(std::string text) {
    const std::size_t end = text.find('\n');
    if (end != std::string::npos) {
        text.erase(end > 0 && text[end - 1] == '\r' ? end - 1 : end);
    }
    return text;
}

// The clipboard's text up to the first line end; empty when there is none.
std::string clipboardLine(HWND owner) {
    std::string line;
    if (!OpenClipboard(owner)) {
        return line;
    }
    if (HGLOBAL data = GetClipboardData(CF_TEXT)) {
        const auto* text = static_cast<const char*>(GlobalLock(data));
        line.assign(text, strnlen(text, GlobalSize(data)));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return firstLine(line);
}

}  // namespace

void Edit::onWmChar(char character) {
    const bool readOnly = has(ES_READONLY);
    switch (character) {
        case '\r':
        case VK_ESCAPE:
            if (listIsOpen()) {
                SendMessageA(combo_, WM_KEYDOWN, static_cast<WPARAM>(character), 0);
            }
            return;
        case '\b':
        case kDeleteCharacter:
            onBackspace(character);
            return;
        case kCtrlA:
            select(0, content_.length());
            return;
        case kCtrlC:
            onWmCopy();
            return;
        case kCtrlV:
            onWmPaste();
            return;
        case kCtrlX:
            onWmCut();
            return;
        case kCtrlZ:
            onEmUndo();
            return;
        default:
            break;
    }
    if (has(ES_NUMBER) && (character < '0' || character > '9')) {
        MessageBeep(0);
        return;
    }
    if (!readOnly && static_cast<unsigned char>(character) >= ' ') {
        replaceSelection(std::string_view(&character, 1), Change::Typed);
    }
}

// With Ctrl, which makes either character of the key, it deletes the word before the caret.
void Edit::onBackspace(char character) {
    const bool control = isDown(VK_CONTROL);
    if (has(ES_READONLY) || (character == kDeleteCharacter && !control)) {
        return;
    }
    if (!content_.hasSelection()) {
        const int caret = content_.caret();
        // Where the words of a password end is not told.
        const int word = has(ES_PASSWORD) ? 0 : content_.wordBefore(caret);
        content_.select(caret, control ? word : caret - 1);
    }
    onWmClear();
}

// Keys that the list of a combo box takes from its field.
bool Edit::onComboKey(UINT message, UINT key, LPARAM lParam) {
    if (!combo_) {
        return false;
    }
    if (message == WM_SYSKEYDOWN) {
        constexpr LPARAM kAltIsDown = 0x20000000;
        if ((lParam & kAltIsDown) && (key == VK_UP || key == VK_DOWN)) {
            SendMessageA(combo_, kComboFlip, 0, 0);
            return true;
        }
        return false;
    }
    switch (key) {
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
        case VK_F4:
        case VK_TAB:
            SendMessageA(combo_, kComboListKey, key, 0);
            return true;
        default:
            return false;
    }
}

void Edit::onWmKeyDown(UINT key) {
    const bool shift = isDown(VK_SHIFT);
    const bool control = isDown(VK_CONTROL);
    const int caret = content_.caret();
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            moveCaret(control ? content_.wordBefore(caret) : caret - 1, shift);
            break;
        case VK_RIGHT:
        case VK_DOWN:
            moveCaret(control ? content_.wordAfter(caret) : caret + 1, shift);
            break;
        case VK_HOME:
            moveCaret(0, shift);
            break;
        case VK_END:
            moveCaret(content_.length(), shift);
            break;
        case VK_DELETE:
            onDelete(shift, control);
            break;
        case VK_INSERT:
            if (shift) {
                onWmPaste();
            } else if (control) {
                onWmCopy();
            }
            break;
        default:
            break;
    }
    if (shift && content_.caret() != caret) {
        offerSelection();
    }
}

void Edit::onDelete(bool shift, bool control) {
    if (has(ES_READONLY) || (shift && control)) {
        return;
    }
    if (content_.hasSelection()) {
        if (shift) {
            onWmCut();
        } else {
            onWmClear();
        }
        return;
    }
    const int caret = content_.caret();
    content_.select(caret, shift ? caret - 1 : control ? content_.length() : caret + 1);
    onWmClear();
}

void Edit::onWmLButtonDown(POINT at, bool extend) {
    const HWND window = window_;
    tracking_ = true;
    SetCapture(window);
    moveCaret(view_.positionAt(at.x), extend);
    if (!focused_) {
        SetFocus(window);
    }
}

void Edit::onWmLButtonDblClk() {
    tracking_ = true;
    SetCapture(window_);
    const int caret = content_.caret();
    select(content_.wordBefore(caret + 1), content_.wordAfter(caret));
}

void Edit::onWmMouseMove(POINT at) {
    if (tracking_ && GetCapture() == window_) {
        moveCaret(view_.positionAt(at.x), true);
    }
}

void Edit::onWmLButtonUp() {
    if (GetCapture() == window_) {
        tracking_ = false;
        ReleaseCapture();
        offerSelection();
    }
}

// What the user marks is offered to other programs at once; what a program marks is not.
void Edit::offerSelection() const {
    if (content_.hasSelection() && !has(ES_PASSWORD)) {
        TavrikOfferSelection(std::string(content_.selected()).c_str());
    }
}

// Inserts what was marked last, here or in another program, where the click is.
void Edit::onWmMButtonDown(POINT at) {
    std::array<char, 4096> marked{};
    if (has(ES_READONLY) || TavrikReadSelection(marked.data(), marked.size()) == 0) {
        return;
    }
    const HWND window = window_;
    moveCaret(view_.positionAt(at.x), false);
    if (!focused_) {
        SetFocus(window);
    }
    if (IsWindow(window)) {
        replaceSelection(firstLine(marked.data()), Change::Typed);
    }
}

void Edit::onWmCopy() const {
    if (!content_.hasSelection() || has(ES_PASSWORD)) {
        return;
    }
    const std::string text(content_.selected());
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!memory || !OpenClipboard(window_)) {
        return;
    }
    std::memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
    GlobalUnlock(memory);
    EmptyClipboard();
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
}

void Edit::onWmPaste() {
    if (!has(ES_READONLY)) {
        const std::string line = clipboardLine(window_);
        if (!line.empty()) {
            replaceSelection(line, Change::Typed);
        }
    }
}

void Edit::onWmCut() {
    if (!has(ES_READONLY | ES_PASSWORD)) {
        onWmCopy();
        onWmClear();
    }
}

void Edit::onWmClear() {
    if (!has(ES_READONLY) && content_.hasSelection()) {
        replaceSelection({}, Change::Typed);
    }
}

}  // namespace platform
