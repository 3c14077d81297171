// The list of a folder's contents with its columns name, size and time: virtual, because only what is seen is drawn and
// looked up. It reads its folder itself, slice by slice, from a timer. It tells its parent by WM_COMMAND with
// LBN_SELCHANGE, LBN_DBLCLK and the codes below.
#pragma once

#include "platform/controls/list_scroll_bar.h"
#include "platform/files/folder_listing.h"

#include <windows.h>

#include <array>
#include <optional>
#include <string>

namespace platform {

constexpr const char* kFileListClass = "TavrikFileList";
// Notification codes: Backspace or Alt+Up asks for the folder above, F5 for a new look at the folder.
constexpr UINT kFileListUp = 0x7F00;
constexpr UINT kFileListReread = 0x7F01;

void registerFileListClass();

class FileList {
public:
    explicit FileList(HWND window) : window_(window) {}
    // The object behind a window of the class.
    static FileList& of(HWND window);

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

    // Shows another folder. `select` names the entry that is to be selected once it has been read; it may be empty.
    // Returns 0, or the error number, and then still shows what it did.
    int openFolder(const std::string& folder, const std::string& select);
    void setPatterns(std::vector<std::string> patterns);
    const FolderListing& listing() const { return listing_; }
    // Null when nothing is selected.
    const FolderEntry* selected() const;
    void clearSelection();

private:
    using Column = FolderListing::Column;
    static constexpr int kNone = -1;
    static constexpr std::array<Column, 3> kColumns = {Column::Name, Column::Size, Column::Changed};

    void onWmSetFont(HFONT font);
    void onWmSize();
    void onWmTimer(UINT_PTR timer);
    void onWmPaint(HDC given);
    bool onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void onWmLButtonDown(POINT at);
    void onWmLButtonDblClk(POINT at);
    void onWmMouseMove(POINT at);
    void onWmLButtonUp(POINT at);
    void onWmCaptureChanged();
    void onWmMouseWheel(int delta);
    LRESULT onWmKeyDown(UINT key);
    void onWmChar(char character);

    // Reading.
    void readOn();
    void rowsChanged();
    void lookUpVisible();

    // Rows. A row is an index into what is shown at the moment, an entry stays the same.
    int rowCount() const { return static_cast<int>(listing_.rowCount()); }
    int rowOfEntry(std::optional<std::uint32_t> entry) const;
    int currentRow() const { return rowOfEntry(selected_); }
    // Whole rows that can be seen, at least one.
    int page() const;
    RECT rowsRect() const;
    RECT rowRect(int row) const;
    int rowAt(POINT at) const;
    void layOutBar();
    void setTop(int top);
    void showRow(int row);
    void invalidateRow(int row);
    void selectRow(int row);
    void findTyped(char character);
    void notify(UINT code);

    // Columns.
    RECT headRect(Column column) const;
    std::optional<Column> headAt(POINT at) const;
    void sortBy(Column column);

    void paint(HDC dc);
    void paintHeads(HDC dc) const;
    void paintRow(HDC dc, int row) const;
    void paintNote(HDC dc, RECT rest) const;

    HWND window_;
    HFONT font_ = nullptr;
    FolderListing listing_;
    ListScrollBar bar_;
    std::string wantedName_;                 // The entry to be selected when it has been read.
    std::optional<std::uint32_t> selected_;  // An entry.
    int rowHeight_ = 1;
    int sizeWidth_ = 0;  // Of the columns; the name takes the rest.
    int changedWidth_ = 0;
    int top_ = 0;
    std::string typed_;  // What is being typed to find an entry,
    DWORD typedAt_ = 0;  // and when that was last added to.
    std::optional<Column> pressedHead_;
    bool headIsDown_ = false;  // The pressed column head looks pressed.
    int wheelRest_ = 0;        // Of a wheel that turns by less than a notch.
    bool focused_ = false;
    bool tracking_ = false;  // The button went down on a row and is still down.
};

}  // namespace platform
