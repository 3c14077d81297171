// What the library's user lends to a play: its store, the call that opens a sheet, and a folder.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

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

}  // namespace automation
