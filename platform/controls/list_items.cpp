// Entries of a list box.
#include "platform/controls/list_items.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

char foldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Prefixes are compared without regard to the case of A to Z alone, as observed; whole texts by the locale.
bool beginsWith(const std::string& text, LPCSTR prefix, std::size_t length) {
    return text.size() >= length && std::equal(prefix, prefix + length, text.begin(),
                                               [](char a, char b) { return foldAscii(a) == foldAscii(b); });
}

}  // namespace

void ListItems::insert(int index, LPCSTR text) {
    items_.insert(items_.begin() + index, Item{text, 0});
}

int ListItems::sortedPlace(LPCSTR text) const {
    const auto place = std::lower_bound(items_.begin(), items_.end(), text, [](const Item& item, LPCSTR wanted) {
        return lstrcmpiA(item.text.c_str(), wanted) < 0;
    });
    return static_cast<int>(place - items_.begin());
}

template <class Matches>
int ListItems::find(int after, Matches matches) const {
    const int start = has(after) ? after : -1;
    for (int step = 1; step <= count(); ++step) {
        const int index = (start + step) % count();
        if (matches(at(index))) {
            return index;
        }
    }
    return LB_ERR;
}

int ListItems::findPrefix(int after, LPCSTR text) const {
    if (!text || !*text) {
        return LB_ERR;
    }
    const std::size_t length = std::strlen(text);
    return find(after, [&](const Item& item) { return beginsWith(item.text, text, length); });
}

int ListItems::findExact(int after, LPCSTR text) const {
    if (!text || !*text) {
        return LB_ERR;
    }
    return find(after, [&](const Item& item) { return lstrcmpiA(item.text.c_str(), text) == 0; });
}

int ListItems::findData(int after, ULONG_PTR data) const {
    return find(after, [&](const Item& item) { return item.data == data; });
}

}  // namespace platform
