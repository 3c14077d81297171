// Measures and timers of list views.
#pragma once

#include <windows.h>

namespace platform {

constexpr UINT_PTR kListRepeatTimer = 1;  // Repeats what a held scroll bar part does.
constexpr UINT_PTR kListEditTimer = 2;    // Waits whether the click on a label becomes a double click.

// Pixels at 96 dots an inch.
constexpr int kRowMargin = 2;    // Between the first column's left end and the check box, or the label without one.
constexpr int kBoxSize = 13;     // Of a check box, square.
constexpr int kCellPadding = 5;  // Between a cell's left side and its text.
constexpr int kCellEnd = 2;      // Between a text that is too long and the cell's right side.

}  // namespace platform
