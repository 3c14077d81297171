// One tab control: tabs in a row, or with TCS_MULTILINE in as many as they need, over a raised page area. Arrows that
// scroll a row which is too long, buttons instead of tabs, images and tool tips are not offered.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>
#include <string>
#include <vector>

namespace platform {

class TabControl {
public:
    explicit TabControl(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    struct Item {
        std::string text;
        // Where layout() has put it, in pixels from the left end of its row.
        int left = 0;
        int width = 0;
        int row = 0;  // Counted from the top.
    };

    LRESULT handleTabMessage(UINT message, WPARAM wParam, LPARAM lParam);
    int count() const { return static_cast<int>(items_.size()); }
    bool isItem(int index) const { return index >= 0 && index < count(); }
    LRESULT notify(UINT code) const;

    void onWmSetFont(HFONT font, bool redraw);
    LRESULT onWmNcHitTest(POINT screen);
    void onWmLButtonDown(POINT point);
    void onWmKeyDown(WPARAM key, LPARAM flags);
    int onTcmInsertItem(int index, const TCITEMA& item);
    bool onTcmGetItem(int index, TCITEMA& item) const;
    bool onTcmDeleteItem(int index);
    bool onTcmGetItemRect(int index, RECT& rect);
    int onTcmSetCurSel(int index);
    void onTcmAdjustRect(bool larger, RECT& rect);

    // Selects as the user does: asks the parent first, and tells it afterwards.
    void selectByUser(int index);
    void itemsChanged();

    // Geometry; all in pixels of the client area.
    void layout();
    void measure();
    void breakIntoRows();
    void evenRows();
    void fillRow(std::span<Item> row) const;
    void bringRowForward(int index);
    int rowLength() const;
    int rowHeight() const;
    int rowsBottom() const;
    RECT itemRect(int index) const;
    int itemAt(POINT point) const;
    void invalidateRows() const;

    // Painting, in tab_paint.cpp.
    void onWmPaint(HDC given);
    void paint(HDC dc) const;
    void paintItem(HDC dc, int index) const;

    HWND window_;
    HFONT font_ = nullptr;
    std::vector<Item> items_;
    int selected_ = -1;  // -1 for none.
    int rows_ = 0;
    int textHeight_ = 0;
    bool laidOut_ = false;
};

}  // namespace platform
