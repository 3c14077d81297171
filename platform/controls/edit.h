// The single-line edit. Deliberately missing are several lines of text and other password characters.
#pragma once

#include "platform/controls/edit_text.h"
#include "platform/controls/edit_view.h"

#include <windows.h>

namespace platform {

class Edit {
public:
    explicit Edit(HWND window) : window_(window), view_(window, content_) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    // How a change of the text treats undo, the parent and the text limit.
    enum class Change {
        Typed,     // By the user: can be undone, is limited, is told to the parent.
        Replaced,  // By EM_REPLACESEL without undo: limited and told.
        Set,       // By set-text: neither limited nor told.
    };

    bool onMouse(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onSelectionMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onEditMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    LRESULT onWmNcCreate(LPARAM lParam);
    void onWmCreate(const CREATESTRUCTA& create);
    LRESULT onWmSetText(LPCSTR text);
    LRESULT onWmGetText(std::size_t size, LPSTR buffer) const;
    LRESULT onWmGetDlgCode(const MSG* message) const;
    void onWmSetFont(HFONT font, bool redraw);
    void onWmSetFocus();
    void onWmKillFocus();
    void onWmPaint(HDC given);
    void onWmLButtonDown(POINT at, bool extend);
    void onWmLButtonDblClk();
    void onWmMouseMove(POINT at);
    void onWmLButtonUp();
    void onWmMButtonDown(POINT at);
    void offerSelection() const;
    void onWmContextMenu(LPARAM lParam);
    // Whether an entry of the context menu can be chosen.
    bool canDo(UINT command) const;
    void onWmChar(char character);
    void onBackspace(char character);
    LRESULT onKey(UINT message, WPARAM wParam, LPARAM lParam);
    void onWmKeyDown(UINT key);
    bool onComboKey(UINT message, UINT key, LPARAM lParam);
    void onDelete(bool shift, bool control);
    void onWmCopy() const;
    void onWmPaste();
    void onWmCut();
    void onWmClear();
    void onEmSetSel(int start, int end);
    LRESULT onEmUndo();
    LRESULT onEmPosFromChar(int position);
    LRESULT onEmGetSel(DWORD* start, DWORD* end) const;
    void onEmSetReadOnly(bool readOnly);

    // The one way in which the text changes. Returns false when the window died in a notification.
    bool replaceSelection(std::string_view text, Change change);
    bool fitInsertion(std::string& text, Change change);
    void replaceQuietly(std::string_view text, bool undoable);
    // Moves the selection and shows the caret.
    void select(int anchor, int caret);
    void moveCaret(int caret, bool extend) { select(extend ? content_.anchor() : caret, caret); }
    void showCaret();
    bool selectionShown() const;
    // Tells the parent; false when the window died of it.
    bool notify(UINT code);
    bool has(DWORD style) const;
    bool listIsOpen() const;

    HWND window_;
    EditText content_;
    EditView view_;
    HWND combo_ = nullptr;  // The combo box whose field this is.
    int limit_ = 30000;     // In bytes; what the user enters ends there.
    bool modified_ = false;
    bool focused_ = false;   // By the focus messages, which may also be sent by a program.
    bool tracking_ = false;  // The mouse draws the selection.
};

}  // namespace platform
