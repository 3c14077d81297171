#include "platform/graphics/region.h"

#include <algorithm>

namespace platform {

namespace {

bool isEmptyRect(const RECT& rect) {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

RECT overlap(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

bool covers(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

// Appends what is left of `rect` once `hole`, which lies inside it, is cut out: at most four parts.
void appendAround(std::vector<RECT>& parts, const RECT& rect, const RECT& hole) {
    if (rect.top < hole.top) {
        parts.push_back({rect.left, rect.top, rect.right, hole.top});
    }
    if (rect.left < hole.left) {
        parts.push_back({rect.left, hole.top, hole.left, hole.bottom});
    }
    if (hole.right < rect.right) {
        parts.push_back({hole.right, hole.top, rect.right, hole.bottom});
    }
    if (hole.bottom < rect.bottom) {
        parts.push_back({rect.left, hole.bottom, rect.right, rect.bottom});
    }
}

}  // namespace

Region::Region(const RECT& rect) {
    if (!isEmptyRect(rect)) {
        rects_.push_back(rect);
    }
}

RECT Region::bounds() const {
    if (rects_.empty()) {
        return {};
    }
    RECT result = rects_.front();
    for (const RECT& rect : rects_) {
        result = {std::min(result.left, rect.left), std::min(result.top, rect.top), std::max(result.right, rect.right),
                  std::max(result.bottom, rect.bottom)};
    }
    return result;
}

bool Region::contains(int x, int y) const {
    return std::any_of(rects_.begin(), rects_.end(), [x, y](const RECT& rect) {
        return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
    });
}

bool Region::intersects(const RECT& rect) const {
    return std::any_of(rects_.begin(), rects_.end(),
                       [&rect](const RECT& own) { return !isEmptyRect(overlap(own, rect)); });
}

void Region::add(const RECT& rect) {
    if (isEmptyRect(rect)) {
        return;
    }
    // The usual update region is one rectangle that grows, or stays what it was.
    if (std::any_of(rects_.begin(), rects_.end(), [&rect](const RECT& own) { return covers(own, rect); })) {
        return;
    }
    subtract(rect);
    rects_.push_back(rect);
}

void Region::add(const Region& other) {
    if (this == &other) {
        return;
    }
    for (const RECT& rect : other.rects_) {
        add(rect);
    }
}

void Region::subtract(const RECT& rect) {
    if (!intersects(rect)) {
        return;
    }
    std::vector<RECT> left;
    left.reserve(rects_.size() + 3);
    for (const RECT& own : rects_) {
        const RECT hole = overlap(own, rect);
        if (isEmptyRect(hole)) {
            left.push_back(own);
        } else {
            appendAround(left, own, hole);
        }
    }
    rects_ = std::move(left);
}

void Region::intersect(const RECT& rect) {
    for (RECT& own : rects_) {
        own = overlap(own, rect);
    }
    std::erase_if(rects_, isEmptyRect);
}

void Region::intersect(const Region& other) {
    if (other.rects_.size() == 1) {
        intersect(other.rects_.front());
        return;
    }
    // Both sets are disjoint, so the pairwise overlaps are too.
    std::vector<RECT> common;
    for (const RECT& own : rects_) {
        for (const RECT& theirs : other.rects_) {
            const RECT part = overlap(own, theirs);
            if (!isEmptyRect(part)) {
                common.push_back(part);
            }
        }
    }
    rects_ = std::move(common);
}

void Region::offset(int dx, int dy) {
    for (RECT& own : rects_) {
        own = {own.left + dx, own.top + dy, own.right + dx, own.bottom + dy};
    }
}

}  // namespace platform
