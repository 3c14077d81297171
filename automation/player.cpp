// Plays a scenario: between runs commands are carried out at once, during a run each is one step of the driver.

#include "automation/player.h"

#include <cstdlib>
#include <utility>

#include "automation/actions.h"
#include "automation/commands.h"
#include "automation/driver.h"
#include "automation/finder.h"

namespace automation {
namespace {

constexpr int kMaxBoxesPerCommand = 10;
constexpr int kMaxCloseAttempts = 10;
constexpr int kExitCannotClose = 3;

class Player : public StepClient {
public:
    Player(const std::string& fileName, const CommandSource& source, StoreAccess& store, const OpenFunction& open,
           std::ostream& out, const PlayerOptions& options)
        : m_fileName(fileName), m_source(source), m_open(open), m_out(out), m_stage{store, options} {}

    Totals Play();
    bool OnStep() override;
    void OnStuck() override;

private:
    void Run();
    bool HasNext();
    void CarryOutNext();
    void CarryOut(const CommandRow& row, const Command& command);
    bool IsBoxInTheWay();
    bool IsOutOfPlace(const CommandRow& row, const Command& command);
    void CloseSheet();
    [[noreturn]] void GiveUp();
    void Fail(int line, const std::string& message);
    void PrintTotals();

    const std::string& m_fileName;
    const CommandSource& m_source;
    const OpenFunction& m_open;
    std::ostream& m_out;
    Stage m_stage;
    Driver m_driver{*this};
    Totals m_totals;
    std::optional<Command> m_next;
    HWND m_hAimedAt = nullptr;  // the window in front when the input was queued
    int m_nLine = 0;            // of the command that is being carried out
    int m_nBoxes = 0;           // message boxes pressed away since the last command
    int m_nCloseAttempts = 0;   // since the commands ended with the sheet open
    bool m_bRunning = false;
    bool m_bGivenUp = false;  // no more commands; the sheet is only to be closed
    bool m_bStuck = false;    // told once
};

Totals Player::Play() {
    m_stage.front = nullptr;
    while (HasNext()) {
        CarryOutNext();
        if (m_stage.opening) {
            Run();
        }
    }
    PrintTotals();
    return m_totals;
}

bool Player::HasNext() {
    if (!m_next && !m_bGivenUp) {
        m_next = m_source();
    }
    return m_next && !m_bGivenUp;
}

void Player::Run() {
    const OpenArguments arguments = *m_stage.opening;
    m_stage.opening.reset();
    m_next = std::exchange(m_stage.firstOfRun, std::nullopt);
    m_stage.snapshotAtOpen = m_stage.store.Snapshot();
    m_stage.lastResult.reset();
    m_nCloseAttempts = 0;
    m_bRunning = true;
    m_driver.RunDuring([this, &arguments] { m_stage.lastResult = m_open(arguments); });
    m_bRunning = false;
    m_stage.front = nullptr;
    // What a command still wanted to do when the sheet closed is no use any more.
    m_stage.input.Clear();
    if (!m_stage.lastResult) {
        Fail(m_nLine, "this program cannot open such a sheet");
    }
}

bool Player::OnStep() {
    m_stage.front = FrontWindow();
    if (m_stage.front != m_hAimedAt && ReadMessageBox(m_stage.front)) {
        // The box is for the next command; the rest of this one would go to the box.
        m_stage.input.Clear();
    }
    if (!m_stage.input.IsEmpty()) {
        try {
            m_stage.input.DoNext();
            m_driver.OnProgress();
        } catch (const Failure& failure) {
            Fail(m_nLine, failure.what());
        }
    } else if (HasNext()) {
        CarryOutNext();
    } else if (!IsBoxInTheWay()) {
        CloseSheet();
    }
    return true;
}

void Player::OnStuck() {
    Fail(m_nLine, "no progress for " + std::to_string(Driver::kStuckAfter.count()) + " seconds");
    if (m_bStuck) {
        GiveUp();
    }
    m_bStuck = true;
    m_stage.input.Clear();
    m_bGivenUp = true;
}

void Player::CarryOutNext() {
    const CommandRow& row = *FindCommand(m_next->name);
    const bool seesBoxes = row.when == When::DuringRunOrBox || row.when == When::AlwaysOverBox;
    m_driver.OnProgress();
    if (m_bRunning && !seesBoxes && IsBoxInTheWay()) {
        return;
    }
    const Command command = *std::exchange(m_next, std::nullopt);
    m_nBoxes = 0;
    m_nLine = command.line;
    m_hAimedAt = m_stage.front;
    if (!IsOutOfPlace(row, command)) {
        CarryOut(row, command);
    }
}

void Player::CarryOut(const CommandRow& row, const Command& command) {
    if (m_stage.options.isVerbose) {
        m_out << m_fileName << ":" << command.line << ": " << command.source << "\n" << std::flush;
    }
    try {
        row.carryOut(m_stage, command);
        if (row.kind == Kind::Check) {
            ++m_totals.passed;
        }
    } catch (const Failure& failure) {
        Fail(command.line, failure.what());
    }
}

// A box that the next command does not deal with fails the command that brought it up, and is pressed away.
bool Player::IsBoxInTheWay() {
    const std::optional<MessageBoxText> box = ReadMessageBox(m_stage.front);
    if (!box) {
        return false;
    }
    Fail(m_nLine, "expected no message box, got " + Quote(box->caption) + " " + Quote(box->text));
    m_hAimedAt = m_stage.front;
    m_stage.input.ClickMiddle(MessageBoxButton(m_stage.front));
    if (++m_nBoxes == kMaxBoxesPerCommand) {
        Fail(m_nLine, "expected no more message boxes, got one after the other");
        m_bGivenUp = true;
    }
    return true;
}

bool Player::IsOutOfPlace(const CommandRow& row, const Command& command) {
    const bool wantsRun = row.when == When::DuringRun || row.when == When::DuringRunOrBox;
    if (wantsRun && !m_bRunning) {
        Fail(command.line, "expected an open sheet, got none");
    } else if (row.when == When::BetweenRuns && m_bRunning) {
        Fail(command.line, "expected the sheet to be closed, got it open");
    } else {
        return false;
    }
    return true;
}

void Player::CloseSheet() {
    if (m_nCloseAttempts == 0) {
        Fail(m_nLine, "expected the sheet to be closed at the end, got it open");
    }
    if (++m_nCloseAttempts > kMaxCloseAttempts) {
        GiveUp();
    }
    m_hAimedAt = m_stage.front;
    // Clicking Cancel takes the focus from a field, which may object again and again; the close box does not.
    HWND button = GetDlgItem(m_stage.front, IDCANCEL);
    if (button != nullptr && m_nCloseAttempts == 1) {
        m_stage.input.ClickMiddle(button);
    } else {
        PostMessageA(m_stage.front, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
}

// The modal call cannot be left by any other way than closing its windows.
void Player::GiveUp() {
    m_out << m_fileName << ": the sheet cannot be closed\n";
    PrintTotals();
    m_stage.profile.Restore();
    std::_Exit(kExitCannotClose);
}

void Player::Fail(int line, const std::string& message) {
    ++m_totals.failed;
    m_out << m_fileName << ":" << line << ": " << message << "\n" << std::flush;
}

void Player::PrintTotals() {
    m_out << m_totals.passed << " passed, " << m_totals.failed << " failed\n" << std::flush;
}

}  // namespace

Totals PlayCommands(const std::string& fileName, const CommandSource& next, StoreAccess& store,
                    const OpenFunction& open, std::ostream& out, const PlayerOptions& options) {
    return Player(fileName, next, store, open, out, options).Play();
}

Totals PlayScenario(const Scenario& scenario, StoreAccess& store, const OpenFunction& open, std::ostream& out,
                    const PlayerOptions& options) {
    auto command = scenario.commands.begin();
    const CommandSource next = [&]() -> std::optional<Command> {
        if (command == scenario.commands.end()) {
            return std::nullopt;
        }
        return *command++;
    };
    return PlayCommands(scenario.fileName, next, store, open, out, options);
}

}  // namespace automation
