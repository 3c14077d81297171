// Plays the random user on the component's library and prints the trace of each seed, which is a scenario: for
// comparing two systems, and for playing again.
#include <windows.h>

#include <cstdlib>
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

constexpr const char* kUsage = "usage: tavrikrandom FIRST COUNT   play the seeds from FIRST on\n";

// What a scenario can check of the store.
void PrintStore(const CMdb& store, const automation::StoreAccess& access) {
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

class Play {
public:
    Play() : m_export(host::BindExport()) {
        if (!host::ChooseDisplay(host::Display::Memory)) {
            throw std::runtime_error("there is no display");
        }
        host::UseProfileFolder(m_scratch.Path());
    }

    void PlaySeed(std::uint32_t seed);
    int Failed() const { return m_failed; }

private:
    const host::ExportFunction m_export;
    const automation::ScratchFolder m_scratch;
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
    std::istringstream lines(said.str());
    for (std::string line; std::getline(lines, line);) {
        std::cout << "# " << line << "\n";
    }
    PrintStore(store, access);
    m_failed += totals.failed;
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
    const std::uint32_t first = number(arguments[0]);
    const std::uint32_t count = number(arguments[1]);
    try {
        Play play;
        for (std::uint32_t seed = first; seed < first + count; ++seed) {
            play.PlaySeed(seed);
        }
        std::cerr << count << " seeds, " << play.Failed() << " failed\n";
        return play.Failed() > 0 ? 1 : 0;
    } catch (const std::exception& error) {
        std::cerr << "tavrikrandom: " << error.what() << "\n";
        return 2;
    }
}
