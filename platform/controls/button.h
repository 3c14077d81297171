// One button window: push button, check box, radio button, group box or owner-drawn. Pictures on buttons and text to
// the left of the mark are not offered.
#pragma once

#include <windows.h>

namespace platform {

class Button {
public:
    explicit Button(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handleButtonMessage(UINT message, WPARAM wParam, LPARAM lParam);

    DWORD kind() const;
    bool isOwnerDrawn() const { return kind() == BS_OWNERDRAW; }
    bool isEnabled() const { return IsWindowEnabled(window_) != 0; }
    void notifyIfWanted(UINT code) const;

    LRESULT onWmGetDlgCode() const;
    void onWmSetFocus();
    void onWmKillFocus();
    LRESULT onWmSetText(WPARAM wParam, LPARAM lParam);
    void onWmLButtonDown();
    void onWmLButtonDblClk();
    void press();
    void release(bool inside);
    void onWmMouseMove(WPARAM keys, POINT point);
    void onWmCaptureChanged();
    void onBmClick() const;
    void onBmSetCheck(WPARAM check);
    void onBmSetState(bool pushed);
    void onBmSetStyle(DWORD style, bool redraw);
    void toggle() const;
    void checkInGroup() const;

    // Painting, in button_paint.cpp.
    void onWmPaint(HDC given) const;
    void onWmEraseBkgnd(HDC dc) const;
    // Shows a changed state: an owner draws at once, as it counts on being asked; the rest waits for WM_PAINT.
    void showChange(UINT ownerDrawAction) const;
    void paint(HDC dc) const;
    void paintPush(HDC dc, RECT client) const;
    void paintMark(HDC dc, const RECT& client) const;
    void paintGroupBox(HDC dc, const RECT& client) const;
    void drawByOwner(HDC dc, UINT action) const;
    HBRUSH askParentColour(HDC dc, UINT message) const;

    HWND window_;
    HFONT font_ = nullptr;
    UINT state_ = 0;  // BST_ bits and kPressed.
};

}  // namespace platform
