// Messages, reading, rows and selection of the file list.
#include "platform/files/file_list.h"

#include "platform/controls/control_base.h"
#include "platform/files/file_list_parts.h"
#include "platform/graphics/scale.h"

#include <algorithm>
#include <chrono>

namespace platform {

namespace {

// How long the list keeps its thread at a time: at the opening of a folder, so that most folders are whole at once,
// and later, between two messages.
constexpr std::chrono::milliseconds kFirstSlice{25};
constexpr std::chrono::milliseconds kSlice{10};
constexpr UINT kBetweenSlicesMs = 10;

int textWidth(HDC dc, const std::string& text) {
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace

void registerFileListClass() {
    registerControlClass<FileList>(kFileListClass, 0);
}

FileList& FileList::of(HWND window) {
    return *reinterpret_cast<FileList*>(GetWindowLongPtrA(window, 0));
}

LRESULT FileList::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (onInput(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam));
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SIZE:
            onWmSize();
            return 0;
        case WM_TIMER:
            onWmTimer(wParam);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void FileList::notify(UINT code) {
    notifyCommand(window_, code);
}

void FileList::onWmSetFont(HFONT font) {
    font_ = font;
    HDC dc = GetDC(window_);
    {
        const SelectedFont selected(dc, font_);
        TEXTMETRICA metrics{};
        GetTextMetricsA(dc, &metrics);
        rowHeight_ = std::max(static_cast<int>(metrics.tmHeight) + 3, toScale(kPictureSize) + 1);
        sizeWidth_ = textWidth(dc, "1023 byte") + 3 * toScale(kCellPadding);
        changedWidth_ = textWidth(dc, "2024-12-30 20:00") + 3 * toScale(kCellPadding);
    }
    ReleaseDC(window_, dc);
    onWmSize();
}

void FileList::onWmSize() {
    layOutBar();
    setTop(top_);
    InvalidateRect(window_, nullptr, FALSE);
}

// The bar stands beside the rows, below the end of the column heads.
void FileList::layOutBar() {
    RECT below;
    GetClientRect(window_, &below);
    below.top = std::min(below.bottom, below.top + headHeight(rowHeight_));
    bar_.layout(below, rowCount(), page(), top_, false);
}

int FileList::openFolder(const std::string& folder, const std::string& select) {
    const int error = listing_.open(folder);
    if (error != 0) {
        return error;
    }
    wantedName_ = select;
    selected_.reset();
    typed_.clear();
    top_ = 0;
    listing_.advance(FolderListing::Clock::now() + kFirstSlice);
    rowsChanged();
    readOn();
    return 0;
}

void FileList::setPatterns(std::vector<std::string> patterns) {
    listing_.setPatterns(std::move(patterns));
    if (currentRow() == kNone) {
        selected_.reset();
    }
    top_ = 0;
    rowsChanged();
}

const FolderEntry* FileList::selected() const {
    return selected_ ? &listing_.entry(*selected_) : nullptr;
}

void FileList::clearSelection() {
    wantedName_.clear();
    invalidateRow(currentRow());
    selected_.reset();
}

void FileList::readOn() {
    SetTimer(window_, kReadTimer, kBetweenSlicesMs, nullptr);
}

void FileList::onWmTimer(UINT_PTR timer) {
    if (timer == kRepeatTimer) {
        onWmMouseMove(pointerIn(window_));
        return;
    }
    if (listing_.isBusy()) {
        // What the user looks at stays where it is while more rows come in.
        const int anchorRow = currentRow() != kNone ? currentRow() : top_;
        const bool atStart = top_ == 0 && currentRow() == kNone;
        const std::optional<std::uint32_t> anchor =
            anchorRow < rowCount() ? std::optional(listing_.entryOfRow(static_cast<std::size_t>(anchorRow)))
                                   : std::nullopt;
        if (listing_.advance(FolderListing::Clock::now() + kSlice)) {
            const int moved = atStart ? kNone : rowOfEntry(anchor);
            top_ += moved != kNone ? moved - anchorRow : 0;
            rowsChanged();
        } else if (!listing_.isBusy()) {
            InvalidateRect(window_, nullptr, FALSE);  // A note that the folder is being read goes.
        }
    } else {
        lookUpVisible();
    }
}

void FileList::rowsChanged() {
    if (!wantedName_.empty() && !selected_) {
        for (int row = 0; row < rowCount() && !selected_; ++row) {
            const std::uint32_t entry = listing_.entryOfRow(static_cast<std::size_t>(row));
            if (listing_.entry(entry).name == wantedName_) {
                selected_ = entry;
                showRow(row);
            }
        }
    }
    onWmSize();
}

// Sizes and times that painting had no time for.
void FileList::lookUpVisible() {
    const auto deadline = FolderListing::Clock::now() + kSlice;
    const int end = std::min(top_ + page() + 1, rowCount());
    for (int row = top_; row < end; ++row) {
        if (listing_.row(static_cast<std::size_t>(row)).isKnown) {
            continue;
        }
        if (FolderListing::Clock::now() >= deadline) {
            return;
        }
        listing_.learnRow(static_cast<std::size_t>(row));
        invalidateRow(row);
    }
    KillTimer(window_, kReadTimer);
}

int FileList::rowOfEntry(std::optional<std::uint32_t> entry) const {
    if (entry) {
        for (int row = 0; row < rowCount(); ++row) {
            if (listing_.entryOfRow(static_cast<std::size_t>(row)) == *entry) {
                return row;
            }
        }
    }
    return kNone;
}

RECT FileList::rowsRect() const {
    RECT rect;
    GetClientRect(window_, &rect);
    rect.top = std::min(rect.bottom, rect.top + headHeight(rowHeight_));
    if (bar_.isShown()) {
        rect.right = bar_.rect().left;
    }
    return rect;
}

int FileList::page() const {
    const RECT rows = rowsRect();
    return std::max(static_cast<int>(rows.bottom - rows.top) / rowHeight_, 1);
}

RECT FileList::rowRect(int row) const {
    RECT rect = rowsRect();
    rect.top += (row - top_) * rowHeight_;
    rect.bottom = rect.top + rowHeight_;
    return rect;
}

int FileList::rowAt(POINT at) const {
    const RECT rows = rowsRect();
    if (!PtInRect(&rows, at)) {
        return kNone;
    }
    const int row = top_ + static_cast<int>(at.y - rows.top) / rowHeight_;
    return row < rowCount() ? row : kNone;
}

void FileList::setTop(int top) {
    const int wanted = std::clamp(top, 0, std::max(rowCount() - page(), 0));
    if (wanted != top_) {
        top_ = wanted;
        InvalidateRect(window_, nullptr, FALSE);
    }
    layOutBar();
}

void FileList::showRow(int row) {
    setTop(std::clamp(top_, row - page() + 1, row));
}

void FileList::invalidateRow(int row) {
    if (row != kNone) {
        const RECT rect = rowRect(row);
        InvalidateRect(window_, &rect, FALSE);
    }
}

void FileList::selectRow(int row) {
    const int before = currentRow();
    if (row < 0 || row >= rowCount()) {
        return;
    }
    showRow(row);
    if (row == before) {
        return;
    }
    invalidateRow(before);
    selected_ = listing_.entryOfRow(static_cast<std::size_t>(row));
    invalidateRow(row);
    notify(LBN_SELCHANGE);
}

// A second click turns the order round. Times are of more interest from the newest on.
void FileList::sortBy(Column column) {
    const FolderListing::Order before = listing_.order();
    listing_.setOrder({column, column == before.column ? !before.descending : column == Column::Changed});
    listing_.advance(FolderListing::Clock::now() + kFirstSlice);
    if (currentRow() != kNone) {
        showRow(currentRow());
    }
    readOn();
    InvalidateRect(window_, nullptr, FALSE);
}

}  // namespace platform
