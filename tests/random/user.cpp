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

constexpr const char* kFileDialogEndings[] = {"cancel", "close", "press ESC"};

bool IsClosing(const SeenControl& control) {
    return control.id == IDOK || control.id == IDCANCEL;
}

unsigned WhereIs(const View& view) {
    constexpr std::pair<Kind, unsigned> kPlaces[] = {{Kind::Edit, kInEdit},           {Kind::EditCombo, kInEditCombo},
                                                     {Kind::ListCombo, kInListCombo}, {Kind::Check, kOnCheck},
                                                     {Kind::Radio, kOnRadio},         {Kind::Push, kOnPush}};
    const SeenControl* focus = view.Focused();
    if (view.openList != nullptr || focus == nullptr) {
        return focus != nullptr ? kInOpenList : kElsewhere;
    }
    const auto* place = std::find_if(std::begin(kPlaces), std::end(kPlaces),
                                     [focus](const auto& row) { return row.first == focus->kind; });
    return IsClosing(*focus) ? kOnClosing : place != std::end(kPlaces) ? place->second : kElsewhere;
}

// Which of the rows, by their weights; the rows that do not count weigh nothing.
template <typename Rows, typename Counts>
auto PickByWeight(const Rows& rows, std::mt19937& random, Counts counts) {
    unsigned sum = 0;
    for (const auto& row : rows) {
        sum += counts(row) ? static_cast<unsigned>(row.weight) : 0U;
    }
    unsigned draw = static_cast<unsigned>(random()) % sum;
    const auto* row = std::begin(rows);
    for (; !counts(*row) || draw >= static_cast<unsigned>(row->weight); ++row) {
        draw -= counts(*row) ? static_cast<unsigned>(row->weight) : 0U;
    }
    return row;
}

}  // namespace

struct RandomUser::Habit {
    int weight;
    std::string (RandomUser::*act)();
};

const RandomUser::Habit RandomUser::kOnSheet[] = {
    {26, &RandomUser::ClickControl}, {18, &RandomUser::TypeIntoField}, {8, &RandomUser::TypeKeys},
    {36, &RandomUser::PressKey},     {6, &RandomUser::PickEntry},      {6, &RandomUser::OpenList},
    {6, &RandomUser::ClickTab},      {1, &RandomUser::CloseSheet},
};

const RandomUser::Habit RandomUser::kOnOpenList[] = {
    {60, &RandomUser::PressKey},     {8, &RandomUser::TypeKeys}, {12, &RandomUser::PickEntry},
    {16, &RandomUser::ClickControl}, {2, &RandomUser::ClickTab}, {1, &RandomUser::CloseSheet},
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
    automation::Scenario scenario = automation::ParseScenario("chosen", line, automation::ShapeOfCommand);
    if (!scenario.errors.empty()) {
        throw std::logic_error(scenario.errors.front());
    }
    scenario.commands.front().line = ++m_nLine;
    return scenario.commands.front();
}

// Looks, and writes down what is new.
void RandomUser::Observe() {
    m_view = Look();
    // Where a click puts the caret depends on the system's fonts; what is planned then moves it.
    m_view.caret = m_plan.empty() ? m_view.caret : std::nullopt;
    const std::vector<std::string> lines = DescribeView(m_view);
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
        if (focus != nullptr && focus->id == planned.focus) {
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
        const Habit* habit = m_view.openList != nullptr ? PickByWeight(kOnOpenList, m_random, all)
                                                        : PickByWeight(kOnSheet, m_random, all);
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

std::string RandomUser::ClickControl() {
    const SeenControl* control = PickControl([this](const SeenControl& c) {
        const bool isDone = &c == m_view.Focused() && (c.IsField() || (c.kind == Kind::Radio && c.isChecked));
        return c.kind != Kind::Passive && !IsClosing(c) && !isDone;
    });
    if (control == nullptr) {
        return "";
    }
    if (control->IsField() && !control->text.empty() && control != m_view.Focused()) {
        m_plan = {{control->id, Below(2) == 0 ? "press HOME" : "press END"}};
    }
    return OnControl("click", *control);
}

std::string RandomUser::TypeIntoField() {
    const std::string text = Pick(kTexts);
    const SeenControl* control = PickControl([&text](const SeenControl& c) { return c.IsField() && c.text != text; });
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
        return (row.where & where) != 0 && (row.works == nullptr || row.works(m_view));
    };
    return std::string("press ") + PickByWeight(kKeyHabits, m_random, counts)->key;
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

std::string RandomUser::ClickTab() {
    return m_view.tabs.empty() ? "" : "tab " + Quote(m_view.tabs[m_random() % m_view.tabs.size()]);
}

}  // namespace random_user
