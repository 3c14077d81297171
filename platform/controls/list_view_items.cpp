// Rows of a list view, and how they are sorted.
#include "platform/controls/list_view_items.h"

#include <algorithm>
#include <span>
#include <utility>

namespace platform {
namespace {

// A row while it is sorted.
struct SortEntry {
    LPARAM param;
    int row;
};

// Sorts the half-open part by merging its two halves, the left one being the longer by one. The order of rows of which
// `compare` says contradictory things follows from this alone, so it is kept.
template <class Compare>
void mergeSort(std::span<SortEntry> part, std::span<SortEntry> room, Compare compare) {
    if (part.size() < 2) {
        return;
    }
    const std::size_t half = (part.size() + 1) / 2;
    mergeSort(part.first(half), room.first(half), compare);
    mergeSort(part.subspan(half), room.subspan(half), compare);
    std::size_t left = 0;
    std::size_t right = half;
    for (SortEntry& next : room) {
        const bool takesRight =
            left == half || (right < part.size() && compare(part[left].param, part[right].param) > 0);
        next = part[takesRight ? right++ : left++];
    }
    std::copy(room.begin(), room.end(), part.begin());
}

}  // namespace

void ListViewItems::insert(int row, Row content) {
    rows_.insert(rows_.begin() + row, std::make_unique<Row>(std::move(content)));
}

const std::string& ListViewItems::text(int row, int column) const {
    static const std::string kEmpty;
    const Row& found = at(row);
    if (column == 0) {
        return found.text;
    }
    const auto cell = static_cast<std::size_t>(column - 1);
    return cell < found.cells.size() ? found.cells[cell] : kEmpty;
}

void ListViewItems::setText(int row, int column, const std::string& text) {
    Row& changed = at(row);
    if (column == 0) {
        changed.text = text;
        return;
    }
    const auto cell = static_cast<std::size_t>(column - 1);
    if (cell >= changed.cells.size()) {
        changed.cells.resize(cell + 1);
    }
    changed.cells[cell] = text;
}

void ListViewItems::insertColumn(int column) {
    const auto cell = static_cast<std::size_t>(std::max(column - 1, 0));
    for (const auto& row : rows_) {
        if (cell < row->cells.size()) {
            row->cells.insert(row->cells.begin() + static_cast<std::ptrdiff_t>(cell), std::string());
        }
    }
}

std::vector<int> ListViewItems::sorted(PFNLVCOMPARE compare, LPARAM argument) const {
    std::vector<SortEntry> entries;
    entries.reserve(rows_.size());
    for (int row = 0; row < count(); ++row) {
        entries.push_back({at(row).param, row});
    }
    std::vector<SortEntry> room(entries.size());
    mergeSort(std::span(entries), std::span(room), [=](LPARAM a, LPARAM b) { return compare(a, b, argument); });
    std::vector<int> order;
    order.reserve(entries.size());
    for (const SortEntry& entry : entries) {
        order.push_back(entry.row);
    }
    return order;
}

void ListViewItems::reorder(const std::vector<int>& order) {
    std::vector<std::unique_ptr<Row>> rows;
    rows.reserve(rows_.size());
    for (const int row : order) {
        rows.push_back(std::move(rows_[static_cast<std::size_t>(row)]));
    }
    rows_ = std::move(rows);
}

int ListViewItems::findPrefix(int from, const std::string& prefix) const {
    for (int step = 0; step < count(); ++step) {
        const int row = (from + step) % count();
        const std::string& text = at(row).text;
        if (text.size() >= prefix.size() && lstrcmpiA(text.substr(0, prefix.size()).c_str(), prefix.c_str()) == 0) {
            return row;
        }
    }
    return -1;
}

}  // namespace platform
