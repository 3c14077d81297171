// The order of connection comments.
#include "pages/circuit/comment_order.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

class CommentOrder : public testing::Test {
protected:
    CommentOrder() { g_commentSortDir = {1, 1}; }
    ~CommentOrder() override {
        g_commentSortDir = {-1, -1};
        g_commentSort = 0;
    }

    static int Compare(const CommentRow& a, const CommentRow& b, int column = kCommentColumn) {
        return CompareCommentRows(reinterpret_cast<LPARAM>(&a), reinterpret_cast<LPARAM>(&b), column);
    }
};

TEST_F(CommentOrder, HasEachNameBeforeTheNext) {
    constexpr LPCSTR kAscending[] = {"",          " c1",  "#A", "_",   "{",     "\xD7",  "\xF7",   "0", "9z",
                                     "Alpha",     "beta", "c",  "c a", "C1",    "cable", "CABLES", "d", "\x9A",
                                     "\xC4rende", "\xE5", "c0", "c2",  "c10 x", "c11",   "c255"};
    for (const int direction : {1, -1}) {
        g_commentSortDir[kCommentColumn] = direction;
        for (size_t i = 0; i < std::size(kAscending); ++i) {
            for (size_t j = i + 1; j < std::size(kAscending); ++j) {
                SCOPED_TRACE(std::string(kAscending[i]) + " before " + kAscending[j]);
                EXPECT_EQ(Compare({kAscending[i]}, {kAscending[j]}), -direction);
                EXPECT_EQ(Compare({kAscending[j]}, {kAscending[i]}), direction);
            }
        }
        EXPECT_EQ(g_commentSort, direction);
        // Two default names are never equal, not even to themselves: whichever is asked for first comes last.
        EXPECT_EQ(Compare({"c5"}, {"c05 b"}), direction);
        EXPECT_EQ(Compare({"c05 b"}, {"c5"}), direction);
        EXPECT_EQ(Compare({"c5"}, {"c5"}), direction);
    }
    EXPECT_EQ(Compare({"\xC5SKA \x8A\x9F"}, {"\xE5ska \x9A\xFF"}), 0);
    EXPECT_EQ(Compare({"b"}, {"a"}, -1), 0);
}

TEST_F(CommentOrder, OfColoursIsByNumberAndThenByName) {
    EXPECT_EQ(Compare({"b", "  9"}, {"a", " 10"}, kColourColumn), -1);
    EXPECT_EQ(Compare({"b", " 99"}, {"a", "100"}, kColourColumn), -1);
    EXPECT_EQ(Compare({"b", "100"}, {"a", "100"}, kColourColumn), 1);
}

TEST_F(CommentOrder, IsTakenFromStoredSortsThatExist) {
    for (const auto& [sort, column] : {std::pair{1, 0}, {-2, 1}, {0, -1}, {3, -1}, {INT_MAX, -1}, {INT_MIN, -1}}) {
        g_commentSort = sort;
        g_commentSortDir = {1, 1};
        EXPECT_EQ(TakeCommentSort(), column) << sort;
        EXPECT_EQ(g_commentSortDir[0], sort == -2 ? -1 : 1) << sort;
    }
}

}  // namespace
