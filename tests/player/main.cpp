// The test player: plays scenario files on the component's own library, and on a read-only sheet, which only a
// program that has the sheet itself can construct.

#include <iostream>
#include <string>
#include <vector>

#include "automation/player.h"
#include "automation/scratch.h"
#include "host/store.h"
#include "host/system.h"
#include "tests/player/read_only_sheet.h"

namespace {

enum ExitStatus { kOk = 0, kChecksFailed = 1, kMalformed = 2 };

struct Options {
    std::vector<std::string> scenarios;
    host::Display display = host::Display::Memory;
    bool isVerbose = false;
};

constexpr const char* kUsage =
    "usage: tavrikplayer [-v] [--memory | --display] FILE.scn...\n"
    "  -v          print each command\n"
    "  --memory    windows in memory (the default); means nothing on Windows\n"
    "  --display   windows on the X server that DISPLAY names\n";

bool ParseOptions(const std::vector<std::string>& arguments, Options& options) {
    for (const std::string& argument : arguments) {
        if (argument == "-v") {
            options.isVerbose = true;
        } else if (argument == "--memory") {
            options.display = host::Display::Memory;
        } else if (argument == "--display") {
            options.display = host::Display::Screen;
        } else if (argument.starts_with('-')) {
            return false;
        } else {
            options.scenarios.push_back(argument);
        }
    }
    return !options.scenarios.empty();
}

int Play(const Options& options) {
    std::vector<automation::Scenario> scenarios;
    bool isMalformed = false;
    for (const std::string& name : options.scenarios) {
        scenarios.push_back(automation::ReadScenario(name, automation::ShapeOfCommand));
        for (const std::string& error : scenarios.back().errors) {
            std::cerr << error << "\n";
        }
        isMalformed = isMalformed || !scenarios.back().errors.empty();
    }
    if (isMalformed) {
        return kMalformed;
    }

    const host::ExportFunction exported = host::BindExport();
    if (!host::ChooseDisplay(options.display)) {
        std::cerr << "tavrikplayer: there is no display\n";
        return kMalformed;
    }
    const automation::ScratchFolder scratch;
    int failed = 0;
    for (const automation::Scenario& scenario : scenarios) {
        CMdb store;
        host::ScenarioStore access(store);
        const automation::OpenFunction open = [&](const automation::OpenArguments& a) -> std::optional<int> {
            if (a.readOnly) {
                return RunReadOnlySheet(a, store);
            }
            return exported(nullptr, a.caption.c_str(), &store, a.designation, a.optionalPages, a.hostMode);
        };
        failed += PlayScenario(scenario, access, open, std::cout, {scratch.Path(), options.isVerbose}).failed;
    }
    return failed == 0 ? kOk : kChecksFailed;
}

}  // namespace

int main(int argc, char** argv) {
    host::UseUtf8Console();
    Options options;
    if (!ParseOptions(host::CommandLineArguments(argc, argv), options)) {
        std::cerr << kUsage;
        return kMalformed;
    }
    try {
        return Play(options);
    } catch (const std::exception& error) {
        std::cerr << "tavrikplayer: " << error.what() << "\n";
        return kMalformed;
    }
}
