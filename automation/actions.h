// What a scenario does: the functions of the command table that prepare, open and act.
#pragma once

#include "automation/stage.h"

namespace automation {

void Given(Stage& stage, const Command& command);
void ClearStore(Stage& stage, const Command& command);
void CreateScratchFile(Stage& stage, const Command& command);
void WriteProfile(Stage& stage, const Command& command);
void Open(Stage& stage, const Command& command);

void ClickTab(Stage& stage, const Command& command);
void Click(Stage& stage, const Command& command);
void Focus(Stage& stage, const Command& command);
void TypeInto(Stage& stage, const Command& command);
void TypeKeys(Stage& stage, const Command& command);
void PressKey(Stage& stage, const Command& command);
void Select(Stage& stage, const Command& command);
void Drag(Stage& stage, const Command& command);
void PickFile(Stage& stage, const Command& command);
void Answer(Stage& stage, const Command& command);
void PressOk(Stage& stage, const Command& command);
void PressCancel(Stage& stage, const Command& command);
void PressCloseBox(Stage& stage, const Command& command);
void Screenshot(Stage& stage, const Command& command);

// Clicks the tab with that index as a user does; one that is scrolled out of sight is chosen without the mouse.
void AddTabClick(InputQueue& input, HWND tabControl, int index);

}  // namespace automation
