// What a scenario expects: the functions of the command table that check.
#pragma once

#include "automation/stage.h"

namespace automation {

void ExpectText(Stage& stage, const Command& command);
void ExpectChecked(Stage& stage, const Command& command);
void ExpectUnchecked(Stage& stage, const Command& command);
void ExpectEnabled(Stage& stage, const Command& command);
void ExpectDisabled(Stage& stage, const Command& command);
void ExpectVisible(Stage& stage, const Command& command);
void ExpectHidden(Stage& stage, const Command& command);
void ExpectFocus(Stage& stage, const Command& command);
void ExpectItems(Stage& stage, const Command& command);
void ExpectCount(Stage& stage, const Command& command);
void ExpectSelection(Stage& stage, const Command& command);
void ExpectPosition(Stage& stage, const Command& command);
void ExpectTabs(Stage& stage, const Command& command);
void ExpectTab(Stage& stage, const Command& command);
void ExpectCaption(Stage& stage, const Command& command);
void ExpectPixel(Stage& stage, const Command& command);
void ExpectNoBox(Stage& stage, const Command& command);

void ExpectResult(Stage& stage, const Command& command);
void ExpectStore(Stage& stage, const Command& command);
void ExpectChanged(Stage& stage, const Command& command);
void ExpectRecords(Stage& stage, const Command& command);
void ExpectUnchanged(Stage& stage, const Command& command);

}  // namespace automation
