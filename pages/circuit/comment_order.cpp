// The order of the connection comments.
#include "pages/circuit/comment_order.h"

#include "core/letters.h"
#include "core/numbers.h"

std::array<int, kCommentColumns> g_commentColumnOrder = {kColourColumn, kCommentColumn};
int g_commentSort = 0;
std::array<int, kCommentColumns> g_commentSortDir = {-1, -1};

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool BeginsWithLetterOrDigit(LPCSTR text) {
    return *text != '\0' && (IsLetter(*text) || IsDigit(*text));
}

unsigned char Lower(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if ((c >= 'A' && c <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<unsigned char>(byte + 0x20);
    }
    switch (byte) {
        case 0x8A:
        case 0x8C:
        case 0x8E:
            return static_cast<unsigned char>(byte + 0x10);
        case 0x9F:
            return 0xFF;
        default:
            return byte;
    }
}

// Letter case aside: -1, 0 or 1.
int CompareTexts(const CString& first, const CString& second) {
    LPCSTR a = first;
    LPCSTR b = second;
    while (*a != '\0' && Lower(*a) == Lower(*b)) {
        ++a;
        ++b;
    }
    return (Lower(*a) > Lower(*b)) - (Lower(*a) < Lower(*b));
}

bool IsDefaultName(LPCSTR text) {
    return text[0] == 'c' && IsDigit(text[1]);
}

// Never 0, not even for equal numbers: two names of one number, such as "c5" and "c05", have no order of their own, and
// a sort leaves them as its steps happen to meet them. That is on purpose.
int CompareDefaultNumbers(LPCSTR first, LPCSTR second) {
    return LeadingInteger(first + 1) >= LeadingInteger(second + 1) ? 1 : -1;
}

// Ascending.
int CompareAscending(const CString& first, const CString& second) {
    const bool isFirstDefault = IsDefaultName(first);
    const bool isSecondDefault = IsDefaultName(second);
    if (isFirstDefault && isSecondDefault) {
        return CompareDefaultNumbers(first, second);
    }
    if (isFirstDefault != isSecondDefault) {
        return isFirstDefault ? 1 : -1;
    }
    const bool isFirstNamed = BeginsWithLetterOrDigit(first);
    if (isFirstNamed != BeginsWithLetterOrDigit(second)) {
        return isFirstNamed ? 1 : -1;
    }
    return CompareTexts(first, second);
}

}  // namespace

void TurnCommentSort(int column) {
    const int direction = -g_commentSortDir[static_cast<size_t>(column)];
    g_commentSortDir.fill(-1);
    g_commentSortDir[static_cast<size_t>(column)] = direction;
}

int TakeCommentSort() {
    if (g_commentSort == 0 || g_commentSort < -kCommentColumns || g_commentSort > kCommentColumns) {
        return -1;
    }
    const int column = (g_commentSort < 0 ? -g_commentSort : g_commentSort) - 1;
    g_commentSortDir.fill(-1);
    g_commentSortDir[static_cast<size_t>(column)] = g_commentSort < 0 ? -1 : 1;
    return column;
}

int CALLBACK CompareCommentRows(LPARAM first, LPARAM second, LPARAM column) {
    if (column < 0) {
        return 0;
    }
    const auto index = static_cast<size_t>(column);
    const int direction = g_commentSortDir[index];
    g_commentSort = static_cast<int>(column + 1) * direction;
    const CommentRow& a = *reinterpret_cast<const CommentRow*>(first);
    const CommentRow& b = *reinterpret_cast<const CommentRow*>(second);
    int result = CompareAscending(a[index], b[index]);
    if (result == 0) {
        result = CompareTexts(a[kCommentColumn], b[kCommentColumn]);
    }
    return direction * result;
}
