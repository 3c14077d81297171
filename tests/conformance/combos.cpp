// Combo boxes: what they tell their parent, and selection, text and drop state after each step.
#include "tests/conformance/combo_stage.h"

namespace {

constexpr const char* kFruit[] = {"Apple", "banana", "Cherry", "apricot", "Date", "elder", "fig", "Zebra", "yam"};

class FruitStage : public ComboStage {
public:
    FruitStage(Trace& trace, DWORD style) : ComboStage(trace, style, {150, 90}) {
        for (const char* text : kFruit) {
            ask(CB_ADDSTRING, 0, textParam(text));
        }
        // What a notification's receiver reads differs from what is shown afterwards.
        parent().setHook([this](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            if (message == WM_COMMAND && reinterpret_cast<HWND>(lParam) == control()) {
                char text[64];
                GetWindowTextA(control(), text, sizeof text);
                trace_.line("shows \"%s\", current %d%s", text, number(ask(CB_GETCURSEL)),
                            ask(CB_GETDROPPEDSTATE) ? ", open" : "");
            }
            return false;
        });
    }
};

void traceStructure(Trace& trace) {
    trace.section("structure");
    for (const DWORD style : {DWORD{CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_SORT | CBS_UPPERCASE | WS_VSCROLL},
                              DWORD{CBS_DROPDOWNLIST | WS_VSCROLL}}) {
        const FruitStage stage(trace, style);
        const COMBOBOXINFO& info = stage.info();
        const auto describe = [&](const char* what, HWND window) {
            char name[16] = "";
            GetClassNameA(window, name, sizeof name);
            trace.line("%s: %s %d style %08x %08x, code %x", what, name, GetDlgCtrlID(window),
                       static_cast<unsigned>(GetWindowLongA(window, GWL_STYLE)),
                       static_cast<unsigned>(GetWindowLongA(window, GWL_EXSTYLE)),
                       static_cast<unsigned>(SendMessageA(window, WM_GETDLGCODE, 0, 0)));
        };
        describe("combo", stage.control());
        describe("list", info.hwndList);
        if (info.hwndItem) {
            describe("field", info.hwndItem);
        }
        RECT window;
        RECT client;
        GetWindowRect(stage.control(), &window);
        GetClientRect(stage.control(), &client);
        trace.line("combo %d, inside it the field %d, the list %d, height over field %d",
                   info.hwndCombo == stage.control(), GetWindow(stage.control(), GW_CHILD) == info.hwndItem,
                   IsChild(stage.control(), info.hwndList),
                   number(window.bottom - window.top - stage.ask(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1))));
        trace.line("item %d %d %d, button %d %d %d", number(info.rcItem.left), number(info.rcItem.top),
                   number(client.right - info.rcItem.right), number(client.right - info.rcButton.left),
                   number(info.rcButton.top), number(client.right - info.rcButton.right));
    }
}

constexpr MessageStep kComboSteps[] = {
    {"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, "ap"},
    {"find after 0", CB_FINDSTRING, 0, 0, "ap"},
    {"find nothing", CB_FINDSTRING, 0, 0, "x"},
    {"find empty", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, ""},
    {"select empty", CB_SELECTSTRING, static_cast<WPARAM>(-1), 0, ""},
    {"exact", CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), 0, "FIG"},
    {"select", CB_SELECTSTRING, 0, 0, "ap"},
    {"set current too large", CB_SETCURSEL, 99},
    {"set current none", CB_SETCURSEL, static_cast<WPARAM>(-1)},
    {"set current", CB_SETCURSEL, 2},
    {"set data", CB_SETITEMDATA, 2, 77},
    {"insert", CB_INSERTSTRING, 0, 0, "new"},
    {"data moved", CB_GETITEMDATA, 3},
    {"delete current", CB_DELETESTRING, 2},
    {"select 0", CB_SETCURSEL, 0},
    {"edit sel", CB_SETEDITSEL, 0, MAKELPARAM(1, 3)},
    {"show", CB_SHOWDROPDOWN, TRUE},
    {"set current open", CB_SETCURSEL, 3},
    {"hide", CB_SHOWDROPDOWN, FALSE},
    {"set field height", CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 24},
    {"field height", CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)},
    {"limit", CB_LIMITTEXT, 3},
    {"reset", CB_RESETCONTENT, 0},
    {"set text", WM_SETTEXT, 0, 0, "after"},
    {"set current of empty", CB_SETCURSEL, 0},
    {"add umlaut", CB_ADDSTRING, 0, 0, "\xC4pple"},
    {"find umlaut in other case", CB_FINDSTRING, 0, 0, "\xE4p"},
};

constexpr MessageStep kSortedSteps[] = {
    {"add", CB_ADDSTRING, 0, 0, "cherry"}, {"add", CB_ADDSTRING, 0, 0, ""},
    {"add", CB_ADDSTRING, 0, 0, "10"},     {"add", CB_ADDSTRING, 0, 0, "9"},
    {"add", CB_ADDSTRING, 0, 0, "zza"},    {"insert", CB_INSERTSTRING, 0, 0, "unsorted"},
};

constexpr MessageStep kUpperCaseSteps[] = {
    {"add", CB_ADDSTRING, 0, 0, "\xC5 \xE5"},
    {"insert", CB_INSERTSTRING, 0, 0, "\xD6 \xF6"},
    {"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, "\xC5 \xC5"},
    {"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, "\xD6 \xD6"},
    {"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, "\xF6 \xF6"},
};

void traceMessages(Trace& trace) {
    trace.section("messages");
    const struct {
        const char* name;
        DWORD style;
        std::span<const MessageStep> steps;
    } kSections[] = {
        {"with a field", CBS_DROPDOWN | CBS_AUTOHSCROLL, kComboSteps},
        {"list", CBS_DROPDOWNLIST, kComboSteps},
        {"sorted", CBS_DROPDOWN | CBS_SORT, kSortedSteps},
        {"upper case", CBS_DROPDOWN | CBS_UPPERCASE, kUpperCaseSteps},
    };
    for (const auto& section : kSections) {
        trace.line("-- %s", section.name);
        FruitStage stage(trace, section.style | WS_VSCROLL);
        stage.run(section.steps);
    }
}

constexpr DWORD kField = CBS_DROPDOWN | CBS_AUTOHSCROLL;

struct ComboSteps {
    const char* name;
    std::initializer_list<const char*> steps;
    std::initializer_list<DWORD> styles;
};

// Plays the steps on a combo box of each style.
const ComboSteps kSections[] = {
    {"typing",
     {"<focus>", "f", "{bs}", "ch", "{S-left}x", "{home}{S-end}{del}", "apr", "{enter}", "{C-z}", "q", "<away>"},
     {kField}},
    {"typing open",
     {"<focus>", "{f4}", "c", "h", "x", "{bs}{bs}{bs}", "d", "{enter}", "{A-down}", "f", "{esc}"},
     {kField}},
    {"opened on a typed text",
     {"<focus>", "AP", "{f4}", "{esc}", "{home}{S-end}{del}xy", "{f4}", "{down}", "{esc}", "{home}{S-end}{del}z",
      "{A-down}", "{enter}", "<away>"},
     {kField}},
    {"typing after a pick",
     {"<focus>", "{down}", "x",     "y", "{f4}",   "{down}",     "b",       "a",      "{enter}",    "{bs}",
      "{down}",  "{f4}",   "{esc}", "x", "<away>", "<select 2>", "<focus>", "{down}", "<select 3>", "d"},
     {kField}},
    {"upper case", {"<focus>", "ab\xE5", "{down}", "{bs}x"}, {kField | CBS_UPPERCASE}},
    {"keys closed",
     {"<focus>", "{down}", "{down}", "{up}", "{right}", "{left}", "{pgdn}",  "{pgup}", "{end}", "{home}", "{C-end}",
      "a",       "a",      "a",      "z",    "q",       "\xE4",   "{enter}", "{esc}",  "{del}", "<away>"},
     {kField, CBS_DROPDOWNLIST}},
    {"keys open",
     {"<focus>", "{f4}", "{down}", "{down}", "{up}", "{enter}", "{A-down}", "z", "{A-up}", "{f4}", "{pgdn}", "{end}",
      "{home}", "{enter}"},
     {kField, CBS_DROPDOWNLIST}},
    {"focus",
     {"<kill focus>", "<focus>", "<kill focus>", "<away>", "<focus>", "<open>", "<kill focus>", "<away>", "<focus>",
      "<open>", "{down}", "<away>", "<focus>", "<enable 0>", "<select 1>", "x", "<open>"},
     {kField, CBS_DROPDOWNLIST}},
    {"mouse",
     {"<button down>", "<button up>",    "<over 2>",     "<over 1>",       "<down on 1>",   "<up on 1>",
      "<button down>", "<button up>",    "<over 0>",     "<down outside>", "<button down>", "<button up>",
      "<down on 4>",   "<drag outside>", "<up outside>", "<button down>",  "<drag into 3>", "<up on 3>",
      "<open>",        "<wheel -1>",     "<wheel 1>",    "<close>",        "<wheel -2>",    "<away>"},
     {kField, CBS_DROPDOWNLIST}},
};

void traceSteps(Trace& trace) {
    trace.section("steps");
    for (const ComboSteps& section : kSections) {
        for (const DWORD style : section.styles) {
            trace.line("-- %s, style %#x", section.name, static_cast<unsigned>(style));
            FruitStage stage(trace, style | WS_VSCROLL);
            stage.type(section.steps);
        }
    }
}

// What the first key does that comes to a list without a selection.
void traceFirstKeys(Trace& trace) {
    trace.section("first keys");
    for (const bool open : {false, true}) {
        FruitStage stage(trace, CBS_DROPDOWNLIST | WS_VSCROLL);
        stage.type({"<focus>", open ? "<open>" : "<close>"});
        for (const char* keys : {"{space}", "{c}", "{del}", "{pgup}", "{end}", "c", "x"}) {
            stage.type({"<select 3>", "<select -1>", keys});
        }
        stage.ask(CB_RESETCONTENT);
        stage.type("{space}{c}");
    }
}

// Ways to end a pick in the open list.
constexpr const char* kEndings[] = {"{enter}", "{esc}", "<down outside>", "<away>", "<button down>", "<close>"};
// The real system's users close a list by these keys to keep what they picked.
constexpr const char* kAcceptingKeys[] = {"{f4}", "{A-up}", "{A-down}", "{tab}"};

// Tab comes through the dialog.
void tabAway(FruitStage& stage) {
    for (const HWND control : {stage.control(), stage.other()}) {
        SetWindowLongA(control, GWL_STYLE, GetWindowLongA(control, GWL_STYLE) | WS_TABSTOP);
    }
    postKey(stage.keyboardTarget(), VK_TAB);
    drainQueue(stage.parent().handle());
    stage.state("Tab");
}

void tracePicks(Trace& trace, const char* section, std::span<const char* const> endings) {
    trace.section(section);
    for (const std::string_view ending : endings) {
        FruitStage stage(trace, kField | WS_VSCROLL);
        stage.type({"<select 1>", "<focus>", "{A-down}", "{down}"});
        ending == "{tab}" ? tabAway(stage) : stage.type(ending.data());
    }
}

}  // namespace

void traceCombos(Trace& trace) {
    traceStructure(trace);
    traceMessages(trace);
    traceSteps(trace);
    traceFirstKeys(trace);
    tracePicks(trace, "picks", kEndings);
    tracePicks(trace, "picks ended by an accepting key", kAcceptingKeys);
    traceOwnerDrawn(trace);
}
