// A seeded user who looks at what is in front, chooses the next command by habit, and writes down what came of it.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "automation/scenario.h"
#include "tests/random/view.h"

namespace random_user {

// What is chosen depends on the seed and on what is seen, nothing else, so it is the same on all systems that show the
// same.
class RandomUser {
public:
    // The trace is a scenario: the commands, and what was new to see after each as checks.
    RandomUser(std::uint32_t seed, std::ostream& trace) : m_random(seed), m_trace(trace) {}

    // The next command; nothing when the user has had enough.
    std::optional<automation::Command> Next();

    // The sheet that the last `open` showed is closed.
    void OnReturned(int result);

private:
    struct Habit;
    static const Habit kOnSheet[];
    static const Habit kOnOpenList[];

    // A command for later, when the control with the number has the focus.
    struct Planned {
        int focus;
        std::string command;
    };

    int Below(int limit);
    template <typename T, size_t size>
    T Pick(const T (&values)[size]) {
        return values[Below(static_cast<int>(size))];
    }
    template <typename Condition>
    const SeenControl* PickControl(Condition condition);

    void Observe();
    std::string Choose();
    std::string BeginRun();
    std::string ChooseBetweenRuns();
    std::string ChooseOnSheet();
    std::string CloseSheet();
    std::string OnControl(const char* command, const SeenControl& control, const std::string& rest = {});
    std::string AfterFocusOn(const SeenControl& control, const std::string& command);

    std::string ClickControl();
    std::string TypeIntoField();
    std::string TypeKeys();
    std::string PressKey();
    std::string PickEntry();
    std::string OpenList();
    std::string ClickTab();

    std::mt19937 m_random;
    std::ostream& m_trace;
    View m_view;
    std::vector<std::string> m_described;  // as last written down
    int m_nLine = 0;
    int m_nRecords = -1;          // still to be given; -1 before the first command
    int m_nRuns = 0;              // still to be begun
    int m_nActions = 0;           // still to be done in this run
    int m_nClosing = 0;           // attempts to close the sheet
    bool m_bCorrects = false;     // the field with the focus was refused and is put right next
    std::optional<int> m_result;  // not yet checked
    std::deque<Planned> m_plan;   // given up when it cannot go on or a box comes up
};

}  // namespace random_user
