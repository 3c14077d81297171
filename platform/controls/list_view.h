// One list view in report form: rows of cells below a header, with check boxes and labels that can be edited. One row
// is selected at most, and only its label is highlighted. Other forms, several selected rows, images, groups, and
// rows that the parent supplies are not offered.
#pragma once

#include "platform/controls/list_scroll_bar.h"
#include "platform/controls/list_view_items.h"

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

namespace platform {

class ListView {
public:
    explicit ListView(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static constexpr int kNone = -1;
    using Row = ListViewItems::Row;
    struct Cell {
        int row = kNone;
        int column = kNone;
        UINT flags = LVHT_NOWHERE;
    };

    // Dispatch; false for a message of another kind.
    bool onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onColumnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onRowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onPlaceMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void onWmCreate();
    void onWmDestroy();
    void onWmSetFont(HFONT font);
    void onWmSetRedraw(bool redraw);
    void onWmFocus(bool focused);
    LRESULT onWmNotify(const NMHDR& header);
    bool has(DWORD style) const;
    bool hasCheckBoxes() const { return (exStyle_ & LVS_EX_CHECKBOXES) != 0; }
    // The control still exists; to be asked after the parent has been told anything.
    static bool isAlive(HWND window) { return IsWindow(window) != FALSE; }

    // Notifications.
    template <class Notification>
    LRESULT send(UINT code, Notification& notification) const {
        auto& header = reinterpret_cast<NMHDR&>(notification);
        header.hwndFrom = window_;
        header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
        header.code = code;
        return SendMessageA(GetParent(window_), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    }
    LRESULT notify(UINT code) const;
    LRESULT notifyRow(UINT code, int row) const;
    LRESULT notifyChange(UINT code, int row, UINT changed, UINT oldState = 0, UINT newState = 0) const;
    LRESULT notifyClick(UINT code, POINT at) const;

    // Columns, in list_view_columns.cpp. Their places and widths are the header's.
    int onLvmInsertColumn(int index, const LVCOLUMNA& column);
    int columnCount() const { return static_cast<int>(columns_.size()); }
    bool hasColumn(int column) const { return column >= 0 && column < columnCount(); }
    void onHeaderChanged();
    void fitColumn(int column);

    // Rows, in list_view_rows.cpp.
    int onLvmInsertItem(const LVITEMA& item);
    bool onLvmGetItem(LVITEMA& item) const;
    bool onLvmSetItem(const LVITEMA& item);
    int onLvmGetItemText(int row, LVITEMA& item) const;
    bool onLvmDeleteItem(int row);
    bool onLvmDeleteAllItems();
    bool onLvmSortItems(PFNLVCOMPARE compare, LPARAM argument);
    int onLvmGetNextItem(int after, UINT flags) const;
    bool setText(int row, int column, const std::string& text);
    // Tells of the end of every row, the last first, unless the parent does not want to hear of each.
    void tellAllDeleted();

    // States, in list_view_state.cpp.
    bool onLvmSetItemState(int row, UINT state, UINT mask);
    void onLvmSetExtendedListViewStyle(DWORD mask, DWORD style);
    bool setState(int row, UINT state, UINT mask);
    // Returns false when the window died.
    bool deselect(int row);
    bool selectAlone(int row);
    void toggleCheck(int row);

    // Geometry and scrolling, in list_view_layout.cpp. All in client coordinates.
    void measure();
    void layout();
    RECT rowsRect() const;
    RECT rowRect(int row) const;
    RECT cellRect(int row, int column) const;
    RECT boxRect(int row) const;
    RECT labelRect(int row) const;
    RECT selectRect(HDC dc, int row) const;
    int page() const;
    bool onLvmGetItemRect(int row, RECT& rect) const;
    bool onLvmGetSubItemRect(int row, RECT& rect) const;
    bool onLvmEnsureVisible(int row, bool partly);
    // What the mouse meets: a box or a label in the first column,
    Cell rowAt(POINT at) const;
    // or a cell of any column.
    Cell cellAt(POINT at) const;
    void scrollTo(int top, int left);
    void invalidateRow(int row) const;
    void invalidateRows(int from = 0) const;

    // Input, in list_view_input.cpp and list_view_keyboard.cpp.
    void onWmLButtonDown(POINT at);
    void onWmLButtonDblClk(POINT at);
    void onWmMouseMove(POINT at);
    void onWmLButtonUp(POINT at);
    void onWmRButtonDown(POINT at);
    void onWmCaptureChanged();
    void onWmMouseWheel(int delta);
    void onWmTimer(UINT_PTR timer);
    bool pressBar(POINT at);
    bool takeFocus();
    void scrollByBar(const ListScrollBar& bar, POINT at);
    void selectClicked(const Cell& hit);
    LRESULT onWmKeyDown(UINT key, LPARAM flags);
    void onWmChar(char character);
    int rowForKey(UINT key) const;
    void goTo(int row);

    // Label edit, in list_view_edit.cpp.
    HWND onLvmEditLabel(int row);
    void onEditCommand(HWND control, UINT code);
    void placeEdit();
    // Stores the text unless it is given up or the parent refuses it. Returns false when the window died.
    bool endEdit(bool accept);
    static LRESULT CALLBACK editProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);

    // Painting, in list_view_paint.cpp.
    void onWmPaint(HDC given);
    void paint(HDC dc);
    bool paintAskedRow(HDC dc, int row);
    void paintRow(HDC dc, int row) const;
    void paintCell(HDC dc, int row, int column) const;
    void paintLabel(HDC dc, int row) const;
    LRESULT askDrawing(HDC dc, DWORD stage, const RECT& rect, int row = kNone, int column = 0) const;

    HWND window_;
    HWND header_ = nullptr;
    // Where the columns are while they are not scrolled, by their numbers, and the right end of the last one.
    struct Across {
        int left;
        int right;
    };
    std::vector<Across> columns_;
    int contentWidth_ = 0;
    HFONT font_ = nullptr;
    DWORD exStyle_ = 0;  // LVS_EX_ bits.
    ListViewItems items_;
    int selected_ = kNone;
    int focusedRow_ = kNone;
    int textHeight_ = 1;
    int rowHeight_ = 1;
    int headHeight_ = 0;
    int top_ = 0;   // The first row in view.
    int left_ = 0;  // Pixels by which the columns are scrolled to the left.
    ListScrollBar bar_{ListScrollBar::Axis::Vertical};
    ListScrollBar wideBar_{ListScrollBar::Axis::Horizontal};
    bool redraw_ = true;
    bool focused_ = false;
    bool pressed_ = false;     // A button that went down on the rows is still down.
    int editable_ = kNone;     // The row whose label was clicked while it was selected.
    int wheelRest_ = 0;        // Of a wheel that turns by less than a row.
    std::string typed_;        // What is being typed to find a row,
    DWORD typedAt_ = 0;        // and when that was last added to.
    HWND edit_ = nullptr;      // The label edit,
    int editRow_ = kNone;      // its row,
    WNDPROC editProc_{};       // its own procedure,
    bool endingEdit_ = false;  // and whether its end is being told.
};

}  // namespace platform
