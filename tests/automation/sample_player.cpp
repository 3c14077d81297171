// Plays scenarios on the sample sheet. With --expect FILE what is printed must be that file's text.

#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

#include "automation/player.h"
#include "automation/scratch.h"
#include "tests/automation/sample_sheet.h"

namespace {

// The sample knows no changed flags.
class PairStore : public automation::StoreAccess {
public:
    void Append(const std::string& key, const std::string& value) override { m_pairs.emplace_back(key, value); }
    void Clear() override { m_pairs.clear(); }
    std::optional<std::string> Find(const std::string& key) const override {
        for (const auto& [k, value] : m_pairs) {
            if (k == key) {
                return value;
            }
        }
        return std::nullopt;
    }
    std::optional<bool> IsChanged(const std::string& key) const override {
        return Find(key) ? std::optional(false) : std::nullopt;
    }
    int Count() const override { return static_cast<int>(m_pairs.size()); }
    std::string Snapshot() const override {
        std::string all;
        for (const auto& [key, value] : m_pairs) {
            all.append(key).append(1, '\0').append(value).append(1, '\0');
        }
        return all;
    }

private:
    std::vector<std::pair<std::string, std::string>> m_pairs;
};

// Opens the sample sheet; what it applied, and the notifications of its combo boxes, become records.
std::optional<int> OpenSample(const automation::OpenArguments& arguments, PairStore& store) {
    if (arguments.readOnly) {
        return std::nullopt;
    }
    sample::Log log;
    const int result = sample::RunSheet(arguments.caption, log);
    for (const auto& [key, value] : log.applied) {
        store.Append(key, value);
    }
    std::string notifications;
    for (const std::string& notification : log.notifications) {
        notifications += (notifications.empty() ? "" : ", ") + notification;
    }
    store.Append("notifications", notifications);
    return result;
}

std::string ReadAll(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool isCompared = arguments.size() == 3 && arguments[1] == "--expect";
    if (arguments.empty() || (arguments.size() > 1 && !isCompared)) {
        std::cerr << "usage: sampleplayer FILE.scn [--expect FILE]\n";
        return 2;
    }
    automation::Scenario scenario = automation::ReadScenario(arguments[0], automation::ShapeOfCommand);
    for (const std::string& error : scenario.errors) {
        std::cerr << error << "\n";
    }
    if (!scenario.errors.empty()) {
        return 2;
    }
    scenario.fileName = scenario.fileName.substr(scenario.fileName.find_last_of("/\\") + 1);

    const automation::ScratchFolder scratch;
    PairStore store;
    const automation::OpenFunction open = [&store](const automation::OpenArguments& a) { return OpenSample(a, store); };
    const automation::PlayerOptions options{scratch.Path(), false};
    if (!isCompared) {
        return PlayScenario(scenario, store, open, std::cout, options).failed == 0 ? 0 : 1;
    }
    std::ostringstream output;
    PlayScenario(scenario, store, open, output, options);
    std::cout << output.str();
    return output.str() == ReadAll(arguments[2]) ? 0 : 1;
}
