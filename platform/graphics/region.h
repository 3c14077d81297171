// A set of pixels as disjoint rectangles: clip and update regions. Small numbers of rectangles are expected.
#pragma once

#include <windows.h>

#include <vector>

namespace platform {

class Region {
public:
    Region() = default;
    explicit Region(const RECT& rect);

    bool isEmpty() const { return rects_.empty(); }
    const std::vector<RECT>& rects() const { return rects_; }
    RECT bounds() const;
    bool contains(int x, int y) const;
    bool intersects(const RECT& rect) const;

    void clear() { rects_.clear(); }
    void add(const RECT& rect);
    void add(const Region& other);
    void subtract(const RECT& rect);
    void intersect(const RECT& rect);
    void intersect(const Region& other);
    void offset(int dx, int dy);

private:
    std::vector<RECT> rects_;
};

}  // namespace platform
