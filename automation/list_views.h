// List views for the functions of the command table: rows and columns that are clicked, renamed, moved and looked at.
// Rows count from 0 as they are sorted now, columns from 0 as they were inserted.
#pragma once

#include "automation/stage.h"

namespace automation {

void ClickRow(Stage& stage, const Command& command);
void DoubleClickRow(Stage& stage, const Command& command);
void RenameRow(Stage& stage, const Command& command);
void ClickHeader(Stage& stage, const Command& command);
void DragHeader(Stage& stage, const Command& command);

void ExpectRows(Stage& stage, const Command& command);
void ExpectCell(Stage& stage, const Command& command);
void ExpectRowChecked(Stage& stage, const Command& command);
void ExpectRowUnchecked(Stage& stage, const Command& command);
void ExpectColumns(Stage& stage, const Command& command);

}  // namespace automation
