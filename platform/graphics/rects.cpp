// Rectangle helpers of the window API. A null pointer gives FALSE.
#include <windows.h>

#include <algorithm>
#include <cstdint>

namespace {

// Sums of coordinates wrap as they do on the system, without being undefined here.
LONG wrappingSum(LONG a, int b) {
    return static_cast<LONG>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

}  // namespace

BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom) {
    if (rect == nullptr) {
        return FALSE;
    }
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(LPRECT rect) {
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL InflateRect(LPRECT rect, int dx, int dy) {
    if (rect == nullptr) {
        return FALSE;
    }
    rect->left = wrappingSum(rect->left, static_cast<int>(0u - static_cast<unsigned>(dx)));
    rect->top = wrappingSum(rect->top, static_cast<int>(0u - static_cast<unsigned>(dy)));
    rect->right = wrappingSum(rect->right, dx);
    rect->bottom = wrappingSum(rect->bottom, dy);
    return TRUE;
}

BOOL OffsetRect(LPRECT rect, int dx, int dy) {
    if (rect == nullptr) {
        return FALSE;
    }
    rect->left = wrappingSum(rect->left, dx);
    rect->top = wrappingSum(rect->top, dy);
    rect->right = wrappingSum(rect->right, dx);
    rect->bottom = wrappingSum(rect->bottom, dy);
    return TRUE;
}

BOOL IntersectRect(LPRECT result, LPCRECT a, LPCRECT b) {
    if (result == nullptr || a == nullptr || b == nullptr) {
        return FALSE;
    }
    const RECT common = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                         std::min(a->bottom, b->bottom)};
    const bool empty = IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&common);
    *result = empty ? RECT{} : common;
    return !empty;
}

BOOL IsRectEmpty(LPCRECT rect) {
    return rect == nullptr || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL EqualRect(LPCRECT a, LPCRECT b) {
    return a != nullptr && b != nullptr && a->left == b->left && a->top == b->top && a->right == b->right &&
           a->bottom == b->bottom;
}

BOOL PtInRect(LPCRECT rect, POINT point) {
    return rect != nullptr && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}
