// The order of the connection comments in their list, and what of it outlives the sheet.
#pragma once

#include <array>

#include "framework/framework.h"

// The columns of the list.
inline constexpr int kCommentColumn = 0;
inline constexpr int kColourColumn = 1;
inline constexpr int kCommentColumns = 2;

// A row's own copies of its texts, by column: the comment's name, and the colour number in three places.
using CommentRow = std::array<CString, kCommentColumns>;

// The columns from the left. Like the two below it holds for all sheets, as long as the settings do not say otherwise.
extern std::array<int, kCommentColumns> g_commentColumnOrder;
// The last sort: the column's index plus 1, negative for a descending one; 0 for none. A stored setting may have put
// another number here, which stands for none.
extern int g_commentSort;
// Of each column, 1 for ascending, -1 for descending.
extern std::array<int, kCommentColumns> g_commentSortDir;

// Sets the other direction for a column, and -1 for the other column, so that its first sort will be ascending. The
// column must exist.
void TurnCommentSort(int column);
// Takes the directions from the last sort. Returns the column to sort by; -1 when there is none.
int TakeCommentSort();

// Compares the rows that the parameters point to by a column's texts, in the column's direction, for a list to sort by.
// Ascending, names that begin with anything else come first, then those that begin with a letter or digit, letter case
// aside, and last the default names, "c" and a number, by number. Two default names of one number are never equal:
// whichever is asked for first comes last. Remembers the sort.
int CALLBACK CompareCommentRows(LPARAM first, LPARAM second, LPARAM column);
