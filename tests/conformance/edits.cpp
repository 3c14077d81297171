// Single-line edits: what they tell their parent, and their text, selection and modification after each step.
#include "tests/conformance/control_stage.h"

#include <utility>

namespace {

class EditStage : public ControlStage {
public:
    EditStage(Trace& trace, DWORD style, const char* text, int width = 200)
        : ControlStage(trace, "Edit", text, style, {width, 20}) {
        parent().setQuiet(true);
        SetFocus(control());
        parent().setQuiet(false);
    }

    void state(const char* after) const override {
        char text[64];
        DWORD start = 0;
        DWORD end = 0;
        GetWindowTextA(control(), text, sizeof text);
        ask(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        trace_.line("%s -> \"%s\" %u..%u%s%s", after, text, static_cast<unsigned>(start), static_cast<unsigned>(end),
                    ask(EM_GETMODIFY) ? " modified" : "", ask(EM_CANUNDO) ? " undoable" : "");
    }

    // The point of a character's left edge, in the middle of the line.
    LPARAM pointOf(int index) const {
        const LRESULT at = ask(EM_POSFROMCHAR, static_cast<WPARAM>(index));
        return MAKELPARAM(LOWORD(at) + 1, 8);
    }
};

struct TypingCase {
    const char* name;
    DWORD style;
    const char* text;
    const char* keys[14];
};

constexpr TypingCase kTyping[] = {
    {"typing", ES_AUTOHSCROLL, "", {"a", "bc", "{bs}", "{left}{del}", "{enter}", "{esc}", "{tab}", "\xE5", "{del}"}},
    {"moving",
     ES_AUTOHSCROLL,
     "one two,  three",
     {"{end}", "{left}", "{home}", "{right}", "{down}", "{up}", "{C-right}", "{C-right}", "{C-right}", "{C-left}",
      "{C-end}", "{C-left}", "{C-home}"}},
    {"moving over blanks",
     ES_AUTOHSCROLL,
     "  one  ",
     {"{C-right}", "{C-right}", "{C-left}", "{C-left}", "{end}{C-left}"}},
    {"selecting",
     ES_AUTOHSCROLL,
     "one two,  three",
     {"{S-right}", "{S-right}", "{S-end}", "{left}", "{end}{S-left}{S-left}", "{right}", "{S-home}", "{left}",
      "{C-S-right}", "{C-S-right}", "{C-S-left}", "{C-a}", "x"}},
    {"deleting",
     ES_AUTOHSCROLL,
     "one two three",
     {"{S-right}{S-right}{del}", "{end}{C-bs}", "{C-S-left}{bs}", "{home}{C-del}", "{end}{S-del}", "{home}{bs}",
      "{end}{del}"}},
    {"undo",
     ES_AUTOHSCROLL,
     "start",
     {"{end}ab", "{C-z}", "{C-z}", "{bs}{bs}", "{C-z}", "{home}{S-right}x", "{C-z}", "yz{right}q", "{C-z}"}},
    {"undo of deletions",
     ES_AUTOHSCROLL,
     "start",
     {"{home}{del}{del}{del}", "{C-z}", "{C-z}", "{right}{del}{del}{left}{bs}{bs}{del}", "{C-z}", "{end}xy{bs}z",
      "{C-z}", "{home}vw{del}{del}", "{C-z}", "{end}{bs}{home}{del}", "{C-z}", "{home}{S-right}q{left}{del}", "{C-z}"}},
    {"clipboard keys",
     ES_AUTOHSCROLL,
     "copy cut",
     {"{C-S-right}{C-c}", "{end}{C-v}", "{C-S-left}{C-x}", "{S-ins}", "{home}{C-S-right}{C-ins}", "{S-del}",
      "{S-ins}{S-ins}"}},
    {"digits only", ES_AUTOHSCROLL | ES_NUMBER, "a1", {"{end}2", "x", ".", "-", "{bs}", "3"}},
    {"upper case", ES_AUTOHSCROLL | ES_UPPERCASE, "start", {"{end}ab", "\xE5\xE4\xF6", "\xDF\xF7", "\x9A\x9C\x9E\xFF"}},
    {"password", ES_AUTOHSCROLL | ES_PASSWORD, "secret", {"{C-right}", "{home}{S-right}{C-c}", "{end}{C-v}", "{C-x}"}},
    {"read only",
     ES_AUTOHSCROLL | ES_READONLY,
     "fixed",
     {"x", "{del}", "{bs}", "{S-right}{C-x}", "{C-v}", "{S-ins}", "{S-del}", "{C-z}"}},
};

void traceTyping(Trace& trace) {
    for (const TypingCase& row : kTyping) {
        trace.section(row.name);
        EditStage stage(trace, row.style, row.text);
        stage.state("");
        for (const char* const* keys = row.keys; *keys; ++keys) {
            stage.type(*keys);
        }
    }
}

constexpr MessageStep kMessageSteps[] = {
    {"WM_SETTEXT again", WM_SETTEXT, 0, 0, "start"},
    {"WM_SETTEXT", WM_SETTEXT, 0, 0, "other text"},
    {"WM_SETTEXT", WM_SETTEXT, 0, 0, "abcdef"},
    {"EM_SETSEL 1 3", EM_SETSEL, 1, 3, nullptr},
    {"EM_SETSEL 3 1", EM_SETSEL, 3, 1, nullptr},
    {"EM_SETSEL 0 -1", EM_SETSEL, 0, -1, nullptr},
    {"EM_REPLACESEL", EM_REPLACESEL, FALSE, 0, "XY"},
    {"EM_REPLACESEL undoable", EM_REPLACESEL, TRUE, 0, "Z"},
    {"EM_UNDO", EM_UNDO, 0, 0, nullptr},
    {"EM_EMPTYUNDOBUFFER", EM_EMPTYUNDOBUFFER, 0, 0, nullptr},
    {"EM_UNDO", EM_UNDO, 0, 0, nullptr},
    {"EM_REPLACESEL empty", EM_REPLACESEL, FALSE, 0, ""},
    {"EM_SETSEL 0 2", EM_SETSEL, 0, 2, nullptr},
    {"WM_CLEAR", WM_CLEAR, 0, 0, nullptr},
    {"WM_PASTE", WM_PASTE, 0, 0, nullptr},
    {"EM_SETSEL 0 2", EM_SETSEL, 0, 2, nullptr},
    {"WM_CUT", WM_CUT, 0, 0, nullptr},
    {"EM_LINELENGTH 0", EM_LINELENGTH, 0, 0, nullptr},
    {"EM_SETLIMITTEXT 3", EM_SETLIMITTEXT, 3, 0, nullptr},
    {"EM_GETLIMITTEXT", EM_GETLIMITTEXT, 0, 0, nullptr},
    {"WM_CHAR over the limit", WM_CHAR, 'x', 1, nullptr},
    {"WM_SETTEXT over the limit", WM_SETTEXT, 0, 0, "longer"},
    {"WM_PASTE over the limit", WM_PASTE, 0, 0, nullptr},
    {"EM_SETSEL 0 5", EM_SETSEL, 0, 5, nullptr},
    {"EM_REPLACESEL over the limit", EM_REPLACESEL, FALSE, 0, "uvwxyz"},
    {"EM_SETLIMITTEXT 0", EM_SETLIMITTEXT, 0, 0, nullptr},
    {"EM_GETLIMITTEXT", EM_GETLIMITTEXT, 0, 0, nullptr},
    {"EM_SETREADONLY 1", EM_SETREADONLY, TRUE, 0, nullptr},
    {"EM_REPLACESEL read only", EM_REPLACESEL, FALSE, 0, "r"},
    {"EM_SETREADONLY 0", EM_SETREADONLY, FALSE, 0, nullptr},
    {"WM_KILLFOCUS direct", WM_KILLFOCUS, 0, 0, nullptr},
    {"WM_KILLFOCUS direct", WM_KILLFOCUS, 0, 0, nullptr},
    {"WM_SETFOCUS direct", WM_SETFOCUS, 0, 0, nullptr},
    {"WM_UNDO", WM_UNDO, 0, 0, nullptr},
};

void traceMessages(Trace& trace) {
    trace.section("messages");
    EditStage stage(trace, ES_AUTOHSCROLL, "start");
    for (const MessageStep& step : kMessageSteps) {
        stage.run(step);
    }
    char line[8] = {7, 0};
    const LRESULT copied = stage.ask(EM_GETLINE, 0, textParam(line));
    trace.line("EM_GETLINE %d \"%.7s\"", static_cast<int>(copied), line);
}

// The limit counts what the text will be, and only what does not fit is told.
void traceLimit(Trace& trace) {
    trace.section("limit");
    EditStage stage(trace, ES_AUTOHSCROLL, "abc");
    setClipboard(stage.parent().handle(), "123");
    stage.run({"EM_SETLIMITTEXT", EM_SETLIMITTEXT, 5, 0, nullptr});
    for (const char* keys :
         {"{end}d", "e", "f", "{S-left}x", "{S-home}{C-v}", "{C-v}", "{S-left}{C-v}", "{home}{S-end}yz"}) {
        stage.type(keys);
    }
    stage.run({"EM_REPLACESEL up to the limit", EM_REPLACESEL, FALSE, 0, "456"});
    stage.run({"EM_SETSEL 1 3", EM_SETSEL, 1, 3, nullptr});
    stage.run({"EM_REPLACESEL over the limit", EM_REPLACESEL, FALSE, 0, "789"});
    stage.run({"EM_SETLIMITTEXT below the text", EM_SETLIMITTEXT, 2, 0, nullptr});
    for (const char* keys : {"x", "{S-left}y", "{home}{S-end}z"}) {
        stage.type(keys);
    }
}

void tracePaste(Trace& trace) {
    constexpr struct {
        const char* name;
        DWORD style;
        const char* clipboard;
    } kCases[] = {
        {"paste", 0, "pasted"},
        {"paste two lines", 0, "first\r\nsecond"},
        {"paste nothing", 0, ""},
        {"paste where only digits are typed", ES_NUMBER, "1a2"},
        {"paste in upper case", ES_UPPERCASE, "ab\xE5"},
    };
    for (const auto& [name, style, clipboard] : kCases) {
        trace.section(name);
        EditStage stage(trace, style | ES_AUTOHSCROLL, "0");
        setClipboard(stage.parent().handle(), clipboard);
        stage.run({"WM_PASTE", WM_PASTE, 0, 0, nullptr});
        stage.run({"EM_SETLIMITTEXT", EM_SETLIMITTEXT, 9, 0, nullptr});
        stage.run({"WM_PASTE at the limit", WM_PASTE, 0, 0, nullptr});
        stage.run({"EM_UNDO", EM_UNDO, 0, 0, nullptr});
    }
}

void traceFocus(Trace& trace) {
    trace.section("focus");
    EditStage stage(trace, ES_AUTOHSCROLL, "text");
    SetFocus(stage.other());
    stage.step("SetFocus", [&] { SetFocus(stage.control()); });
    EnableWindow(stage.control(), FALSE);
    trace.line("disabled, focus %s", GetFocus() == stage.control() ? "stays" : "gone");
    stage.type("x");
    stage.run({"WM_SETTEXT disabled", WM_SETTEXT, 0, 0, "set"});
    EnableWindow(stage.control(), TRUE);
    SetWindowLongA(stage.control(), GWL_STYLE,
                   GetWindowLongA(stage.control(), GWL_STYLE) | static_cast<LONG>(WS_DISABLED));
    stage.type("y");
    SetFocus(stage.other());
    stage.step("SetFocus on disabled style", [&] { SetFocus(stage.control()); });
}

void traceMouse(Trace& trace) {
    trace.section("mouse");
    EditStage stage(trace, ES_AUTOHSCROLL, "one two three");
    const auto mouse = [&](const char* what, UINT message, WPARAM keys, int index) {
        stage.ask(message, keys, stage.pointOf(index));
        stage.state(what);
    };
    SetFocus(stage.other());
    mouse("down at 2", WM_LBUTTONDOWN, MK_LBUTTON, 2);
    trace.line("focus %d, capture %d", GetFocus() == stage.control(), GetCapture() == stage.control());
    mouse("drag to 6", WM_MOUSEMOVE, MK_LBUTTON, 6);
    mouse("drag to 1", WM_MOUSEMOVE, MK_LBUTTON, 1);
    mouse("up", WM_LBUTTONUP, 0, 1);
    trace.line("capture %d", GetCapture() == stage.control());
    mouse("move", WM_MOUSEMOVE, 0, 6);
    mouse("shift-click at 4", WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, 4);
    mouse("up", WM_LBUTTONUP, 0, 4);
    for (const int index : {5, 3, 12, 0}) {
        trace.line("double click at %d", index);
        mouse("down", WM_LBUTTONDOWN, MK_LBUTTON, index);
        mouse("up", WM_LBUTTONUP, 0, index);
        mouse("second down", WM_LBUTTONDBLCLK, MK_LBUTTON, index);
        mouse("second up", WM_LBUTTONUP, 0, index);
    }
    stage.ask(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 8));
    stage.step("click right of the text", [&] { stage.ask(WM_LBUTTONUP, 0, MAKELPARAM(190, 8)); });
}

void traceWidth(Trace& trace) {
    trace.section("without scrolling");
    EditStage stage(trace, 0, "", 60);
    stage.ask(WM_CHAR, 'W', 1);
    stage.parent().setQuiet(true);
    int typed = 1;
    int length = 0;
    do {
        stage.ask(WM_CHAR, 'W', 1);
        length = GetWindowTextLengthA(stage.control());
        ++typed;
    } while (length == typed && typed < 100);
    trace.line("stopped %d", length < 20);
    stage.parent().setQuiet(false);
    stage.ask(WM_CHAR, 'W', 1);
    trace.line("still %d", GetWindowTextLengthA(stage.control()) == length);
    stage.ask(EM_SETSEL, 0, 1);
    stage.ask(WM_CHAR, 'W', 1);
    trace.line("over a selection %d", GetWindowTextLengthA(stage.control()) == length);
    stage.ask(WM_SETTEXT, 0, textParam("WWWWWWWWWWWWWWWWWWWWWWWW"));
    trace.line("set text %d", GetWindowTextLengthA(stage.control()));
    trace.section("scrolling");
    const EditStage scrolling(trace, ES_AUTOHSCROLL, "a text that is much longer than the field it stands in", 60);
    for (const UINT key : {VK_END, VK_LEFT, VK_HOME}) {
        scrolling.ask(WM_KEYDOWN, key, 1);
        POINT caret{};
        GetCaretPos(&caret);
        trace.line("scrolled %d, caret inside %d", scrolling.ask(EM_GETFIRSTVISIBLELINE) > 0,
                   caret.x >= 0 && caret.x < 60);
    }
}

void traceStyles(Trace& trace) {
    trace.section("styles and codes");
    constexpr DWORD kStyles[] = {ES_AUTOHSCROLL,           WS_BORDER,   ES_READONLY,
                                 ES_NUMBER | ES_UPPERCASE, ES_PASSWORD, WS_DISABLED};
    for (const DWORD style : kStyles) {
        EditStage stage(trace, style, "x");
        trace.line("style %08x: %08x, code %x", static_cast<unsigned>(style),
                   static_cast<unsigned>(GetWindowLongA(stage.control(), GWL_STYLE)),
                   static_cast<unsigned>(stage.ask(WM_GETDLGCODE, 0, 0)));
    }
}

}  // namespace

void traceEdits(Trace& trace) {
    traceTyping(trace);
    traceMessages(trace);
    traceLimit(trace);
    tracePaste(trace);
    traceFocus(trace);
    traceMouse(trace);
    traceWidth(trace);
    traceStyles(trace);
}
