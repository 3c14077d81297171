// Painting of the file list: column heads, rows with their pictures, notes in an empty list.
#include "platform/controls/control_base.h"
#include "platform/files/file_list.h"
#include "platform/files/file_list_parts.h"
#include "platform/files/swedish_text.h"
#include "platform/graphics/scale.h"

#include <algorithm>
#include <chrono>

namespace platform {

namespace {

constexpr std::chrono::milliseconds kLookUpWhilePainting{5};
// Pixels at 96 dots an inch.
constexpr int kLeastNameWidth = 120;  // Columns that leave less for the name are left out.
constexpr int kArrowWidth = 8;
constexpr COLORREF kFolderColour = RGB(255, 215, 110);
constexpr COLORREF kFolderEdge = RGB(150, 110, 20);

const char* captionOf(FolderListing::Column column) {
    switch (column) {
        case FolderListing::Column::Size:
            return "Storlek";
        case FolderListing::Column::Changed:
            return "\xC4ndrad";
        case FolderListing::Column::Name:
            break;
    }
    return "Namn";
}

void fill(HDC dc, const RECT& rect, COLORREF colour) {
    const COLORREF before = SetBkColor(dc, colour);
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &rect, "", 0, nullptr);
    SetBkColor(dc, before);
}

// A box with an edge of one line.
void fillBox(HDC dc, RECT rect, COLORREF edge, COLORREF inside) {
    fill(dc, rect, edge);
    InflateRect(&rect, -lineWidth(), -lineWidth());
    fill(dc, rect, inside);
}

void drawText(HDC dc, const std::string& text, RECT rect, UINT format) {
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &rect,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | format);
}

// The triangle that shows by which column the rows are sorted.
void drawArrow(HDC dc, int left, int middle, bool descending) {
    const int half = toScale(kArrowWidth) / 2;
    for (int i = 0; i < half; ++i) {
        const int y = descending ? middle + half / 2 - i : middle - half / 2 + i;
        const int centre = left + half;
        fill(dc, {centre - i, y, centre + i + 1, y + 1}, GetSysColor(COLOR_3DSHADOW));
    }
}

}  // namespace

void drawFilePicture(HDC dc, POINT at, bool isFolder) {
    const auto part = [at](int left, int top, int right, int bottom) {
        return RECT{at.x + toScale(left), at.y + toScale(top), at.x + toScale(right), at.y + toScale(bottom)};
    };
    if (isFolder) {
        fillBox(dc, part(1, 2, 8, 6), kFolderEdge, kFolderColour);
        fillBox(dc, part(1, 4, 15, 14), kFolderEdge, kFolderColour);
        fill(dc, part(2, 5, 14, 6), GetSysColor(COLOR_WINDOW));
        return;
    }
    const COLORREF edge = GetSysColor(COLOR_3DSHADOW);
    fillBox(dc, part(3, 1, 13, 15), edge, GetSysColor(COLOR_WINDOW));
    for (int line = 4; line < 13; line += 2) {
        RECT stroke = part(5, line, 11, line + 1);
        stroke.bottom = stroke.top + lineWidth();
        fill(dc, stroke, GetSysColor(COLOR_3DLIGHT));
    }
}

void FileList::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

RECT FileList::headRect(Column column) const {
    RECT client;
    GetClientRect(window_, &client);
    const int right = rowsRect().right;
    const int both = sizeWidth_ + changedWidth_;
    const int changed = right - both >= toScale(kLeastNameWidth) ? changedWidth_ : 0;
    const int size = right - sizeWidth_ >= toScale(kLeastNameWidth) ? sizeWidth_ : 0;
    RECT head = {0, 0, right - changed - size, headHeight(rowHeight_)};
    if (column == Column::Size) {
        head.left = head.right;
        head.right = head.left + size;
    } else if (column == Column::Changed) {
        head.left = head.right + size;
        head.right = head.left + changed;
    }
    return head;
}

std::optional<FolderListing::Column> FileList::headAt(POINT at) const {
    for (const Column column : kColumns) {
        const RECT head = headRect(column);
        if (PtInRect(&head, at)) {
            return column;
        }
    }
    return std::nullopt;
}

void FileList::paint(HDC dc) {
    const SelectedFont font(dc, font_);
    paintHeads(dc);
    RECT rest = rowsRect();
    const auto deadline = FolderListing::Clock::now() + kLookUpWhilePainting;
    bool allKnown = true;
    for (int row = top_; row < rowCount() && rest.top < rest.bottom; ++row) {
        const RECT rect = rowRect(row);
        if (RectVisible(dc, &rect)) {
            const auto index = static_cast<std::size_t>(row);
            if (!listing_.row(index).isKnown && FolderListing::Clock::now() < deadline) {
                listing_.learnRow(index);
            }
            allKnown = allKnown && listing_.row(index).isKnown;
            paintRow(dc, row);
        }
        rest.top = rect.bottom;
    }
    if (rest.top < rest.bottom) {
        FillRect(dc, &rest, GetSysColorBrush(COLOR_WINDOW));
    }
    if (rowCount() == 0) {
        paintNote(dc, rest);
    }
    // The first key selects the first row in sight.
    if (focused_ && !selected_) {
        const RECT first = rowRect(top_);
        DrawFocusRect(dc, &first);
    }
    bar_.paint(dc);
    if (!allKnown) {
        readOn();
    }
}

void FileList::paintHeads(HDC dc) const {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    for (const Column column : kColumns) {
        RECT head = headRect(column);
        if (IsRectEmpty(&head)) {
            continue;
        }
        const bool down = headIsDown_ && pressedHead_ == column;
        const bool sorted = listing_.order().column == column;
        FillRect(dc, &head, GetSysColorBrush(COLOR_3DFACE));
        RECT text = head;
        DrawEdge(dc, &head, down ? static_cast<UINT>(BDR_SUNKENOUTER) : static_cast<UINT>(EDGE_RAISED),
                 BF_RECT | BF_SOFT);
        InflateRect(&text, -toScale(kCellPadding), 0);
        OffsetRect(&text, down ? lineWidth() : 0, down ? lineWidth() : 0);
        const bool toTheRight = column == Column::Size;
        if (sorted) {
            drawArrow(dc, toTheRight ? text.left : text.right - toScale(kArrowWidth), (text.top + text.bottom) / 2,
                      listing_.order().descending);
        }
        text.right -= sorted && !toTheRight ? toScale(kArrowWidth + 2) : 0;
        drawText(dc, captionOf(column), text, toTheRight ? DT_RIGHT : DT_LEFT);
    }
    RECT corner;
    GetClientRect(window_, &corner);
    corner.left = rowsRect().right;
    corner.bottom = headHeight(rowHeight_);
    FillRect(dc, &corner, GetSysColorBrush(COLOR_3DFACE));
}

void FileList::paintRow(HDC dc, int row) const {
    const std::size_t index = static_cast<std::size_t>(row);
    const FolderEntry& entry = listing_.row(index);
    const RECT rect = rowRect(row);
    const bool selected = selected_ == listing_.entryOfRow(index);
    const int back = !selected ? COLOR_WINDOW : focused_ ? COLOR_HIGHLIGHT : COLOR_3DFACE;
    FillRect(dc, &rect, GetSysColorBrush(back));
    drawFilePicture(dc, {rect.left + toScale(2), rect.top + (rowHeight_ - toScale(kPictureSize)) / 2}, entry.isFolder);
    SetBkMode(dc, TRANSPARENT);
    const int plain = entry.isNameable ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT;
    SetTextColor(dc, GetSysColor(selected && focused_ ? COLOR_HIGHLIGHTTEXT : plain));
    const auto cell = [&](Column column) {
        RECT text = headRect(column);
        text.left += column == Column::Name ? toScale(kPictureSize) + toScale(kCellPadding) : toScale(kCellPadding);
        text.right -= toScale(kCellPadding);
        text.top = rect.top;
        text.bottom = rect.bottom;
        return text;
    };
    drawText(dc, entry.shown, cell(Column::Name), DT_LEFT);
    if (entry.isKnown) {
        if (!entry.isFolder) {
            drawText(dc, sizeText(entry.size), cell(Column::Size), DT_RIGHT);
        }
        drawText(dc, timeText(entry.changed), cell(Column::Changed), DT_LEFT);
    }
    if (selected && focused_) {
        DrawFocusRect(dc, &rect);
    }
}

void FileList::paintNote(HDC dc, RECT rest) const {
    const char* note = listing_.isBusy()                ? "L\xE4ser mappen..."
                       : listing_.hasHiddenByPatterns() ? "Mappen har inga filer av det valda formatet."
                                                        : "Mappen \xE4r tom.";
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    rest.top += rowHeight_;  // The first row has room for the focus.
    rest.bottom = std::min(rest.bottom, rest.top + rowHeight_);
    drawText(dc, note, rest, DT_CENTER);
}

}  // namespace platform
