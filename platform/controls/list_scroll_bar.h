// The vertical scroll bar inside a list box: geometry, painting and what the mouse does with it. It stands in the
// list's client area, because windows have no scroll bars of their own here.
#pragma once

#include <windows.h>

namespace platform {

class ListScrollBar {
public:
    enum class Part { None, LineUp, PageUp, Thumb, PageDown, LineDown };

    // The list shows `page` of `count` rows from row `top` on; the bar occupies the right end of `client`. A bar that
    // is not needed takes no room, unless `always` keeps it as a disabled one.
    void layout(const RECT& client, int count, int page, int top, bool always);
    bool isShown() const { return bar_.left < bar_.right; }
    const RECT& rect() const { return bar_; }

    Part partAt(POINT point) const;
    // Begins and ends holding a part down; a pressed arrow looks pressed.
    void press(Part part, int y);
    void release() { pressed_ = Part::None; }
    Part pressed() const { return pressed_; }
    // The top row that a part leads to: for the thumb by how far it was dragged to y, else by one line or page.
    int topFor(Part part, int y) const;

    void paint(HDC dc) const;

private:
    RECT partRect(Part part) const;
    int arrowHeight() const;
    int hidden() const { return count_ > page_ ? count_ - page_ : 0; }

    RECT bar_{};
    int count_ = 0;
    int page_ = 1;
    int top_ = 0;
    Part pressed_ = Part::None;
    int pressedY_ = 0;    // Where the thumb was taken, and
    int pressedTop_ = 0;  // the top row at that time.
};

}  // namespace platform
