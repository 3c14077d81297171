// A scroll bar inside a list: geometry, painting and what the mouse does with it. It stands in the list's client area,
// because windows have no scroll bars of their own here.
#pragma once

#include <windows.h>

namespace platform {

class ListScrollBar {
public:
    enum class Axis { Vertical, Horizontal };
    // Towards the start is up or left.
    enum class Part { None, LineUp, PageUp, Thumb, PageDown, LineDown };

    explicit ListScrollBar(Axis axis = Axis::Vertical) : axis_(axis) {}

    // The list shows `page` of `count` rows (or columns of pixels) from `top` on; the bar occupies the right, or lower,
    // end of `client`. A bar that is not needed takes no room, unless `always` keeps it as a disabled one. `line` is
    // what an arrow scrolls by.
    void layout(const RECT& client, int count, int page, int top, bool always, int line = 1);
    bool isShown() const { return bar_.left < bar_.right && bar_.top < bar_.bottom; }
    const RECT& rect() const { return bar_; }

    Part partAt(POINT point) const;
    // Begins and ends holding a part down; a pressed arrow looks pressed.
    void press(Part part, POINT point);
    void release() { pressed_ = Part::None; }
    Part pressed() const { return pressed_; }
    // What a part leads to as the top: for the thumb by how far it was dragged to the point, else by one line or page.
    int topFor(Part part, POINT point) const;

    void paint(HDC dc) const;

private:
    bool isVertical() const { return axis_ == Axis::Vertical; }
    // The bar's ends along its axis.
    int start() const { return isVertical() ? bar_.top : bar_.left; }
    int end() const { return isVertical() ? bar_.bottom : bar_.right; }
    RECT partRect(Part part) const;
    int arrowLength() const;
    int hidden() const { return count_ > page_ ? count_ - page_ : 0; }

    Axis axis_;
    RECT bar_{};
    int count_ = 0;
    int page_ = 1;
    int top_ = 0;
    int line_ = 1;
    Part pressed_ = Part::None;
    int pressedAt_ = 0;   // Where the thumb was taken, along the axis, and
    int pressedTop_ = 0;  // the top at that time.
};

}  // namespace platform
