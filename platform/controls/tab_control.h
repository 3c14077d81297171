// One tab control: a single row of tabs over a raised page area, with scroll arrows when the row is too long. Buttons
// instead of tabs, several rows, images and tool tips are not offered.
#pragma once

#include <windows.h>

#include <commctrl.h>

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
        LPARAM param = 0;
        int width = 0;  // Pixels; measured by layout().
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
    bool onTcmSetItem(int index, const TCITEMA& item);
    bool onTcmDeleteItem(int index);
    bool onTcmGetItemRect(int index, RECT& rect);
    int onTcmSetCurSel(int index);
    int onTcmHitTest(TCHITTESTINFO& hit);
    void onTcmAdjustRect(bool larger, RECT& rect);

    // Selects as the user does: asks the parent first, and tells it afterwards.
    void selectByUser(int index);
    void itemsChanged();

    // Geometry; all in pixels of the client area.
    void layout();
    RECT itemRect(int index) const;
    int rowBottom() const;
    int rowLength() const;
    bool scrolls() const;
    RECT arrowRect(bool right) const;
    bool canScroll(bool right) const;
    void scroll(bool right);
    void ensureVisible(int index);
    int itemAt(POINT point) const;
    void invalidateRow() const;

    // Painting, in tab_paint.cpp.
    void onWmPaint(HDC given);
    void paint(HDC dc) const;
    void paintItem(HDC dc, int index) const;
    void paintArrows(HDC dc) const;

    HWND window_;
    HFONT font_ = nullptr;
    std::vector<Item> items_;
    int selected_ = -1;  // -1 for none.
    int first_ = 0;      // The leftmost item shown; more than 0 only while the row scrolls.
    int textHeight_ = 0;
    bool laidOut_ = false;
};

}  // namespace platform
