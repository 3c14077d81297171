// A small property sheet over the plain window API, for playing scenarios on: nothing of the component is in it.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace sample {

enum Id : WORD {
    kNumber = 1001,  // refuses a comma when it loses the focus, with a message box
    kName = 1002,    // the page cannot be left while it is empty
    kCheck = 1003,
    kFirstRadio = 1004,
    kSecondRadio = 1005,
    kCombo = 1006,  // "alfa", "beta", "gamma", editable
    kList = 1007,   // ten entries, not editable
    kDisabled = 1008,
    kBrowse = 1009,  // opens a file dialog, which has kAllFiles below it; kName gets the name of the file
    kAllFiles = 1113,
    kRemark = 2001,
};

// What the sheet did: texts read when it was applied, and the notifications of the combo boxes in order.
struct Log {
    std::vector<std::pair<std::string, std::string>> applied;
    std::vector<std::string> notifications;
};

// Runs the sheet until it is closed; 1 when that was with OK, which is the only way to apply it.
int RunSheet(const std::string& caption, Log& log);

}  // namespace sample
