// Copying and stretching from one context to another. Stretching by dropping and repeating pixels, or by
// combining them when the context's mode asks for it: by AND for black on white, by their average for halftones.
#include "platform/graphics/painting.h"

#include <windows.h>

#include <array>
#include <cstring>
#include <vector>

using namespace platform;

namespace {

// The source pixels that one destination pixel is made from along one axis: first to last, inclusive.
struct SourceRange {
    int first;
    int last;
};

// One axis of a stretch. A negative length runs towards lower coordinates.
struct Axis {
    std::int64_t to;
    std::int64_t toLength;
    std::int64_t from;
    std::int64_t fromLength;

    std::int64_t low() const { return toLength > 0 ? to : to + toLength + 1; }
    std::int64_t high() const { return toLength > 0 ? to + toLength : to + 1; }

    SourceRange sourceOf(int position) const;
};

// Pixel centres are compared and ties go to the lower source pixel when pixels are repeated. When pixels are dropped
// the same rule assigns each source pixel to a destination pixel, and the last one assigned is the one that shows.
SourceRange Axis::sourceOf(int position) const {
    const std::int64_t count = std::abs(toLength);
    const std::int64_t sourceCount = std::abs(fromLength);
    const std::int64_t index = toLength > 0 ? position - to : to - position;
    std::int64_t first = 0;
    std::int64_t last = 0;
    if (sourceCount <= count) {
        first = last = ((2 * index + 1) * sourceCount - 1) / (2 * count);
    } else {
        const auto lastOf = [&](std::int64_t i) {
            return i < 0 ? std::int64_t{-1} : (2 * sourceCount * (i + 1) - count) / (2 * count);
        };
        first = lastOf(index - 1) + 1;
        last = lastOf(index);
    }
    if (fromLength > 0) {
        return {limited(from + first), limited(from + last)};
    }
    return {limited(from - first), limited(from - last)};
}

Pixel combined(const Surface& surface, SourceRange columns, SourceRange rows) {
    Pixel pixel = kWhite;
    const int dx = columns.last >= columns.first ? 1 : -1;
    const int dy = rows.last >= rows.first ? 1 : -1;
    for (int y = rows.first; y != rows.last + dy; y += dy) {
        for (int x = columns.first; x != columns.last + dx; x += dx) {
            pixel &= surface.row(y)[x];
        }
    }
    return pixel;
}

struct Stretch {
    Axis columns;
    Axis rows;
    int mode;
};

// A source pixel and how much of it a destination pixel covers, in parts of the source's pixel.
struct Share {
    int index;
    std::int64_t weight;
};

// Along one axis: the destination pixel lies over a stretch of the source, whose ends may be within pixels. The weights
// add up to the source's length.
std::vector<Share> sharesOf(const Axis& axis, int position) {
    const std::int64_t count = std::abs(axis.toLength);
    const std::int64_t sourceCount = std::abs(axis.fromLength);
    const std::int64_t index = axis.toLength > 0 ? position - axis.to : axis.to - position;
    const std::int64_t start = index * sourceCount;
    const std::int64_t end = start + sourceCount;
    std::vector<Share> shares;
    for (std::int64_t i = start / count; i * count < end; ++i) {
        const std::int64_t weight = std::min(end, (i + 1) * count) - std::max(start, i * count);
        shares.push_back({limited(axis.fromLength > 0 ? axis.from + i : axis.from - i), weight});
    }
    return shares;
}

bool within(const std::vector<Share>& shares, int length) {
    return std::all_of(shares.begin(), shares.end(),
                       [length](const Share& share) { return share.index >= 0 && share.index < length; });
}

Pixel averaged(const Surface& surface, const std::vector<Share>& columns, const std::vector<Share>& rows) {
    constexpr int kChannels = 3;
    std::array<std::int64_t, kChannels> sums{};
    std::int64_t weights = 0;
    for (const Share& row : rows) {
        for (const Share& column : columns) {
            const Pixel pixel = surface.row(row.index)[column.index];
            const std::int64_t weight = row.weight * column.weight;
            weights += weight;
            for (int channel = 0; channel < kChannels; ++channel) {
                sums[static_cast<std::size_t>(channel)] += weight * ((pixel >> (8 * channel)) & 0xFF);
            }
        }
    }
    Pixel average = 0;
    for (int channel = 0; channel < kChannels; ++channel) {
        const std::int64_t sum = sums[static_cast<std::size_t>(channel)];
        average |= static_cast<Pixel>((sum + weights / 2) / weights) << (8 * channel);
    }
    return average;
}

// As stretchPart; what the source does not have leaves the destination as it was.
void averagePart(Surface& to, const Surface& from, const Stretch& stretch, const RECT& part) {
    std::vector<std::vector<Share>> columns;
    for (int x = part.left; x < part.right; ++x) {
        columns.push_back(sharesOf(stretch.columns, x));
    }
    for (int y = part.top; y < part.bottom; ++y) {
        const std::vector<Share> rows = sharesOf(stretch.rows, y);
        for (int x = part.left; within(rows, from.height()) && x < part.right; ++x) {
            const std::vector<Share>& column = columns[static_cast<std::size_t>(x - part.left)];
            if (within(column, from.width())) {
                to.row(y)[x] = averaged(from, column, rows);
            }
        }
    }
}

bool within(SourceRange range, int low, int high) {
    return std::min(range.first, range.last) >= low && std::max(range.first, range.last) < high;
}

// Pixels that the source does not have leave the destination as it was.
void stretchPart(Surface& to, const Surface& from, const Stretch& stretch, const RECT& part) {
    struct Column {
        int x;
        SourceRange source;
    };
    std::vector<Column> columns;
    columns.reserve(static_cast<std::size_t>(part.right - part.left));
    for (int x = part.left; x < part.right; ++x) {
        const SourceRange range = stretch.columns.sourceOf(x);
        if (within(range, 0, from.width())) {
            columns.push_back({x, range});
        }
    }
    for (int y = part.top; y < part.bottom; ++y) {
        const SourceRange rows = stretch.rows.sourceOf(y);
        if (!within(rows, 0, from.height())) {
            continue;
        }
        Pixel* target = to.row(y);
        // Of dropped pixels the last of a row and the first of a column remain, as on the system.
        const Pixel* source = from.row(rows.first);
        for (const Column& column : columns) {
            target[column.x] =
                stretch.mode == BLACKONWHITE ? combined(from, column.source, rows) : source[column.source.last];
        }
    }
}

void stretchCopy(DeviceContext& to, DeviceContext& from, const Stretch& stretch) {
    if (to.surface() == nullptr || from.surface() == nullptr) {
        return;
    }
    const RECT area = {limited(stretch.columns.low()), limited(stretch.rows.low()), limited(stretch.columns.high()),
                       limited(stretch.rows.high())};
    // A copy within one surface must not read what it has written.
    Surface copy(0, 0);
    const Surface* source = from.surface();
    if (source == to.surface()) {
        copy.resize(source->width(), source->height());
        std::copy(source->row(0), source->row(source->height()), copy.row(0));
        source = &copy;
    }
    const auto draw = stretch.mode == HALFTONE ? averagePart : stretchPart;
    paintVisible(to, area, [&](const RECT& part) { draw(*to.surface(), *source, stretch, part); });
}

// Moves the rows in the order that leaves an overlapping source intact.
void copyRows(Surface& to, const Surface& from, const RECT& part, int dx, int dy) {
    const auto bytes = static_cast<std::size_t>(part.right - part.left) * sizeof(Pixel);
    const int height = part.bottom - part.top;
    for (int i = 0; i < height; ++i) {
        const int y = dy >= 0 ? part.top + i : part.bottom - 1 - i;
        std::memmove(to.row(y) + part.left, from.row(y + dy) + part.left + dx, bytes);
    }
}

// `area` is the destination; the source pixel of (x, y) is (x + dx, y + dy).
void copyArea(DeviceContext& to, DeviceContext& from, const RECT& area, int dx, int dy) {
    if (to.surface() == nullptr || from.surface() == nullptr) {
        return;
    }
    // Several parts of one surface: a part may not overwrite what a later one reads.
    const bool sameSurface = from.surface() == to.surface();
    RECT readable = from.surface()->bounds();
    OffsetRect(&readable, -dx, -dy);
    IntersectRect(&readable, &readable, &area);
    if (sameSurface && to.clip().rects().size() > 1) {
        const Axis columns = {area.left, area.right - area.left, area.left + dx, area.right - area.left};
        const Axis rows = {area.top, area.bottom - area.top, area.top + dy, area.bottom - area.top};
        stretchCopy(to, from, {columns, rows, COLORONCOLOR});
        return;
    }
    paintVisible(to, readable, [&](const RECT& part) { copyRows(*to.surface(), *from.surface(), part, dx, dy); });
}

}  // namespace

BOOL BitBlt(HDC toHandle, int x, int y, int width, int height, HDC fromHandle, int fromX, int fromY, DWORD operation) {
    if (operation != SRCCOPY) {
        return PatBlt(toHandle, x, y, width, height, operation);
    }
    DeviceContext* to = contextFromHandle(toHandle);
    DeviceContext* from = contextFromHandle(fromHandle);
    if (to == nullptr || from == nullptr) {
        return FALSE;
    }
    const RECT area = blockOnSurface(*to, x, y, width, height);
    const POINT target = toSurface(*to, x, y);
    const POINT source = toSurface(*from, fromX, fromY);
    copyArea(*to, *from, area, source.x - target.x, source.y - target.y);
    return TRUE;
}

BOOL StretchBlt(HDC toHandle, int x, int y, int width, int height, HDC fromHandle, int fromX, int fromY, int fromWidth,
                int fromHeight, DWORD operation) {
    if (operation != SRCCOPY) {
        return PatBlt(toHandle, x, y, width, height, operation);
    }
    if (width == fromWidth && height == fromHeight && width >= 0 && height >= 0) {
        return BitBlt(toHandle, x, y, width, height, fromHandle, fromX, fromY, operation);
    }
    DeviceContext* to = contextFromHandle(toHandle);
    DeviceContext* from = contextFromHandle(fromHandle);
    if (to == nullptr || from == nullptr) {
        return FALSE;
    }
    if (width == 0 || height == 0 || fromWidth == 0 || fromHeight == 0) {
        return TRUE;
    }
    const POINT target = toSurface(*to, x, y);
    const POINT source = toSurface(*from, fromX, fromY);
    const Axis columns = {target.x, limited(width), source.x, limited(fromWidth)};
    const Axis rows = {target.y, limited(height), source.y, limited(fromHeight)};
    stretchCopy(*to, *from, {columns, rows, to->state().stretchMode});
    return TRUE;
}
