// One track bar: a thumb that slides in a channel, lying or standing. Tick marks, thumbs that point at them, a selected
// range, other steps, buddies, tool tips and painting by the parent are not offered.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace platform {

class TrackBar {
public:
    explicit TrackBar(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    // What the mouse does while it is captured.
    enum class Tracking { None, Thumb, PagesBack, PagesOn };

    LRESULT handleTrackMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool isVertical() const;

    void onWmLButtonDown(POINT point);
    void onWmMouseMove(WPARAM keys, POINT point);
    void onWmLButtonUp();
    void onWmCaptureChanged();
    void onWmTimer();
    void onWmKeyDown(WPARAM key);
    void onWmKeyUp(WPARAM key) const;
    void onTbmSetRange(int minimum, int maximum, bool redraw);

    int pageSize() const;
    void setPosition(int position, bool redraw);
    // Moves the thumb as the user does, as far as the range goes, and tells the parent of a move. False when the parent
    // has destroyed the control.
    bool moveByUser(long long position, UINT code);
    void page(Tracking direction);
    // Sends WM_HSCROLL or WM_VSCROLL. False when the parent has destroyed the control.
    bool scroll(UINT code, int position) const;

    // Geometry, in pixels of the client area. What lies along the channel counts from the side of the lowest position.
    struct Measures {
        int thumbLength;  // Across the channel.
        int thumbWidth;   // Along it.
        int channelStart;
        int channelEnd;
    };
    Measures measure() const;
    int along(POINT point) const { return isVertical() ? point.y : point.x; }
    RECT place(int start, int end, int near, int far) const;
    int thumbStart() const;
    RECT thumbRect() const;
    RECT channelRect() const;
    // The position at which the thumb has its middle there.
    int positionAt(int thumbMiddle) const;
    // Where a press at the point pages to.
    Tracking pagingAt(POINT point) const;
    void invalidateThumb() const;

    // Painting, in track_bar_paint.cpp.
    void onWmPaint(HDC given) const;

    HWND window_;
    int minimum_ = 0;
    int maximum_ = 100;
    int position_ = 0;
    Tracking tracking_ = Tracking::None;
};

}  // namespace platform
