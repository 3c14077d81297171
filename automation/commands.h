// The table of commands: one row a command, from which parsing, permission, counting and carrying out derive.
#pragma once

#include <string_view>

#include "automation/stage.h"

namespace automation {

enum class When {
    BetweenRuns,     // only while no sheet is open
    DuringRun,       // needs a window in front, which is no message box
    DuringRunOrBox,  // needs a window in front
    Always,          // a message box is in its way all the same
    AlwaysOverBox,
};

enum class Kind {
    Action,
    Check,  // counted when it holds
};

struct CommandRow {
    std::string_view name;
    const char* shape;  // see ShapeOf
    When when;
    Kind kind;
    void (*carryOut)(Stage& stage, const Command& command);  // throws a Failure
};

// Null for an unknown command.
const CommandRow* FindCommand(std::string_view name);

}  // namespace automation
