// The entries of a list box: texts, data and their order. Knows no window.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform {

class ListItems {
public:
    struct Item {
        std::string text;
        ULONG_PTR data = 0;
    };

    int count() const { return static_cast<int>(items_.size()); }
    bool has(int index) const { return index >= 0 && index < count(); }
    Item& at(int index) { return items_[static_cast<std::size_t>(index)]; }
    const Item& at(int index) const { return items_[static_cast<std::size_t>(index)]; }

    void insert(int index, LPCSTR text);
    void remove(int index) { items_.erase(items_.begin() + index); }
    void clear() { items_.clear(); }

    // Where a text belongs in a sorted list: before the first entry that is not less, by the system's comparison.
    int sortedPlace(LPCSTR text) const;

    // All search from the entry behind `after` on (-1 or too large: from the first), go round and end with `after`.
    // They return LB_ERR when nothing is found; an empty text finds nothing.
    int findPrefix(int after, LPCSTR text) const;
    int findExact(int after, LPCSTR text) const;
    int findData(int after, ULONG_PTR data) const;

private:
    template <class Matches>
    int find(int after, Matches matches) const;

    std::vector<Item> items_;
};

}  // namespace platform
