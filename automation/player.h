// Plays scenarios: the library's face to the host program and the test player.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "automation/host_access.h"
#include "automation/scenario.h"

namespace automation {

struct Totals {
    int passed = 0;
    int failed = 0;
};

// The shape of a command of the player, for ParseScenario and ReadScenario.
const char* ShapeOfCommand(std::string_view name);

// The commands of a play, one by one: each is asked for when the windows have dealt with the one before. Its arguments
// must have the shape of the command.
using CommandSource = std::function<std::optional<Command>()>;

// Plays what the source gives until it gives nothing; the name is that of the file in what is printed.
Totals PlayCommands(const std::string& fileName, const CommandSource& next, StoreAccess& store,
                    const OpenFunction& open, std::ostream& out, const PlayerOptions& options);

// Plays a scenario that has no errors, printing what fails and then its totals to `out`, in UTF-8.
Totals PlayScenario(const Scenario& scenario, StoreAccess& store, const OpenFunction& open, std::ostream& out,
                    const PlayerOptions& options);

// Opens a sheet, writes a picture of each of its pages into the folder, named by number and tab caption, and cancels.
// Returns false when something went wrong, after printing what.
bool PhotographPages(const OpenFunction& open, const OpenArguments& arguments, std::ostream& out,
                     const std::filesystem::path& folder);

}  // namespace automation
