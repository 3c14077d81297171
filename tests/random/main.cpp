// Plays the random user on the component's library and prints what came of each seed, for comparing two systems.
#include <windows.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "automation/player.h"
#include "automation/scratch.h"
#include "host/store.h"
#include "host/system.h"
#include "tests/random/generator.h"

namespace {

constexpr const char* kUsage =
    "usage: tavrikrandom FIRST COUNT   play the seeds from FIRST on\n"
    "       tavrikrandom --print SEED  print the scenario of a seed\n";

std::string ReadableByte(unsigned char byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    return byte >= 0x20 && byte < 0x7F ? std::string(1, static_cast<char>(byte))
                                       : std::string("\\x") + kDigits[byte >> 4] + kDigits[byte & 15];
}

void PrintStore(const CMdb& store) {
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        std::cout << (record->IsChanged() != 0 ? "  * " : "    ");
        for (unsigned i = 0; i < record->GetSize(); ++i) {
            std::cout << ReadableByte(static_cast<unsigned char>(record->GetData()[i]));
        }
        std::cout << "\n";
    }
}

// A seed must come out the same whatever was played before it.
void EmptyTheClipboard() {
    if (OpenClipboard(nullptr)) {
        EmptyClipboard();
        CloseClipboard();
    }
}

// Returns how many commands the scenario had, or nothing when it is malformed.
std::optional<size_t> PlaySeed(std::uint32_t seed, const host::ExportFunction& exported,
                               const automation::ScratchFolder& scratch) {
    const automation::Scenario scenario =
        automation::ParseScenario("seed-" + std::to_string(seed), RandomScenario(seed), automation::ShapeOfCommand);
    for (const std::string& error : scenario.errors) {
        std::cerr << error << "\n";
    }
    if (!scenario.errors.empty()) {
        return std::nullopt;
    }
    EmptyTheClipboard();
    CMdb store;
    host::ScenarioStore access(store);
    const automation::OpenFunction open = [&](const automation::OpenArguments& a) -> std::optional<int> {
        return exported(nullptr, a.caption.c_str(), &store, a.designation, a.optionalPages, a.hostMode);
    };
    PlayScenario(scenario, access, open, std::cout, {scratch.Path(), false});
    PrintStore(store);
    return scenario.commands.size();
}

int Play(std::uint32_t first, std::uint32_t count) {
    const host::ExportFunction exported = host::BindExport();
    if (!host::ChooseDisplay(host::Display::Memory)) {
        std::cerr << "tavrikrandom: there is no display\n";
        return 2;
    }
    const automation::ScratchFolder scratch;
    size_t commands = 0;
    for (std::uint32_t seed = first; seed < first + count; ++seed) {
        const std::optional<size_t> played = PlaySeed(seed, exported, scratch);
        if (!played) {
            return 1;
        }
        commands += *played;
    }
    std::cerr << count << " seeds, " << commands << " commands\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = host::CommandLineArguments(argc, argv);
    if (arguments.size() != 2) {
        std::cerr << kUsage;
        return 2;
    }
    const auto number = [](const std::string& text) {
        return static_cast<std::uint32_t>(std::strtoul(text.c_str(), nullptr, 10));
    };
    if (arguments[0] == "--print") {
        std::cout << RandomScenario(number(arguments[1]));
        return 0;
    }
    try {
        return Play(number(arguments[0]), number(arguments[1]));
    } catch (const std::exception& error) {
        std::cerr << "tavrikrandom: " << error.what() << "\n";
        return 2;
    }
}
