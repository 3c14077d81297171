// The test player: plays a scenario file on the component's own library, and on a read-only sheet, which only a
// program that has the sheet itself can construct. One file, because the library's state lives as long as the process.

#include <iostream>
#include <string>
#include <vector>

#include "automation/player.h"
#include "automation/scratch.h"
#include "host/store.h"
#include "host/system.h"
#include "tests/player/read_only_sheet.h"
#include "tests/support/empty_clipboard.h"

namespace {

enum ExitStatus { kOk = 0, kFailed = 1, kCannotPlay = 2 };

struct Options {
    std::string scenario;
    host::Display display = host::Display::Memory;
    bool isVerbose = false;
    bool showsHelp = false;
};

constexpr const char* kUsage =
    "usage: tavrikplayer [-v] [--memory | --display] FILE.scn\n"
    "  -v          print each command\n"
    "  -h, --help  print this\n"
    "  --memory    windows in memory (the default); means nothing on Windows\n"
    "  --display   windows on the X server that DISPLAY names\n";

bool ParseOptions(const std::vector<std::string>& arguments, Options& options) {
    for (const std::string& argument : arguments) {
        if (argument == "-v") {
            options.isVerbose = true;
        } else if (argument == "-h" || argument == "--help") {
            options.showsHelp = true;
        } else if (argument == "--memory") {
            options.display = host::Display::Memory;
        } else if (argument == "--display") {
            options.display = host::Display::Screen;
        } else if (argument.starts_with('-') || !options.scenario.empty()) {
            return false;
        } else {
            options.scenario = argument;
        }
    }
    return options.showsHelp || !options.scenario.empty();
}

// Each line that is no command has failed, and a file that cannot be read has one failure.
int ReportErrors(const automation::Scenario& scenario) {
    for (const std::string& error : scenario.errors) {
        std::cout << error << "\n";
    }
    std::cout << "0 passed, " << scenario.errors.size() << " failed\n";
    return kFailed;
}

int Play(const Options& options) {
    const automation::Scenario scenario = automation::ReadScenario(options.scenario, automation::ShapeOfCommand);
    if (!scenario.errors.empty()) {
        return ReportErrors(scenario);
    }
    const host::ExportFunction exported = host::BindExport();
    if (!host::ChooseDisplay(options.display)) {
        std::cerr << "tavrikplayer: there is no display\n";
        return kCannotPlay;
    }
    EmptyTheClipboard();
    const automation::ScratchFolder scratch;
    host::UseProfileFolder(scratch.Path());
    CMdb store;
    host::ScenarioStore access(store);
    const automation::OpenFunction open = [&](const automation::OpenArguments& a) -> std::optional<int> {
        if (a.readOnly) {
            return RunReadOnlySheet(a, store);
        }
        return exported(nullptr, a.caption.c_str(), &store, a.designation, a.optionalPages, a.hostMode);
    };
    const automation::Totals totals =
        PlayScenario(scenario, access, open, std::cout, {scratch.Path(), options.isVerbose});
    if (host::IsDisplayLost()) {
        std::cerr << "tavrikplayer: the connection to the display was lost\n";
        return kCannotPlay;
    }
    return totals.failed == 0 ? kOk : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    host::ReserveStandardStreams();
    host::UseUtf8Console();
    Options options;
    if (!ParseOptions(host::CommandLineArguments(argc, argv), options)) {
        std::cerr << kUsage;
        return kCannotPlay;
    }
    if (options.showsHelp) {
        std::cout << kUsage;
        return kOk;
    }
    try {
        return Play(options);
    } catch (const std::exception& error) {
        std::cerr << "tavrikplayer: " << error.what() << "\n";
        return kCannotPlay;
    }
}
