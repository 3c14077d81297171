// The host program's command line.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "automation/player.h"

namespace host {

// What is wrong with the command line, one line of English.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Options {
    std::string settingsFile;
    automation::OpenArguments open;
    std::vector<std::string> scenarios;
    std::string screenshotFolder;
    int awareness = -1;   // -1: as the system takes a program that says nothing.
    int dotsPerInch = 0;  // 0: as the system says.
    bool usesMemoryDisplay = false;
    bool showsHelp = false;
    bool showsVersion = false;

    bool IsInteractive() const { return scenarios.empty() && screenshotFolder.empty(); }
};

extern const char* const kUsage;

// Throws a UsageError. With --help or --version the rest may be missing.
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace host
