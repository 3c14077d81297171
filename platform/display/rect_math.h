// Rectangles as sets of pixels; an empty one has no extent in some direction.
#pragma once

#include <windows.h>

#include <algorithm>

namespace platform {

inline bool isEmptyRect(const RECT& rect) {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

inline RECT intersectionOf(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

// The smallest rectangle around both.
inline RECT boundsOf(const RECT& a, const RECT& b) {
    if (isEmptyRect(a)) {
        return b;
    }
    if (isEmptyRect(b)) {
        return a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

inline bool hasPoint(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

inline bool sameRect(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

}  // namespace platform
