// Plays the random user on the component's library and prints the trace of each seed, which is a scenario: for
// comparing two systems, and for playing again.
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/player.h"
#include "automation/scratch.h"
#include "automation/stage.h"
#include "host/store.h"
#include "host/system.h"
#include "tests/random/user.h"
#include "tests/support/empty_clipboard.h"

namespace {

constexpr const char* kUsage =
    "usage: tavrikrandom FIRST COUNT   play the seeds from FIRST on\n"
    "       tavrikrandom --print SEED  print the scenario of a seed\n";

std::string ReadableByte(unsigned char byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    return byte >= 0x20 && byte < 0x7F ? std::string(1, static_cast<char>(byte))
                                       : std::string("\\x") + kDigits[byte >> 4] + kDigits[byte & 15];
}

// The store byte for byte as comments, and what a scenario can check of it.
void PrintStore(const CMdb& store, const automation::StoreAccess& access) {
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        std::cout << (record->IsChanged() != 0 ? "# * " : "#   ");
        for (unsigned i = 0; i < record->GetSize(); ++i) {
            std::cout << ReadableByte(static_cast<unsigned char>(record->GetData()[i]));
        }
        std::cout << "\n";
    }
    std::set<std::string> keys;
    for (const host::Setting& setting : host::ReadSettings(store)) {
        keys.insert(setting.key);
    }
    for (const std::string& key : keys) {
        std::cout << "store " << key << " " << automation::Quote(*access.Find(key)) << "\n"
                  << "changed " << key << " " << *access.IsChanged(key) << "\n";
    }
    std::cout << "records " << access.Count() << "\n";
}

// What the player had to say, as comments of the trace.
void PrintAsComments(const std::string& text, std::ostream& out) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        out << "# " << line << "\n";
    }
}

class Play {
public:
    Play() : m_export(host::BindExport()) {
        if (!host::ChooseDisplay(host::Display::Memory)) {
            throw std::runtime_error("there is no display");
        }
        host::UseProfileFolder(m_scratch.Path());
    }

    void PlaySeed(std::uint32_t seed);
    void PrintSummary(std::uint32_t seeds) const;
    bool HasFailed() const { return m_failed > 0; }

private:
    const host::ExportFunction m_export;
    const automation::ScratchFolder m_scratch;
    random_user::Steps m_steps;
    int m_failed = 0;
};

void Play::PlaySeed(std::uint32_t seed) {
    std::cout << "# seed " << seed << "\n";
    EmptyTheClipboard();
    CMdb store;
    host::ScenarioStore access(store);
    random_user::RandomUser user(seed, std::cout);
    const automation::OpenFunction open = [&](const automation::OpenArguments& a) -> std::optional<int> {
        const int result = m_export(nullptr, a.caption.c_str(), &store, a.designation, a.optionalPages, a.hostMode);
        user.OnReturned(result);
        return result;
    };
    std::ostringstream said;
    const automation::Totals totals = PlayCommands("seed-" + std::to_string(seed), [&user] { return user.Next(); },
                                                   access, open, said, {m_scratch.Path(), false});
    PrintAsComments(said.str(), std::cout);
    PrintStore(store, access);
    m_failed += totals.failed;
    m_steps.played += user.Counted().played;
    m_steps.didSomething += user.Counted().didSomething;
}

void Play::PrintSummary(std::uint32_t seeds) const {
    const double share = 100.0 * m_steps.didSomething / std::max(m_steps.played, 1);
    std::cerr << seeds << " seeds, " << m_steps.played << " commands played, " << m_steps.didSomething
              << " did something (" << std::fixed << std::setprecision(1) << share << " %), " << m_failed
              << " failed\n";
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
    const bool isPrinted = arguments[0] == "--print";
    const std::uint32_t first = number(arguments[isPrinted ? 1 : 0]);
    const std::uint32_t count = isPrinted ? 1 : number(arguments[1]);
    try {
        Play play;
        for (std::uint32_t seed = first; seed < first + count; ++seed) {
            play.PlaySeed(seed);
        }
        play.PrintSummary(count);
        return play.HasFailed() ? 1 : 0;
    } catch (const std::exception& error) {
        std::cerr << "tavrikrandom: " << error.what() << "\n";
        return 2;
    }
}
