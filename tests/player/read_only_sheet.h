// A settings sheet that is not editable, as the export never opens one.
#pragma once

#include "automation/player.h"
#include "include/tavrikconfig.h"

// Runs the sheet modally and returns what its modal loop did: 1 for OK, 0 else.
int RunReadOnlySheet(const automation::OpenArguments& arguments, CMdb& store);
