// What the commands of a scenario work on.
#pragma once

#include <windows.h>

#include <ctime>
#include <optional>
#include <string>

#include "automation/host_access.h"
#include "automation/input.h"
#include "automation/profile.h"
#include "automation/scenario.h"

namespace automation {

struct Stage {
    StoreAccess& store;
    const PlayerOptions& options;
    InputQueue input{};
    HWND front = nullptr;                    // the window in front when the command began; null between runs
    std::optional<OpenArguments> opening{};  // set by `open`: the player is to start a run
    std::optional<Command> firstOfRun{};     // set by `open` with a tab: the click on it
    std::optional<int> lastResult{};         // of the last run
    std::string snapshotAtOpen{};            // the store's bytes when the last run began
    ProfileValues profile{};                 // what `profile` has written
    std::time_t began = std::time(nullptr);
};

// "expected ..., got ..."; texts are given in code page 1252.
[[noreturn]] void FailExpectation(const std::string& expected, const std::string& got);

// The text in double quotes with its escapes, as a scenario would write it, in UTF-8.
std::string Quote(const std::string& text);

// A control of the window in front; fails when there is none with the id.
HWND ControlOf(const Stage& stage, const Argument& id);

// The same; fails when it is hidden.
HWND VisibleControl(const Stage& stage, const Argument& id);

// The same; fails when a user cannot move the focus there.
HWND UsableControl(const Stage& stage, const Argument& id);

// The same as ControlOf; fails when it is no track bar.
HWND TrackBarOf(const Stage& stage, const Argument& id);

// Fails when the control has texts that cannot be read.
void ExpectReadableTexts(HWND control);

// The tab control of the sheet in front; fails when no sheet is in front.
HWND TabsOf(const Stage& stage);

// A path that every system understands.
std::string WithSlashes(std::string path);

// The argument's text with %SCRATCH% and %TODAY:FORMAT% replaced, in code page 1252.
std::string ExpandText(const Stage& stage, const std::string& text);

// The same for a text that is compared with one that was seen: when midnight has come since the play began, the seen
// one may hold either day, and a path in the scratch folder has the separators of its system.
std::string ExpandLike(const Stage& stage, const std::string& text, const std::string& got);

}  // namespace automation
