// The single-selection list box, and the drop-down list of a combo box, which is a window of its own, takes neither
// focus nor activation and speaks to its combo box. Deliberately missing are columns, multiple selection and rows of
// different heights.
#pragma once

#include "platform/controls/list_items.h"
#include "platform/controls/list_scroll_bar.h"

#include <windows.h>

namespace platform {

class ListBox {
public:
    explicit ListBox(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam);
    static constexpr int kNone = LB_ERR;

    bool onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onListMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onItemMessage(UINT message, int index, LPARAM lParam, LRESULT& result);
    void onWmCreate(const CREATESTRUCTA& create);
    void onWmDestroy();
    void onWmSetFont(HFONT font, bool redraw);
    void onWmSize();
    void onWmWindowPosChanged(const WINDOWPOS& position);
    void onWmPaint(HDC given);
    void onWmFocus(bool focused);
    void onWmLButtonDown(POINT at);
    void onWmLButtonDblClk(POINT at);
    void onWmMouseMove(POINT at);
    void onWmLButtonUp(POINT at);
    void onWmMouseWheel(int delta);
    void onWmTimer();
    void onWmCaptureChanged();
    LRESULT onWmKeyDown(UINT key);
    void onWmChar(char character);

    LRESULT onLbAddString(LPARAM item);
    LRESULT onLbInsertString(int index, LPARAM item);
    LRESULT onLbDeleteString(int index);
    void onLbResetContent();
    LRESULT onLbSetCurSel(int index);
    LRESULT onLbSelectString(int after, LPARAM wanted);
    LRESULT onLbSetItemHeight(int height);
    LRESULT onLbGetText(int index, LPARAM buffer) const;
    LRESULT onLbSetCaretIndex(int index);

    HWND owner() const { return combo_ ? combo_ : GetParent(window_); }
    bool has(DWORD style) const;
    bool isOwnerDrawn() const { return has(LBS_OWNERDRAWFIXED); }
    bool hasStrings() const { return !isOwnerDrawn() || has(LBS_HASSTRINGS); }

    // Number of whole rows that can be seen, at least one.
    int page() const;
    RECT rowsRect() const;
    RECT rowRect(int index) const;
    // The row at a point, or kNone beside or below all rows.
    int rowAt(POINT at) const;
    bool isInside(POINT at) const;
    void contentChanged();
    void applyIntegralHeight();
    void setTop(int top);
    void showRow(int index);
    void invalidateRow(int index);
    // An entry that begins with a text, or the whole of it; in a list without texts the one with that data.
    int find(int after, LPARAM wanted, bool whole) const;
    // Tells the owner that an entry goes; false when the window died of it.
    bool notifyDeletion(int index);
    bool notifyDeletions();
    // The owner draws what changed at once; false when the window died of it, here and in what follows.
    bool select(int index);
    bool drawChange(int index);
    void setCaret(int index);
    bool moveTo(int index);
    // Back to what was selected when the drop-down list opened.
    bool restoreSelection();
    bool takeFocus();
    void notify(UINT code);

    void paint(HDC dc);
    void paintRow(HDC dc, int index, HBRUSH background);
    void drawOwnerRow(HDC dc, int index, UINT action);

    HWND window_;
    HWND combo_ = nullptr;
    HFONT font_ = nullptr;
    ListItems items_;
    ListScrollBar bar_;
    int itemHeight_ = 1;
    int top_ = 0;
    int current_ = kNone;
    int caret_ = 0;         // The row that keys start from; it need not be selected.
    int restored_ = kNone;  // What restoreSelection goes back to.
    int autoScroll_ = 0;    // Rows by which a drag outside moves at each tick of the timer.
    bool focused_ = false;
    bool tracking_ = false;  // A button that went down on a row is still down.
};

}  // namespace platform
