// Plays scenarios: the library's face to the host program and the test player.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "automation/scenario.h"

namespace automation {

// The host's store as a scenario speaks of it. Texts are code page 1252. Implemented by the library's user.
class StoreAccess {
public:
    virtual ~StoreAccess() = default;
    virtual void Append(const std::string& key, const std::string& value) = 0;
    virtual void Clear() = 0;
    // Value and changed flag of the first record with the key; nothing when there is none.
    virtual std::optional<std::string> Find(const std::string& key) const = 0;
    virtual std::optional<bool> IsChanged(const std::string& key) const = 0;
    virtual int Count() const = 0;
    // All of the store's bytes, for comparing only.
    virtual std::string Snapshot() const = 0;
};

// The arguments of one call of the export.
struct OpenArguments {
    std::string caption = "Inst\xE4llningar";
    int designation = 0;
    int optionalPages = 0;
    int hostMode = 0;
    bool readOnly = false;
};

// Runs the modal call and returns its result; nothing when it cannot open a sheet that way, e.g. read-only.
// The window given as the sheet's parent must not be visible and enabled while the sheet runs.
using OpenFunction = std::function<std::optional<int>(const OpenArguments&)>;

struct PlayerOptions {
    std::filesystem::path scratchFolder;  // for the scenario's files; must exist
    bool isVerbose = false;               // print each command before it is carried out
};

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
