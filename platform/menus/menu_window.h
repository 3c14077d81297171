// The window of an open popup menu: where its items stand, and how they look.
#pragma once

#include "platform/menus/menu.h"

namespace platform {

class MenuWindow {
public:
    static constexpr int kNone = -1;

    // A hidden window of the class "#32768", above all others; `owner` is the window that the menu is for.
    MenuWindow(const MenuItems& items, HWND owner);
    ~MenuWindow();
    MenuWindow(const MenuWindow&) = delete;
    MenuWindow& operator=(const MenuWindow&) = delete;

    // Null when it could not be made.
    HWND handle() const { return window_; }
    // Shows it with its upper left corner there, or as near to it as the screen allows.
    void show(POINT at) const;

    // At a point of the screen: the item, kNone on the frame and outside.
    int itemAt(POINT screen) const;
    bool contains(POINT screen) const;

    int selected() const { return selected_; }
    void select(int index);

    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void measure();
    void onWmPaint(HDC given) const;
    void paint(HDC dc) const;
    void paintItem(HDC dc, const MenuItem& item, RECT rect, bool selected) const;

    const MenuItems& items_;
    HWND window_ = nullptr;
    std::vector<RECT> places_;  // Of the items, in client coordinates.
    SIZE size_{};
    int selected_ = kNone;
};

}  // namespace platform
