// Chooses. A habit that finds nothing to act on gives nothing, and another one is drawn.

#include "tests/random/user.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "automation/player.h"
#include "automation/stage.h"
#include "tests/random/habits.h"

namespace random_user {
namespace {

using automation::Quote;
using Kind = SeenControl::Kind;

constexpr int kMostRecords = 12;
constexpr int kFewestActions = 5;
constexpr int kMoreActions = 16;
constexpr int kGentleAttempts = 4;
constexpr int kMostAttempts = 20;
constexpr int kAnyFocus = 0;

constexpr const char* kFileDialogEndings[] = {"cancel", "close", "press ESC"};

bool IsClosing(const SeenControl& control) {
    return control.id == IDOK || control.id == IDCANCEL;
}

unsigned WhereIs(const View& view) {
    if (view.openList != nullptr) {
        return kInOpenList;
    }
    const SeenControl* focus = view.Focused();
    if (focus == nullptr) {
        return kElsewhere;
    }
    switch (focus->kind) {
        case Kind::Edit:
            return kInEdit;
        case Kind::EditCombo:
            return kInEditCombo;
        case Kind::ListCombo:
            return kInListCombo;
        case Kind::Check:
            return kOnCheck;
        case Kind::Radio:
            return kOnRadio;
        case Kind::Push:
            return IsClosing(*focus) ? kOnClosing : kOnPush;
        default:
            return kElsewhere;
    }
}

// Which of the rows, by their weights; the rows that do not count weigh nothing.
template <typename Rows, typename Counts>
auto PickByWeight(const Rows& rows, int draw, Counts counts) {
    for (const auto& row : rows) {
        draw -= counts(row) ? row.weight : 0;
        if (draw < 0) {
            return &row;
        }
    }
    throw std::logic_error("the draw is beyond the weights");
}

template <typename Rows, typename Counts>
int SumOfWeights(const Rows& rows, Counts counts) {
    int sum = 0;
    for (const auto& row : rows) {
        sum += counts(row) ? row.weight : 0;
    }
    return sum;
}

}  // namespace

struct RandomUser::Habit {
    int weight;
    std::string (RandomUser::*act)();
};

const RandomUser::Habit RandomUser::kOnSheet[] = {
    {26, &RandomUser::ClickControl}, {18, &RandomUser::TypeIntoField}, {8, &RandomUser::TypeKeys},
    {36, &RandomUser::PressKey},     {6, &RandomUser::PickEntry},      {6, &RandomUser::OpenList},
    {5, &RandomUser::MoveFocus},     {6, &RandomUser::ClickTab},       {1, &RandomUser::PressClosing},
};

const RandomUser::Habit RandomUser::kOnOpenList[] = {
    {60, &RandomUser::PressKey},       {8, &RandomUser::TypeKeys}, {12, &RandomUser::PickEntry},
    {16, &RandomUser::ClickElsewhere}, {2, &RandomUser::ClickTab}, {1, &RandomUser::PressClosing},
};

// Not a standard distribution: those differ from one library to another.
int RandomUser::Below(int limit) {
    return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

template <typename Condition>
const SeenControl* RandomUser::PickControl(Condition condition) {
    std::vector<const SeenControl*> found;
    for (const SeenControl& control : m_view.controls) {
        if (control.IsUsable() && condition(control)) {
            found.push_back(&control);
        }
    }
    return found.empty() ? nullptr : found[static_cast<size_t>(Below(static_cast<int>(found.size())))];
}

std::optional<automation::Command> RandomUser::Next() {
    Observe();
    const std::string line = Choose();
    if (line.empty()) {
        return std::nullopt;
    }
    m_trace << line << "\n" << std::flush;  // It may be the last one that the library survives.
    m_bStep = m_view.front != View::Front::None;
    automation::Scenario scenario = automation::ParseScenario("chosen", line, automation::ShapeOfCommand);
    if (!scenario.errors.empty()) {
        throw std::logic_error(scenario.errors.front());
    }
    scenario.commands.front().line = ++m_nLine;
    return scenario.commands.front();
}

// Looks, and writes down what is new.
void RandomUser::Observe() {
    const View before = std::exchange(m_view, Look());
    // Where a click puts the caret depends on the system's fonts; what is planned then moves it.
    m_view.caret = m_plan.empty() ? m_view.caret : std::nullopt;
    const std::vector<std::string> lines = DescribeView(m_view);
    const bool isSame =
        m_view.front == before.front && m_view.box == before.box && (lines.empty() || lines == m_described);
    m_steps.played += m_bStep ? 1 : 0;
    m_steps.didSomething += m_bStep && !isSame ? 1 : 0;
    for (const std::string& line : lines) {
        if (std::find(m_described.begin(), m_described.end(), line) == m_described.end()) {
            m_trace << line << "\n";
        }
    }
    if (m_view.front == View::Front::None) {
        m_described.clear();
    } else if (!lines.empty()) {
        m_described = lines;
    }
    if (m_view.openList == nullptr || m_view.openList != before.openList) {
        const auto combo = std::find_if(before.controls.begin(), before.controls.end(), [this](const SeenControl& c) {
            return m_view.Focused() != nullptr && c.id == m_view.Focused()->id;
        });
        m_bPicked = combo == before.controls.end() || combo->selection != m_view.highlighted ||
                    combo->text != m_view.Focused()->text;
    } else {
        m_bPicked = true;
    }
}

void RandomUser::OnReturned(int result) {
    m_result = result;
}

std::string RandomUser::Choose() {
    switch (m_view.front) {
        case View::Front::None:
            return ChooseBetweenRuns();
        case View::Front::MessageBox:
            m_plan.clear();
            m_bCorrects = Below(3) > 0;
            return "answer " + Quote(m_view.box->caption) + " " + Quote(m_view.box->text);
        case View::Front::FileDialog:
            return Pick(kFileDialogEndings);
        case View::Front::Dialog:
            break;
    }
    if (!m_plan.empty()) {
        const Planned planned = m_plan.front();
        m_plan.pop_front();
        const SeenControl* focus = m_view.Focused();
        if (planned.focus == kAnyFocus || (focus != nullptr && focus->id == planned.focus)) {
            return planned.command;
        }
        m_plan.clear();
    }
    // Whose field was refused mostly enters something that no field refuses, or would get no further.
    if (std::exchange(m_bCorrects, false) && m_view.Focused() != nullptr && m_view.Focused()->kind == Kind::Edit) {
        return OnControl("type", *m_view.Focused(), "\"25\"");
    }
    return m_nActions-- > 0 ? ChooseOnSheet() : CloseSheet();
}

std::string RandomUser::ChooseBetweenRuns() {
    if (m_nRecords < 0) {
        m_nRecords = Below(kMostRecords);
        m_nRuns = 1 + Below(3);
    }
    if (const std::optional<int> result = std::exchange(m_result, std::nullopt)) {
        m_trace << "result " << *result << "\n";
        m_nRecords = Below(3) - 1;
        if (*result == 0) {
            return "unchanged";
        }
    }
    if (m_nRecords > 0) {
        --m_nRecords;
        return std::string("given ") + Pick(kKeys) + " " + Quote(Pick(kValues));
    }
    return m_nRuns-- > 0 ? BeginRun() : "";
}

std::string RandomUser::BeginRun() {
    constexpr int kHostModes[] = {0, 0, 1, 3};
    m_nActions = kFewestActions + Below(kMoreActions);
    m_nClosing = 0;
    const std::string designation = std::to_string(Below(2));
    const std::string optionalPages = std::to_string(Below(2));
    return "open designation=" + designation + " optional-pages=" + optionalPages +
           " host-mode=" + std::to_string(Pick(kHostModes));
}

std::string RandomUser::ChooseOnSheet() {
    const auto all = [](const Habit&) { return true; };
    for (;;) {
        const Habit* habit = m_view.openList != nullptr
                                 ? PickByWeight(kOnOpenList, Below(SumOfWeights(kOnOpenList, all)), all)
                                 : PickByWeight(kOnSheet, Below(SumOfWeights(kOnSheet, all)), all);
        if (std::string command = (this->*habit->act)(); !command.empty()) {
            return command;
        }
    }
}

// Whatever comes up meanwhile, the sheet gets closed. Only the close box takes the focus from nobody who may object.
std::string RandomUser::CloseSheet() {
    constexpr const char* kEndings[] = {"ok", "cancel", "close", "press ENTER", "press ESC"};
    if (++m_nClosing > kMostAttempts) {
        return "";
    }
    return m_nClosing > kGentleAttempts ? "close" : Pick(kEndings);
}

std::string RandomUser::OnControl(const char* command, const SeenControl& control, const std::string& rest) {
    return command + (" " + std::to_string(control.id)) + (rest.empty() ? "" : " ") + rest;
}

std::string RandomUser::AfterFocusOn(const SeenControl& control, const std::string& command) {
    if (&control == m_view.Focused()) {
        return command;
    }
    m_plan = {{control.id, command}};
    return OnControl(Below(2) == 0 && control.kind != Kind::ListCombo ? "click" : "focus", control);
}

std::string RandomUser::ClickOn(const SeenControl& control) {
    const bool isField = control.kind == Kind::Edit || control.kind == Kind::EditCombo;
    if (isField && !control.text.empty() && &control != m_view.Focused()) {
        m_plan = {{control.id, Below(2) == 0 ? "press HOME" : "press END"}};
    }
    return OnControl("click", control);
}

std::string RandomUser::ClickControl() {
    const SeenControl* control = PickControl([this](const SeenControl& c) {
        const bool isFocused = &c == m_view.Focused();
        const bool isDone =
            isFocused && (c.kind == Kind::Edit || c.kind == Kind::EditCombo || (c.kind == Kind::Radio && c.isChecked));
        return c.kind != Kind::Passive && !IsClosing(c) && !isDone;
    });
    return control != nullptr ? ClickOn(*control) : "";
}

std::string RandomUser::ClickElsewhere() {
    const SeenControl* control =
        PickControl([](const SeenControl& c) { return c.kind != Kind::Passive && !IsClosing(c); });
    return control != nullptr ? ClickOn(*control) : "";
}

std::string RandomUser::TypeIntoField() {
    const std::string text = Pick(kTexts);
    const SeenControl* control = PickControl([&text](const SeenControl& c) {
        return (c.kind == Kind::Edit || c.kind == Kind::EditCombo) && c.text != text;
    });
    return control != nullptr ? AfterFocusOn(*control, OnControl("type", *control, Quote(text))) : "";
}

std::string RandomUser::TypeKeys() {
    const std::string text = Pick(kTexts);
    const bool isText = m_view.caret.has_value();
    const bool isListCombo = m_view.Focused() != nullptr && m_view.Focused()->kind == Kind::ListCombo;
    return !text.empty() && (isText || isListCombo) ? "keys " + Quote(text) : "";
}

std::string RandomUser::PressKey() {
    const unsigned where = WhereIs(m_view);
    const auto counts = [&](const KeyHabit& row) {
        const bool isSafe = !row.isAccepting || !m_bPicked;
        return (row.where & where) != 0 && isSafe && (row.works == nullptr || row.works(m_view));
    };
    const KeyHabit* habit = PickByWeight(kKeyHabits, Below(SumOfWeights(kKeyHabits, counts)), counts);
    std::string command = std::string("press ") + habit->key;
    if (habit->isAccepting) {
        // Systems differ in whether the key accepts what is picked; Enter then accepts it on all of them.
        const int combo = m_view.Focused()->id;
        m_plan = {{combo, "press F4"}, {combo, "press ENTER"}};
        if (command.ends_with("TAB")) {
            m_plan.push_front({kAnyFocus, OnControl("focus", *m_view.Focused())});
        }
    }
    return command;
}

std::string RandomUser::PickEntry() {
    const SeenControl* control = PickControl([this](const SeenControl& c) {
        return c.IsCombo() && c.count > (c.selection >= 0 ? 1 : 0) &&
               (m_view.openList == nullptr || &c == m_view.Focused());
    });
    if (control == nullptr) {
        return "";
    }
    int entry = Below(control->count - (control->selection >= 0 ? 1 : 0));
    entry += control->selection >= 0 && entry >= control->selection ? 1 : 0;
    return AfterFocusOn(*control, OnControl("select", *control, "@" + std::to_string(entry)));
}

std::string RandomUser::OpenList() {
    constexpr const char* kOpenings[] = {"press F4", "press ALT+DOWN", "press ALT+UP"};
    const SeenControl* control = PickControl([](const SeenControl& c) { return c.IsCombo(); });
    return control != nullptr ? AfterFocusOn(*control, Pick(kOpenings)) : "";
}

std::string RandomUser::MoveFocus() {
    const SeenControl* control =
        PickControl([this](const SeenControl& c) { return c.kind != Kind::Passive && &c != m_view.Focused(); });
    return control != nullptr ? OnControl("focus", *control) : "";
}

std::string RandomUser::ClickTab() {
    const int others = static_cast<int>(m_view.tabs.size()) - 1;
    if (others <= 0) {
        return "";
    }
    const int tab = (m_view.tab + 1 + Below(others)) % (others + 1);
    return "tab " + Quote(m_view.tabs[static_cast<size_t>(tab)]);
}

std::string RandomUser::PressClosing() {
    constexpr const char* kClosings[] = {"ok", "cancel", "close"};
    return Pick(kClosings);
}

}  // namespace random_user
