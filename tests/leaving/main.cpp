// Leaves every field of the sheet in every way, after each of its texts, and compares what comes of it with the tables:
// the boxes, the focus, the text shown, how the sheet ends, what is stored.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "automation/codepage.h"
#include "automation/driver.h"
#include "automation/finder.h"
#include "automation/input.h"
#include "host/host_window.h"
#include "host/store.h"
#include "host/system.h"
#include "tests/leaving/tables.h"

namespace {

constexpr int kMaxBoxes = 4;
constexpr const char* kAway = "away from the page";

struct Cell {
    const Field& field;
    const Text& text;
    const Way& way;

    // Cancelling checks nothing.
    bool IsRefused() const { return text.box != nullptr && way.goes != Goes::Cancels; }
};

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string Utf8(const std::string& text1252) {
    return automation::ConvertFrom1252(text1252);
}

std::string NameOf(const Cell& cell) {
    std::string name = cell.field.id == cell.field.page.comboBox ? "combo box " : "edit ";
    name += std::to_string(cell.field.id);
    name += cell.text.typed != nullptr ? " " + Quoted(cell.text.typed) : " unchanged";
    const char* separator = " left by ";
    for (const Step& step : cell.way.steps) {
        name += std::exchange(separator, ", ");
        name += step.key != nullptr ? step.key : step.place->name;
        if (step.place != nullptr && step.place->onPage != nullptr) {
            name += std::to_string(cell.field.page.*step.place->onPage);
        }
    }
    return name;
}

// Whether the page has what the way leads to, other than the field itself; only a combo box has a list to pick from.
bool IsWay(const Way& way, const Field& field) {
    const bool picks = way.goes == Goes::AsShown;
    return (!picks || field.id == field.page.comboBox) &&
           std::all_of(way.steps.begin(), way.steps.end(), [&](const Step& step) {
               const bool isOnPage = step.place != nullptr && step.place->onPage != nullptr;
               const int control = isOnPage ? field.page.*step.place->onPage : IDOK;
               return control != 0 && (control != field.id || picks);
           });
}

// Every second way, from the first or the second on, where two desktops share the work.
enum class Ways { All, Even, Odd };

// Every third field of a way, from another one on for each, where all would take too long: each way is gone from
// several fields, and each field left in many ways.
enum class Fields { All, Third };

// The cells of some ways whose names contain the text, those of a way one after the other.
std::vector<Cell> CellsNamed(const std::string& part, Ways ways, Fields fields) {
    static const Text unchanged{nullptr};
    std::vector<Cell> cells;
    const auto add = [&](const Cell& cell) {
        if (IsWay(cell.way, cell.field) && NameOf(cell).find(part) != std::string::npos) {
            cells.push_back(cell);
        }
    };
    for (size_t i = 0; i < kWays.size(); ++i) {
        if (ways != Ways::All && i % 2 != (ways == Ways::Even ? 0 : 1)) {
            continue;
        }
        const Way& way = kWays[i];
        for (size_t j = 0; j < kFields.size(); ++j) {
            if (fields == Fields::Third && (i / 2 + j) % 3 != 0) {
                continue;
            }
            const Field& field = kFields[j];
            if (way.goes != Goes::Cancels) {
                add({field, unchanged, way});
            }
            for (const Text& text : field.texts) {
                if (way.goes != Goes::AsShown || &text == &field.texts.back()) {
                    add({field, text, way});
                }
            }
        }
    }
    return cells;
}

// The user. A sheet serves all the cells that follow each other with the same way, until one ends it or fails. m_next
// is the next step; boxes are answered between the steps.
class Leaver : public automation::StepClient {
public:
    Leaver(host::ExportFunction exported, const std::vector<Cell>& cells) : m_exported(exported), m_cells(cells) {
        m_host.Show();
    }

    // Plays all cells and returns whether all went as expected.
    bool Play() {
        for (; m_nCell < m_cells.size(); ++m_nCell) {
            RunSheet();
        }
        std::cout << m_nPlayed << " cells, " << m_nFailed << " failed\n";
        return m_nFailed == 0;
    }

    bool OnStep() override {
        try {
            if (!m_input.IsEmpty()) {
                m_input.DoNext();
            } else if (!AnswerBox()) {
                (this->*m_next)();
            }
        } catch (const automation::Failure& failure) {
            Drop("to enter the field", failure.what());
        }
        return true;
    }

    void OnStuck() override {
        Fail("the sheet to go on", Boxes());
        std::_Exit(EXIT_FAILURE);
    }

private:
    const Cell& Current() const { return m_cells[m_nCell]; }
    HWND Tabs() const { return automation::TabControl(m_sheet); }
    bool IsInFront(const Page& page) const {
        const LRESULT current = SendMessageA(Tabs(), TCM_GETCURSEL, 0, 0);
        return Utf8(automation::TabCaptions(Tabs()).at(static_cast<size_t>(current))) == page.tab;
    }

    void RunSheet() {
        CMdb store;
        host::ScenarioStore access(store);
        for (const Field& field : kFields) {
            access.Append(field.key, field.before);
            m_shown[field.key] = field.before;
        }
        const std::string before = access.Snapshot();
        ShowWindow(m_other.Handle(), SW_HIDE);
        m_sheet = nullptr;
        m_next = &Leaver::Enter;
        int result = -1;
        m_driver.RunDuring([&] { result = m_exported(m_host.Handle(), "Inst\xE4llningar", &store, 0, 1, 0); });
        m_input.Clear();
        if (m_next == &Leaver::Rest) {
            return;
        }
        const std::string expected = m_next == &Leaver::Stay ? "no box; ended with 1" : Expected();
        const std::string got = Boxes() + "; ended with " + std::to_string(result);
        if (got != expected) {
            return Fail(expected, got);
        }
        if (result == 0 && access.Snapshot() != before) {
            return Fail("the store untouched", "changes");
        }
        for (const auto& [key, shown] : m_shown) {
            const std::string stored = Utf8(access.Find(key).value_or(""));
            if (result != 0 && stored != shown) {
                Fail(key + " stored as it was shown, " + Quoted(shown), Quoted(stored));
            }
        }
    }

    bool AnswerBox() {
        HWND front = automation::FrontWindow();
        const auto box = automation::ReadMessageBox(front);
        if (!box) {
            return false;
        }
        m_strBoxes += " " + Quoted(Utf8(box->caption)) + " " + Quoted(Utf8(box->text));
        if (++m_nBoxes > kMaxBoxes) {
            OnStuck();
        }
        m_input.ClickMiddle(automation::MessageBoxButton(front));
        return true;
    }

    void Enter() {
        m_driver.OnProgress();
        m_sheet = m_sheet != nullptr ? m_sheet : automation::FrontWindow();
        if (GetCapture() != nullptr) {
            // The list of the field before is still open; it would take the click on a tab for one beside it.
            m_input.Press(*automation::ParseKey("ESC"));
            return;
        }
        Look();
        if (Current().way.goes == Goes::OtherPage && automation::TabCaptions(Tabs()).size() < 2) {
            return Finish();
        }
        if (!IsInFront(Current().field.page)) {
            Click(SpotOf(kOwnTab));
        }
        m_input.Add([this] {
            m_field = automation::FindControl(m_sheet, Current().field.id);
            m_input.Focus(m_field);
            Type(Current().text.typed);
        });
        ++m_nPlayed;
        m_bAgain = false;
        Start();
    }

    void Start() {
        ForgetBoxes();
        m_nStep = 0;
        m_next = &Leaver::Leave;
    }

    void Leave() {
        const std::vector<Step>& steps = Current().way.steps;
        if (m_nStep == 0) {
            m_strGoal = Current().way.goes == Goes::OtherPage ? kAway : NameOfFocus(Goal());
        }
        Look();
        const Step& step = steps[m_nStep];
        ++m_nStep;
        m_next = m_nStep < steps.size() ? &Leaver::Leave : &Leaver::Return;
        Go(step);  // A box may come up inside this call.
    }

    // A box that is answered has brought the user back.
    void Return() {
        m_next = &Leaver::Observe;
        if (Current().way.goes == Goes::Back && m_nBoxes == 0) {
            ShowWindow(m_host.Handle(), SW_SHOWNORMAL);
            // A box that is still to come up stays in front of the sheet, which it has disabled.
            ShowWindow(m_other.Handle(), SW_HIDE);
            SetActiveWindow(m_sheet);
        }
    }

    void Observe() {
        std::string& shown = m_shown[Current().field.key];
        shown = Utf8(automation::TextOf(m_field));
        const std::string got = Boxes() + "; focus " + NameOfFocus(GetFocus()) + ", text " + Quoted(shown);
        ShowWindow(m_other.Handle(), SW_HIDE);
        if (Current().way.goes == Goes::AsShown ? m_nBoxes != 0 : got != Expected()) {
            return Drop(Expected(), got);
        }
        m_bAgain = Current().IsRefused() && !m_bAgain;
        if (m_bAgain) {
            return Start();
        }
        Type(Current().IsRefused() ? Current().field.mended : nullptr);
        Finish();
    }

    // The last of the sheet's cells stays the current one until the sheet has ended.
    void Finish() {
        const Way& way = Current().way;
        const bool goesOn =
            m_nCell + 1 < m_cells.size() && &m_cells[m_nCell + 1].way == &way && way.goes != Goes::AsShown;
        m_nCell += goesOn ? 1 : 0;
        m_next = goesOn ? &Leaver::Enter : &Leaver::Close;
        ForgetBoxes();
    }

    // The first click may only close a list.
    void Close() {
        Look();
        m_next = GetCapture() == nullptr ? &Leaver::Stay : &Leaver::Close;
        Go(kOk);
    }

    void Stay() { Drop("OK to end the sheet", Boxes()); }

    // Whatever state the sheet is in now, the next cell gets a new one.
    void Drop(const std::string& expected, const std::string& got) {
        Fail(expected, got);
        m_next = &Leaver::Rest;
        PostMessageA(m_sheet, WM_SYSCOMMAND, SC_CLOSE, 0);
    }

    void Rest() {}

    void Look() {
        for (const Field& field : kFields) {
            if (IsInFront(field.page)) {
                m_shown[field.key] = Utf8(automation::TextOf(automation::FindControl(m_sheet, field.id)));
            }
        }
    }

    // Replaces the text of the field that has the focus then.
    void Type(const char* text) {
        if (text == nullptr) {
            return;
        }
        m_input.Add([] { SendMessageA(GetFocus(), EM_SETSEL, 0, -1); });
        if (*text == '\0') {
            m_input.Press(*automation::ParseKey("DELETE"));
        } else {
            m_input.Type(text);
        }
    }

    void Go(const Step& step) {
        if (step.key != nullptr) {
            m_input.Press(*automation::ParseKey(step.key));
        } else if (step.place == &kCloseBox) {
            PostMessageA(m_sheet, WM_SYSCOMMAND, SC_CLOSE, 0);
        } else if (step.place == &kCancelLetGo) {
            HWND button = SpotOf(kCancel).window;
            m_input.Add([button] { PostMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4)); });
            m_input.Add([button] { PostMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(4, -20)); });
        } else if (step.place == &kOtherWindow) {
            m_other.Show();
        } else if (step.place == &kOtherProgram) {
            SetActiveWindow(nullptr);
#ifdef SW_MINIMIZE
        } else if (step.place == &kMinimisedHost) {
            ShowWindow(m_host.Handle(), SW_MINIMIZE);
#endif
        } else {
            Click(SpotOf(*step.place));
        }
    }

    struct Spot {
        HWND window;
        RECT part;
    };

    // A list that is open has captured the mouse.
    void Click(const Spot& spot) {
        HWND target = GetCapture() != nullptr ? GetCapture() : spot.window;
        POINT middle{(spot.part.left + spot.part.right) / 2, (spot.part.top + spot.part.bottom) / 2};
        MapWindowPoints(spot.window, target, &middle, 1);
        m_input.Click(target, middle);
    }

    Spot SpotOf(const Place& place) const {
        const int id = place.onPage != nullptr ? Current().field.page.*place.onPage : place.control;
        Spot spot{automation::FindControl(m_sheet, id), {}};
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        if (&place == &kComboBox || &place == &kComboArrow) {
            SendMessageA(spot.window, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        }
        if (&place == &kComboArrow) {
            spot.part = info.rcButton;
        } else if (&place == &kOwnTab || &place == &kOtherTab) {
            const std::vector<std::string> tabs = automation::TabCaptions(Tabs());
            const bool wantsOwn = &place == &kOwnTab;
            const auto tab = std::find_if(tabs.begin(), tabs.end(), [&](const std::string& caption) {
                return (Utf8(caption) == Current().field.page.tab) == wantsOwn;
            });
            spot.window = Tabs();
            SendMessageA(Tabs(), TCM_GETITEMRECT, static_cast<WPARAM>(tab - tabs.begin()),
                         reinterpret_cast<LPARAM>(&spot.part));
        } else {
            spot.window = &place == &kComboBox ? info.hwndItem : spot.window;
            GetClientRect(spot.window, &spot.part);
        }
        return spot;
    }

    // Where the focus belongs if the text is taken and the page stays.
    HWND Goal() const {
        const auto& [steps, goes] = Current().way;
        if (goes == Goes::Clicked) {
            return SpotOf(*steps.front().place).window;
        }
        const bool isTab = goes == Goes::NextControl || goes == Goes::PreviousControl;
        return isTab ? GetNextDlgTabItem(m_sheet, m_field, goes == Goes::PreviousControl) : m_field;
    }

    // A key that changes the page may leave the focus where it was, out of view: that is the system's own affair.
    std::string NameOfFocus(HWND focus) const {
        if (focus == nullptr || !IsChild(m_sheet, focus)) {
            return "outside the sheet";
        }
        HWND parent = GetParent(focus);
        return IsWindowVisible(m_field)
                   ? std::to_string(GetDlgCtrlID(automation::ClassOf(parent) == "ComboBox" ? parent : focus))
                   : kAway;
    }

    std::string Expected() const {
        const auto& [field, text, way] = Current();
        if (Current().IsRefused()) {
            return "1 box " + Quoted(text.caption) + " " + Quoted(text.box) + "; focus " + std::to_string(field.id) +
                   ", text " + Quoted(text.typed);
        }
        if (way.goes == Goes::Accepts || way.goes == Goes::AsShown || way.goes == Goes::Cancels) {
            return std::string("no box; ended with ") + (way.goes == Goes::Cancels ? "0" : "1");
        }
        return "no box; focus " + m_strGoal + ", text " + Quoted(text.typed != nullptr ? text.typed : field.before);
    }

    std::string Boxes() const {
        return m_nBoxes == 0 ? "no box" : std::to_string(m_nBoxes) + (m_nBoxes > 1 ? " boxes" : " box") + m_strBoxes;
    }

    void ForgetBoxes() {
        m_nBoxes = 0;
        m_strBoxes.clear();
    }

    void Fail(const std::string& expected, const std::string& got) {
        ++m_nFailed;
        std::cout << NameOf(Current()) << ": expected " << expected << "; got " << got << "\n" << std::flush;
    }

    const host::ExportFunction m_exported;
    const std::vector<Cell>& m_cells;
    host::HostWindow m_host{"", {}};
    host::HostWindow m_other{"", {}};
    automation::InputQueue m_input;
    automation::Driver m_driver{*this};
    void (Leaver::*m_next)() = &Leaver::Enter;
    size_t m_nCell = 0;
    size_t m_nStep = 0;     // of the cell's way
    bool m_bAgain = false;  // A refused text is left a second time, which must be no different.
    int m_nPlayed = 0;
    int m_nFailed = 0;
    HWND m_sheet = nullptr;
    HWND m_field = nullptr;
    std::string m_strGoal;
    std::map<std::string, std::string> m_shown;  // what the fields showed last, by key
    int m_nBoxes = 0;                            // since the cell began
    std::string m_strBoxes;
};

}  // namespace

// With the argument --even or --odd half of the ways are played, with any other only the cells whose names contain it.
int main(int argc, char** argv) {
    host::UseUtf8Console();
    const std::vector<std::string> arguments = host::CommandLineArguments(argc, argv);
    try {
        const host::ExportFunction exported = host::BindExport();
        if (!host::ChooseDisplay(host::Display::Memory)) {
            throw std::runtime_error("there is no display");
        }
        const std::string argument = arguments.empty() ? "" : arguments.front();
        const Ways ways = argument == "--even" ? Ways::Even : argument == "--odd" ? Ways::Odd : Ways::All;
        const Fields fields = arguments.size() > 1 && arguments[1] == "--third" ? Fields::Third : Fields::All;
        const std::vector<Cell> cells = CellsNamed(ways == Ways::All ? argument : "", ways, fields);
        return Leaver(exported, cells).Play() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::cerr << "tavrikleaving: " << error.what() << "\n";
        return 2;
    }
}
