// The combo box: a drop-down list with a field that shows the selection, or in which the user types. Its field is an
// "Edit", its list a "ComboLBox"; both speak to it by messages. Deliberately missing are the form whose list is always
// open, lists of rows of different heights, and the extended keyboard interface.
#pragma once

#include <windows.h>

#include <string>

namespace platform {

class ComboBox {
public:
    explicit ComboBox(HWND window) : window_(window) {}
    // The list is a window beside the combo box: it goes along, also when the creation fails half-way.
    ~ComboBox() { DestroyWindow(list_); }
    ComboBox(const ComboBox&) = delete;
    ComboBox& operator=(const ComboBox&) = delete;

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    bool onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onPartMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onForwarded(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onComboMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    LRESULT onWmNcCreate(LPARAM lParam);
    bool onWmCreate(const CREATESTRUCTA& create);
    void onWmDestroy();
    void onWmWindowPosChanging(WINDOWPOS& position);
    void onWmSetFont(HFONT font, bool redraw);
    void onWmEnable(bool enabled);
    void onWmPaint(HDC given);
    LRESULT onWmGetDlgCode(const MSG* message) const;
    void onWmSetRedraw(WPARAM redraw);
    LRESULT onTextMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void onWmSetFocus();
    void onWmKillFocus(HWND next);
    LRESULT onWmKey(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT onWmSysKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT onWmMouseWheel(WPARAM wParam, LPARAM lParam);
    void onWmLButtonDown(POINT at);
    void onWmMouseMove(POINT at);
    void onWmLButtonUp();
    void onWmCaptureChanged();
    void onEditCommand(UINT code);
    void onListCommand(UINT code);
    void onListKey(UINT key);
    // Owner-drawing of the list, told to the parent as the combo box's own.
    LRESULT onWmDrawItem(DRAWITEMSTRUCT& draw);
    LRESULT onWmMeasureItem(MEASUREITEMSTRUCT& measure);
    LRESULT onWmDeleteItem(DELETEITEMSTRUCT& deletion);

    LRESULT onCbAddString(LPARAM entry) const;
    LRESULT onCbSetCurSel(int index);
    LRESULT onCbSelectString(int after, LPARAM wanted);
    LRESULT onCbResetContent();
    LRESULT onCbShowDropDown(bool show);
    LRESULT onCbSetItemHeight(int index, int height);
    LRESULT onCbGetComboBoxInfo(COMBOBOXINFO* info) const;

    bool has(DWORD style) const;
    LRESULT askList(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // Tells the parent; false when the window died of it.
    bool notify(UINT code);

    HWND createList(const CREATESTRUCTA& create);
    HWND createEdit(const CREATESTRUCTA& create);
    int fontFieldHeight() const;
    void measureField();
    LRESULT askParent(MEASUREITEMSTRUCT& measure) const;
    // Height of the closed combo box.
    int closedHeight() const;
    void resizeToField();
    void layout();
    void sizeList();
    int width() const;
    void placeList();

    void open();
    // Ends a selection: tells how, and closes the list when it is open. False when the window died of it.
    bool rollUp(bool accept);
    void flip();
    void gotFocus();
    void lostFocus();

    std::string currentText() const;
    // Shows the list's selection in the field.
    void showCurrent();
    // Moves the list to the first entry that begins with the typed text, and selects it there if wanted; returns it.
    int findTyped(bool select);

    void paint(HDC dc);
    void paintText(HDC dc);
    void drawOwnerText(HDC dc, RECT rect, bool marked);

    HWND window_;
    HWND edit_ = nullptr;  // Null in a combo box that has only the list.
    HWND list_ = nullptr;
    HFONT font_ = nullptr;
    RECT item_{};  // Of the shown text, or of the edit.
    RECT button_{};
    int fieldHeight_ = 0;  // Of the shown text with its padding.
    int listHeight_ = 0;   // Of the open list with its border.
    bool open_ = false;
    bool focused_ = false;
    bool wasEverFocused_ = false;
    bool capturing_ = false;    // The button went down on the combo box and the list has not taken over.
    bool buttonDown_ = false;   // The drop-down button looks pressed.
    bool trackingKey_ = false;  // A key moves the selection in the open list, which stays open.
    // After a pick the first typed change leaves the list's selection alone, as observed.
    bool keepSelection_ = false;
};

}  // namespace platform
