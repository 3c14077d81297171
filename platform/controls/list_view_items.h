// The rows of a list view: texts, parameters, states and their order. Knows no window.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

namespace platform {

class ListViewItems {
public:
    struct Row {
        std::string text;                // Of the first column.
        std::vector<std::string> cells;  // Of the other columns; as many as have been set.
        LPARAM param = 0;
        UINT state = 0;  // LVIS_ bits.
    };

    int count() const { return static_cast<int>(rows_.size()); }
    bool has(int row) const { return row >= 0 && row < count(); }
    Row& at(int row) { return *rows_[static_cast<std::size_t>(row)]; }
    const Row& at(int row) const { return *rows_[static_cast<std::size_t>(row)]; }

    void insert(int row, Row content);
    void remove(int row) { rows_.erase(rows_.begin() + row); }
    void clear() { rows_.clear(); }

    // Empty for a cell that has not been set.
    const std::string& text(int row, int column) const;
    void setText(int row, int column, const std::string& text);
    void insertColumn(int column);

    // The numbers of the rows in the order in which `compare` puts their parameters; equal rows stay as they are. No
    // answer of `compare`, however inconsistent, loses a row, and it may do to the list what it likes.
    std::vector<int> sorted(PFNLVCOMPARE compare, LPARAM argument) const;
    void reorder(const std::vector<int>& order);

    // The first row whose text begins with the prefix, without regard to case, from a row on and round to it again.
    // -1 when there is none.
    int findPrefix(int from, const std::string& prefix) const;

private:
    // Rows are moved about by their pointers: an insertion before 100 000 others stays cheap.
    std::vector<std::unique_ptr<Row>> rows_;
};

}  // namespace platform
