// Single-line edits: what they tell their parent, and their text, selection and modification after each step.
#include "tests/conformance/control_stage.h"

#include <initializer_list>

namespace {

class EditStage : public ControlStage {
public:
    EditStage(Trace& trace, DWORD style, const char* text, int width = 200)
        : ControlStage(trace, "Edit", text, style, {width, 20}) {
        parent().setQuiet(true);
        SetFocus(control());
        parent().setQuiet(false);
    }

    void state(const char* after) const override { trace_.line("%s -> %s", after, describeEdit(control()).c_str()); }
};

struct TypingCase {
    const char* name;
    DWORD style;
    const char* text;
    std::initializer_list<const char*> keys;
};

const TypingCase kTyping[] = {
    {"typing", 0, "", {"a", "bc", "{bs}", "{left}{del}", "{enter}", "{esc}", "{tab}", "\xE5", "{del}"}},
    {"moving",
     0,
     "one two,  three ",
     {"{end}", "{left}", "{home}", "{right}", "{down}", "{up}", "{C-right}", "{C-right}", "{C-right}", "{C-left}",
      "{C-end}", "{C-left}", "{C-home}"}},
    {"selecting",
     0,
     "one two,  three",
     {"{S-right}", "{S-right}", "{S-end}", "{left}", "{end}{S-left}{S-left}", "{right}", "{S-home}", "{left}",
      "{C-S-right}", "{C-S-right}", "{C-S-left}", "{C-a}", "x"}},
    {"deleting",
     0,
     "one two three",
     {"{S-right}{S-right}{del}", "{end}{C-bs}", "{C-S-left}{bs}", "{home}{C-del}", "{end}{S-del}", "{home}{bs}",
      "{end}{del}"}},
    {"undo",
     0,
     "start",
     {"{end}ab", "{C-z}", "{C-z}", "{bs}{bs}", "{C-z}", "{home}{S-right}x", "{C-z}", "yz{right}q", "{C-z}",
      "{home}{del}{del}", "{C-z}", "{right}{del}{left}{bs}{del}", "{C-z}", "{end}xy{bs}z", "{C-z}",
      "{end}{bs}{home}{del}", "{C-z}"}},
    {"clipboard keys",
     0,
     "copy cut",
     {"{C-S-right}{C-c}", "{end}{C-v}", "{C-S-left}{C-x}", "{S-ins}", "{home}{C-S-right}{C-ins}", "{S-del}",
      "{S-ins}{S-ins}"}},
    {"digits only", ES_NUMBER, "a1", {"{end}2", "x", ".", "-", "{bs}", "3"}},
    {"upper case", ES_UPPERCASE, "start", {"{end}ab", "\xE5\xE4\xF6", "\xDF\xF7", "\x9A\x9C\x9E\xFF"}},
    {"read only", ES_READONLY, "fixed", {"x", "{del}", "{bs}", "{S-right}{C-x}", "{C-v}", "{S-del}", "{C-z}"}},
};

void traceTyping(Trace& trace) {
    trace.section("typing");
    for (const TypingCase& row : kTyping) {
        trace.line("-- %s", row.name);
        EditStage stage(trace, row.style | ES_AUTOHSCROLL, row.text);
        trace.line("style %08x, code %x", static_cast<unsigned>(GetWindowLongA(stage.control(), GWL_STYLE)),
                   static_cast<unsigned>(stage.ask(WM_GETDLGCODE)));
        stage.type(row.keys);
    }
}

constexpr MessageStep kMessageSteps[] = {
    {"WM_SETTEXT again", WM_SETTEXT, 0, 0, "start"},
    {"WM_SETTEXT", WM_SETTEXT, 0, 0, "abcdef"},
    {"EM_SETSEL 3 1", EM_SETSEL, 3, 1},
    {"EM_SETSEL 0 -1", EM_SETSEL, 0, -1},
    {"EM_REPLACESEL", EM_REPLACESEL, FALSE, 0, "XY"},
    {"EM_REPLACESEL undoable", EM_REPLACESEL, TRUE, 0, "Z"},
    {"WM_UNDO", WM_UNDO, 0},
    {"EM_SETSEL 0 2", EM_SETSEL, 0, 2},
    {"WM_CUT", WM_CUT, 0},
    {"WM_PASTE", WM_PASTE, 0},
    {"EM_SETSEL 0 2", EM_SETSEL, 0, 2},
    {"WM_CLEAR", WM_CLEAR, 0},
    {"EM_LINELENGTH 0", EM_LINELENGTH, 0},
    {"EM_SETMODIFY", EM_SETMODIFY, FALSE},
    {"EM_SETREADONLY 1", EM_SETREADONLY, TRUE},
    {"EM_REPLACESEL read only", EM_REPLACESEL, FALSE, 0, "r"},
    {"EM_SETREADONLY 0", EM_SETREADONLY, FALSE},
    {"WM_KILLFOCUS direct", WM_KILLFOCUS, 0},
    {"WM_SETFOCUS direct", WM_SETFOCUS, 0},
};

void traceMessages(Trace& trace) {
    trace.section("messages");
    EditStage stage(trace, ES_AUTOHSCROLL, "start");
    stage.run(kMessageSteps);
}

// The limit counts what the text will be, and only what does not fit is told.
void traceLimit(Trace& trace) {
    trace.section("limit");
    EditStage stage(trace, ES_AUTOHSCROLL, "abc");
    setClipboard(stage.parent().handle(), "123");
    stage.run({"EM_LIMITTEXT", EM_LIMITTEXT, 5});
    stage.type({"{end}d", "e", "f", "{S-left}x", "{S-home}{C-v}", "{C-v}", "{S-left}{C-v}", "{home}{S-end}yz"});
    stage.run({"EM_REPLACESEL up to the limit", EM_REPLACESEL, FALSE, 0, "456"});
    stage.run({"EM_SETSEL 1 3", EM_SETSEL, 1, 3});
    stage.run({"EM_REPLACESEL over the limit", EM_REPLACESEL, FALSE, 0, "789"});
    stage.run({"WM_SETTEXT over the limit", WM_SETTEXT, 0, 0, "longer"});
    stage.run({"EM_LIMITTEXT below the text", EM_LIMITTEXT, 2});
    stage.type({"x", "{S-left}y", "{home}{S-end}z"});
    stage.run({"EM_LIMITTEXT 0", EM_LIMITTEXT, 0});
    stage.run({"EM_GETLIMITTEXT", EM_GETLIMITTEXT, 0});
}

void tracePaste(Trace& trace) {
    trace.section("paste");
    constexpr struct {
        const char* name;
        DWORD style;
        const char* clipboard;
    } kCases[] = {
        {"one line", 0, "pasted"},
        {"two lines", 0, "first\r\nsecond"},
        {"nothing", 0, ""},
        {"where only digits are typed", ES_NUMBER, "1a2"},
        {"in upper case", ES_UPPERCASE, "ab\xE5"},
    };
    for (const auto& [name, style, clipboard] : kCases) {
        trace.line("-- %s", name);
        EditStage stage(trace, style | ES_AUTOHSCROLL, "0");
        setClipboard(stage.parent().handle(), clipboard);
        stage.run({"WM_PASTE", WM_PASTE, 0});
        stage.run({"EM_LIMITTEXT", EM_LIMITTEXT, 9});
        stage.run({"WM_PASTE at the limit", WM_PASTE, 0});
        stage.run({"WM_UNDO", WM_UNDO, 0});
    }
}

void traceMouse(Trace& trace) {
    trace.section("mouse");
    EditStage stage(trace, ES_AUTOHSCROLL, "one two three");
    const auto mouse = [&](const char* what, UINT message, WPARAM keys, int index) {
        stage.ask(message, keys, MAKELPARAM(LOWORD(stage.ask(EM_POSFROMCHAR, static_cast<WPARAM>(index))) + 1, 8));
        stage.state(what);
    };
    SetFocus(stage.other());
    mouse("down at 2", WM_LBUTTONDOWN, MK_LBUTTON, 2);
    mouse("drag to 6", WM_MOUSEMOVE, MK_LBUTTON, 6);
    mouse("drag to 1", WM_MOUSEMOVE, MK_LBUTTON, 1);
    mouse("up", WM_LBUTTONUP, 0, 1);
    mouse("shift-click at 4", WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, 4);
    mouse("up", WM_LBUTTONUP, 0, 4);
    for (const int index : {5, 3, 12}) {
        mouse("down", WM_LBUTTONDOWN, MK_LBUTTON, index);
        mouse("up", WM_LBUTTONUP, 0, index);
        mouse("double click", WM_LBUTTONDBLCLK, MK_LBUTTON, index);
        mouse("up", WM_LBUTTONUP, 0, index);
    }
    stage.ask(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 8));
    stage.step("click right of the text", [&] { stage.ask(WM_LBUTTONUP, 0, MAKELPARAM(190, 8)); });
}

void traceWidth(Trace& trace) {
    trace.section("without scrolling");
    EditStage stage(trace, 0, "", 60);
    stage.parent().setQuiet(true);
    int typed = 0;
    do {
        stage.ask(WM_CHAR, 'W', 1);
        ++typed;
    } while (GetWindowTextLengthA(stage.control()) == typed && typed < 100);
    stage.parent().setQuiet(false);
    stage.ask(WM_CHAR, 'W', 1);
    trace.line("stopped %d, still %d", typed < 20, GetWindowTextLengthA(stage.control()) == typed - 1);
    const EditStage scrolling(trace, ES_AUTOHSCROLL, "a text that is much longer than the field it stands in", 60);
    for (const UINT key : {VK_END, VK_LEFT, VK_HOME}) {
        scrolling.ask(WM_KEYDOWN, key, 1);
        POINT caret{};
        GetCaretPos(&caret);
        trace.line("scrolling: caret inside %d, at the left end %d", caret.x >= 0 && caret.x < 60, caret.x < 5);
    }
}

}  // namespace

void traceEdits(Trace& trace) {
    traceTyping(trace);
    traceMessages(trace);
    traceLimit(trace);
    tracePaste(trace);
    traceMouse(trace);
    traceWidth(trace);
}
