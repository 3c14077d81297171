// Points, sizes and rectangles with the operations that dialog code uses; pixels unless a caller says otherwise.
#pragma once

#include "framework/window_api.h"

class CSize : public tagSIZE {
public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int width, int height) {
        cx = width;
        cy = height;
    }
    CSize(SIZE size) : tagSIZE(size) {}
};

class CPoint : public tagPOINT {
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int left, int top) : tagPOINT{left, top} {}
    CPoint(POINT point) : tagPOINT(point) {}

    void Offset(int horizontal, int vertical) {
        x += horizontal;
        y += vertical;
    }
};

// A rectangle whose right and bottom edges lie just outside it.
class CRect : public tagRECT {
public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& rect) : tagRECT(rect) {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return static_cast<int>(right - left); }
    int Height() const { return static_cast<int>(bottom - top); }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {static_cast<int>(left), static_cast<int>(top)}; }
    CPoint BottomRight() const { return {static_cast<int>(right), static_cast<int>(bottom)}; }
    CPoint CenterPoint() const { return {static_cast<int>((left + right) / 2), static_cast<int>((top + bottom) / 2)}; }
    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    BOOL PtInRect(POINT point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRectEmpty() { *this = CRect(); }
    void OffsetRect(int horizontal, int vertical) {
        left += horizontal;
        right += horizontal;
        top += vertical;
        bottom += vertical;
    }
    void InflateRect(int horizontal, int vertical) {
        left -= horizontal;
        right += horizontal;
        top -= vertical;
        bottom += vertical;
    }
    void DeflateRect(int horizontal, int vertical) { InflateRect(-horizontal, -vertical); }
};
