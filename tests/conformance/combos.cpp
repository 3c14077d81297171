// List boxes and combo boxes: what they tell their parent, and selection, text and drop state after each step.
#include "tests/conformance/control_stage.h"

namespace {

constexpr const char* kFruit[] = {"Apple", "banana", "Cherry", "apricot", "Date", "elder", "fig", "Zebra", "yam"};

constexpr DWORD kKinds[] = {CBS_DROPDOWN, CBS_DROPDOWNLIST};

void fill(const ControlStage& stage, UINT addMessage) {
    for (const char* text : kFruit) {
        stage.ask(addMessage, 0, textParam(text));
    }
}

class ListStage : public ControlStage {
public:
    ListStage(Trace& trace, DWORD style) : ControlStage(trace, "ListBox", "", style | LBS_NOTIFY, {150, 70}) {
        fill(*this, LB_ADDSTRING);
    }

    void state(const char* after) const override {
        trace_.line("%s -> current %d, caret %d, top %s", after, number(ask(LB_GETCURSEL)),
                    number(ask(LB_GETCARETINDEX)), ask(LB_GETTOPINDEX) ? "scrolled" : "0");
    }
};

class ComboStage : public ControlStage {
public:
    ComboStage(Trace& trace, DWORD style) : ControlStage(trace, "ComboBox", "", style, {150, 90}) {
        fill(*this, CB_ADDSTRING);
        info_.cbSize = sizeof info_;
        ask(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info_));
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
    ~ComboStage() override { parent().setHook(nullptr); }

    const COMBOBOXINFO& info() const { return info_; }
    HWND keyboardTarget() const override { return info_.hwndItem ? info_.hwndItem : control(); }

    void state(const char* after) const override {
        char text[64];
        DWORD start = 0;
        DWORD end = 0;
        GetWindowTextA(control(), text, sizeof text);
        ask(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        trace_.line("%s -> \"%s\" %u..%u current %d, list %d%s", after, text, static_cast<unsigned>(start),
                    static_cast<unsigned>(end), number(ask(CB_GETCURSEL)),
                    number(SendMessageA(info_.hwndList, LB_GETCURSEL, 0, 0)), ask(CB_GETDROPPEDSTATE) ? " open" : "");
    }

    // The middle of an entry in the open list, for a message to that list.
    LPARAM entryPoint(int index) const {
        RECT rect{};
        SendMessageA(info_.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return MAKELPARAM(20, (rect.top + rect.bottom) / 2);
    }
    LPARAM buttonPoint() const {
        return MAKELPARAM((info_.rcButton.left + info_.rcButton.right) / 2,
                          (info_.rcButton.top + info_.rcButton.bottom) / 2);
    }
    void mouse(const char* what, HWND window, UINT message, WPARAM keys, LPARAM point) {
        SendMessageA(window, message, keys, point);
        state(what);
    }
    void clickButton() {
        mouse("button down", control(), WM_LBUTTONDOWN, MK_LBUTTON, buttonPoint());
        mouse("button up", control(), WM_LBUTTONUP, 0, buttonPoint());
    }

private:
    COMBOBOXINFO info_{};
};

constexpr MessageStep kListSteps[] = {
    {"find", LB_FINDSTRING, static_cast<WPARAM>(-1), 0, "ap"},
    {"find after last", LB_FINDSTRING, 8, 0, "ap"},
    {"find nothing", LB_FINDSTRING, 0, 0, "x"},
    {"exact", LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), 0, "APPLE"},
    {"select string", LB_SELECTSTRING, static_cast<WPARAM>(-1), 0, "da"},
    {"set current", LB_SETCURSEL, 2, 0, nullptr},
    {"set current last", LB_SETCURSEL, 8, 0, nullptr},
    {"is selected", LB_GETSEL, 8, 0, nullptr},
    {"insert", LB_INSERTSTRING, 1, 0, "new"},
    {"insert at the current one", LB_INSERTSTRING, 9, 0, "there"},
    {"insert at end", LB_INSERTSTRING, static_cast<WPARAM>(-1), 0, "last"},
    {"set data", LB_SETITEMDATA, 1, 77, nullptr},
    {"delete before current", LB_DELETESTRING, 0, 0, nullptr},
    {"data moved", LB_GETITEMDATA, 0, 0, nullptr},
    {"delete current", LB_DELETESTRING, 8, 0, nullptr},
    {"set top", LB_SETTOPINDEX, 3, 0, nullptr},
    {"set caret", LB_SETCARETINDEX, 2, FALSE, nullptr},
    {"add umlaut", LB_ADDSTRING, 0, 0, "\xC4pple"},
    {"find umlaut", LB_FINDSTRING, 0, 0, "\xC4P"},
    {"find umlaut in other case", LB_FINDSTRING, 0, 0, "\xE4p"},
    {"reset", LB_RESETCONTENT, 0, 0, nullptr},
};

void traceLists(Trace& trace) {
    trace.section("list messages");
    {
        ListStage stage(trace, WS_VSCROLL | WS_BORDER);
        for (const MessageStep& step : kListSteps) {
            stage.run(step);
        }
    }
    trace.section("sorted list");
    {
        ListStage stage(trace, LBS_SORT);
        stage.run({"add", LB_ADDSTRING, 0, 0, "cherry"});
        stage.run({"add", LB_ADDSTRING, 0, 0, ""});
        stage.run({"add", LB_ADDSTRING, 0, 0, "10"});
        stage.run({"add", LB_ADDSTRING, 0, 0, "9"});
        stage.run({"add", LB_ADDSTRING, 0, 0, "zza"});
        stage.run({"insert", LB_INSERTSTRING, 0, 0, "unsorted"});
    }
    trace.section("list keys and mouse");
    ListStage stage(trace, WS_VSCROLL | WS_BORDER);
    stage.step("SetFocus", [&] { SetFocus(stage.control()); });
    for (const char* keys : {"{down}", "{down}", "{up}", "{end}", "{up}", "{home}", "{pgdn}", "{pgup}", "c", "a", "a",
                             "z", "q", "{right}", "{left}", "{enter}", "{esc}"}) {
        stage.type(keys);
    }
    const auto mouse = [&](const char* what, UINT message, WPARAM keys, int index) {
        RECT rect{};
        stage.ask(LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        stage.ask(message, keys, MAKELPARAM(5, (rect.top + rect.bottom) / 2));
        stage.state(what);
    };
    stage.ask(LB_SETCURSEL, 0);
    mouse("down 1", WM_LBUTTONDOWN, MK_LBUTTON, 1);
    mouse("drag 2", WM_MOUSEMOVE, MK_LBUTTON, 2);
    mouse("up 2", WM_LBUTTONUP, 0, 2);
    mouse("down 2", WM_LBUTTONDOWN, MK_LBUTTON, 2);
    mouse("up 2", WM_LBUTTONUP, 0, 2);
    mouse("double 2", WM_LBUTTONDBLCLK, MK_LBUTTON, 2);
    mouse("up 2", WM_LBUTTONUP, 0, 2);
    stage.ask(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    trace.line("wheel: top %d", number(stage.ask(LB_GETTOPINDEX)));
    for (const char* keys : {"{end}", "{space}"}) {
        stage.ask(LB_SETCURSEL, static_cast<WPARAM>(-1));
        stage.type(keys);
    }
    stage.step("focus away", [&] { SetFocus(stage.other()); });
}

void traceStructure(Trace& trace) {
    trace.section("combo structure");
    constexpr DWORD kStyles[] = {CBS_DROPDOWN, CBS_DROPDOWNLIST, CBS_DROPDOWN | CBS_SORT | CBS_UPPERCASE,
                                 CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL, CBS_DROPDOWNLIST | CBS_DISABLENOSCROLL};
    for (const DWORD style : kStyles) {
        ComboStage stage(trace, style);
        const COMBOBOXINFO& info = stage.info();
        char listClass[16] = "";
        char itemClass[16] = "";
        GetClassNameA(info.hwndList, listClass, sizeof listClass);
        GetClassNameA(info.hwndItem, itemClass, sizeof itemClass);
        trace.line("style %08x: %08x, code %x", static_cast<unsigned>(style),
                   static_cast<unsigned>(GetWindowLongA(stage.control(), GWL_STYLE)),
                   static_cast<unsigned>(stage.ask(WM_GETDLGCODE)));
        trace.line("combo %d, list %s %d %08x %08x, item %s %d %08x, first child is item %d",
                   info.hwndCombo == stage.control(), listClass, GetDlgCtrlID(info.hwndList),
                   static_cast<unsigned>(GetWindowLongA(info.hwndList, GWL_STYLE)),
                   static_cast<unsigned>(GetWindowLongA(info.hwndList, GWL_EXSTYLE)), itemClass,
                   GetDlgCtrlID(info.hwndItem), static_cast<unsigned>(GetWindowLongA(info.hwndItem, GWL_STYLE)),
                   GetWindow(stage.control(), GW_CHILD) == info.hwndItem);
        trace.line("list is a child of the combo %d, item height equal %d, button state %x",
                   IsChild(stage.control(), info.hwndList),
                   stage.ask(CB_GETITEMHEIGHT, 0) == SendMessageA(info.hwndList, LB_GETITEMHEIGHT, 0, 0),
                   static_cast<unsigned>(info.stateButton));
        RECT window;
        RECT client;
        GetWindowRect(stage.control(), &window);
        GetClientRect(stage.control(), &client);
        trace.line("height over field %d, dropped width %d",
                   number(window.bottom - window.top - stage.ask(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1))),
                   number(stage.ask(CB_GETDROPPEDWIDTH)));
        trace.line("item %d %d %d, button %d %d %d", number(info.rcItem.left), number(info.rcItem.top),
                   number(client.right - info.rcItem.right), number(client.right - info.rcButton.left),
                   number(info.rcButton.top), number(client.right - info.rcButton.right));
    }
}

constexpr MessageStep kComboSteps[] = {
    {"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, "ap"},
    {"find after 0", CB_FINDSTRING, 0, 0, "ap"},
    {"find empty", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, ""},
    {"select empty", CB_SELECTSTRING, static_cast<WPARAM>(-1), 0, ""},
    {"exact", CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), 0, "FIG"},
    {"select", CB_SELECTSTRING, 0, 0, "ap"},
    {"set current", CB_SETCURSEL, 4, 0, nullptr},
    {"set current too large", CB_SETCURSEL, 99, 0, nullptr},
    {"set current none", CB_SETCURSEL, static_cast<WPARAM>(-1), 0, nullptr},
    {"set current", CB_SETCURSEL, 2, 0, nullptr},
    {"insert", CB_INSERTSTRING, 0, 0, "new"},
    {"delete current", CB_DELETESTRING, 2, 0, nullptr},
    {"select 0", CB_SETCURSEL, 0, 0, nullptr},
    {"edit sel", CB_SETEDITSEL, 0, MAKELPARAM(1, 3), nullptr},
    {"show", CB_SHOWDROPDOWN, TRUE, 0, nullptr},
    {"set current open", CB_SETCURSEL, 3, 0, nullptr},
    {"hide", CB_SHOWDROPDOWN, FALSE, 0, nullptr},
    {"set item height", CB_SETITEMHEIGHT, 0, 20, nullptr},
    {"set field height", CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 24, nullptr},
    {"field height", CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0, nullptr},
    {"set dropped width", CB_SETDROPPEDWIDTH, 250, 0, nullptr},
    {"reset", CB_RESETCONTENT, 0, 0, nullptr},
    {"set text", WM_SETTEXT, 0, 0, "after"},
    {"WM_CLEAR", WM_CLEAR, 0, 0, nullptr},
    {"set current of empty", CB_SETCURSEL, 0, 0, nullptr},
};

struct ComboKeys {
    const char* name;
    DWORD style;
    const char* keys[24];
};

constexpr ComboKeys kComboKeys[] = {
    {"combo typing",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"f", "{bs}", "ch", "{S-left}x", "{home}{S-end}{del}", "apr", "{enter}", "{C-z}", "q"}},
    {"combo typing open",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"{f4}", "c", "h", "x", "{bs}{bs}{bs}", "d", "{enter}", "{A-down}", "f", "{esc}"}},
    {"combo opened on a typed text",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"AP", "{f4}", "{esc}", "{home}{S-end}{del}xy", "{f4}", "{down}", "{esc}", "{home}{S-end}{del}z", "{A-down}",
      "{enter}"}},
    {"combo keys closed",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"{down}", "{down}", "{up}", "{pgdn}", "{pgup}", "{end}", "{home}", "{right}", "{C-end}", "{up}", "{enter}",
      "{esc}"}},
    {"combo keys open",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"{f4}", "{down}", "{down}", "{up}", "{enter}", "{A-down}", "{pgdn}", "{end}", "{enter}"}},
    {"list combo keys closed",
     CBS_DROPDOWNLIST,
     {"{down}", "{down}", "{up}", "{right}", "{left}", "{pgdn}", "{pgup}", "{end}", "{home}", "a", "a", "a", "z", "q",
      "\xE4", "{enter}", "{esc}", "{del}"}},
    {"list combo keys open",
     CBS_DROPDOWNLIST,
     {"{f4}", "{down}", "{down}", "{enter}", "{A-down}", "z", "{A-up}", "{end}", "{home}", "{enter}"}},
    {"combo typing after a pick",
     CBS_DROPDOWN | CBS_AUTOHSCROLL,
     {"{down}", "x", "y", "{f4}", "{down}", "b", "a", "{enter}", "{bs}", "{down}", "{f4}", "{esc}", "x"}},
    {"upper-case combo", CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_UPPERCASE, {"ab\xE5", "{down}", "{bs}x"}},
};

// What the first key does that comes to a list without a selection.
void traceFirstKeys(Trace& trace) {
    for (const bool open : {false, true}) {
        trace.section(open ? "first key in an open list" : "first key in a closed list");
        ComboStage stage(trace, CBS_DROPDOWNLIST | WS_VSCROLL);
        SetFocus(stage.control());
        stage.ask(CB_SHOWDROPDOWN, open);
        for (const char* keys : {"{space}", "{c}", "{x}", "{del}", "{ins}", "{shift}", "{bs}", "{right}", "{pgup}",
                                 "{end}", "{C-c}", "c", "x", " "}) {
            stage.ask(CB_SETCURSEL, 3);
            stage.ask(CB_SETCURSEL, static_cast<WPARAM>(-1));
            stage.type(keys);
        }
        stage.ask(CB_SETCURSEL, 3);
        stage.type("{space}");
        stage.ask(CB_RESETCONTENT);
        stage.type("{space}");
        stage.type("{c}");
    }
}

// How far the keys go, in lists of as many entries as they show, or of more, with room left below the last whole one.
void tracePages(Trace& trace) {
    trace.section("pages of combo lists");
    struct Size {
        int rows;
        int rest;
        DWORD style;
    };
    for (const Size& size : {Size{1, 0, 0}, Size{2, 5, 0}, Size{4, 0, 0}, Size{4, 7, CBS_NOINTEGRALHEIGHT},
                             Size{9, 0, 0}, Size{12, 3, 0}}) {
        ComboStage stage(trace, CBS_DROPDOWNLIST | WS_VSCROLL | size.style);
        trace.line("-- %d entries and %d", size.rows, size.rest);
        RECT closed{};
        GetWindowRect(stage.control(), &closed);
        const int height = number(stage.ask(CB_GETITEMHEIGHT)) * size.rows + size.rest + 2;
        MoveWindow(stage.control(), 10, 10, 150, number(closed.bottom - closed.top) + height, TRUE);
        stage.parent().setHook(nullptr);
        stage.parent().setQuiet(true);
        SetFocus(stage.control());
        for (const bool open : {false, true, false}) {
            stage.ask(CB_SHOWDROPDOWN, open);
            stage.ask(CB_SETCURSEL, 0);
            std::string way;
            for (const char* key : {"{pgdn}", "{pgdn}", "{pgdn}", "{pgup}", "{end}", "{pgup}", "{pgup}"}) {
                typeKeys(stage.control(), key);
                way += " " + std::to_string(stage.ask(CB_GETCURSEL)) + "/" + std::to_string(stage.ask(CB_GETTOPINDEX));
            }
            RECT list{};
            GetClientRect(stage.info().hwndList, &list);
            const int item = number(stage.ask(CB_GETITEMHEIGHT));
            trace.line("%s%s, shown %d and %d", open ? "open" : "closed", way.c_str(), number(list.bottom) / item,
                       number(list.bottom) % item);
        }
    }
}

constexpr MessageStep kStepsAfterPick[] = {
    {"set current", CB_SETCURSEL, 3, 0, nullptr},
    {"select", CB_SELECTSTRING, 0, 0, "ap"},
};

void traceComboKeys(Trace& trace) {
    for (const ComboKeys& row : kComboKeys) {
        trace.section(row.name);
        ComboStage stage(trace, row.style | WS_VSCROLL);
        stage.step("SetFocus", [&] { SetFocus(stage.control()); });
        for (const char* const* keys = row.keys; *keys; ++keys) {
            stage.type(*keys);
        }
        stage.step("focus away", [&] { SetFocus(stage.other()); });
    }
    trace.section("combo typing after a pick and a message");
    for (const MessageStep& step : kStepsAfterPick) {
        ComboStage stage(trace, CBS_DROPDOWN);
        SetFocus(stage.control());
        stage.type("{down}");
        stage.run(step);
        stage.type("d");
    }
}

void traceLetterCase(Trace& trace) {
    for (const auto style : {CBS_UPPERCASE, CBS_LOWERCASE}) {
        trace.section(style == CBS_UPPERCASE ? "entries in upper case" : "entries in lower case");
        ComboStage stage(trace, static_cast<DWORD>(CBS_DROPDOWN | style));
        stage.run({"add", CB_ADDSTRING, 0, 0, "\xC5 \xE5"});
        stage.run({"insert", CB_INSERTSTRING, 0, 0, "\xD6 \xF6"});
        for (const char* text : {"\xC5 \xC5", "\xE5 \xE5", "\xD6 \xD6", "\xF6 \xF6"}) {
            stage.run({"find", CB_FINDSTRING, static_cast<WPARAM>(-1), 0, text});
        }
    }
}

// Ways to end a pick in the open list.
struct PickEnding {
    const char* name;
    void (*end)(ComboStage& stage);
};

void pressElsewhere(ComboStage& stage) {
    SendMessageA(stage.info().hwndList, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, -50));
}

void tabAway(ComboStage& stage) {
    for (const HWND control : {stage.control(), stage.other()}) {
        SetWindowLongA(control, GWL_STYLE, GetWindowLongA(control, GWL_STYLE) | WS_TABSTOP);
    }
    postKey(stage.keyboardTarget(), VK_TAB);
    drainQueue(stage.parent().handle());
}

constexpr PickEnding kPickEndings[] = {
    {"Enter", [](ComboStage& stage) { typeKeys(stage.keyboardTarget(), "{enter}"); }},
    {"Enter after a move of the mouse",
     [](ComboStage& stage) {
         SendMessageA(stage.info().hwndList, WM_MOUSEMOVE, 0, stage.entryPoint(4));
         typeKeys(stage.keyboardTarget(), "{enter}");
     }},
    {"Esc", [](ComboStage& stage) { typeKeys(stage.keyboardTarget(), "{esc}"); }},
    {"press elsewhere", pressElsewhere},
    {"focus elsewhere", [](ComboStage& stage) { SetFocus(stage.other()); }},
    {"button", [](ComboStage& stage) { stage.ask(WM_LBUTTONDOWN, MK_LBUTTON, stage.buttonPoint()); }},
    {"CB_SHOWDROPDOWN", [](ComboStage& stage) { stage.ask(CB_SHOWDROPDOWN, FALSE); }},
};

// The real system's users close a list by these keys to keep what they picked.
constexpr PickEnding kAcceptingKeys[] = {
    {"F4", [](ComboStage& stage) { typeKeys(stage.keyboardTarget(), "{f4}"); }},
    {"Alt+Up", [](ComboStage& stage) { typeKeys(stage.keyboardTarget(), "{A-up}"); }},
    {"Alt+Down", [](ComboStage& stage) { typeKeys(stage.keyboardTarget(), "{A-down}"); }},
    {"Tab", tabAway},
};

template <std::size_t count>
void tracePicks(Trace& trace, const char* section, const PickEnding (&endings)[count]) {
    trace.section(section);
    for (const DWORD style : kKinds) {
        for (const PickEnding& ending : endings) {
            ComboStage stage(trace, style | WS_VSCROLL);
            stage.ask(CB_SETCURSEL, 1);
            SetFocus(stage.control());
            stage.type("{A-down}");
            stage.type("{down}");
            ending.end(stage);
            stage.state(ending.name);
            trace.line("focus stays %d", GetFocus() == stage.keyboardTarget());
        }
    }
}

void traceComboFocus(Trace& trace) {
    for (const DWORD style : kKinds) {
        trace.section(style == CBS_DROPDOWN ? "combo focus" : "list combo focus");
        ComboStage stage(trace, style | WS_VSCROLL);
        stage.step("WM_KILLFOCUS without focus", [&] { SendMessageA(stage.keyboardTarget(), WM_KILLFOCUS, 0, 0); });
        SetFocus(stage.control());
        trace.line("focus on item %d", GetFocus() == stage.keyboardTarget());
        stage.step("WM_KILLFOCUS direct", [&] { SendMessageA(stage.keyboardTarget(), WM_KILLFOCUS, 0, 0); });
        stage.step("WM_KILLFOCUS again", [&] { SendMessageA(stage.keyboardTarget(), WM_KILLFOCUS, 0, 0); });
        trace.line("focus on item %d", GetFocus() == stage.keyboardTarget());
        SetFocus(stage.other());
        SetFocus(stage.keyboardTarget());
        stage.step("open", [&] { stage.ask(CB_SHOWDROPDOWN, TRUE); });
        stage.step("WM_KILLFOCUS while open", [&] { SendMessageA(stage.keyboardTarget(), WM_KILLFOCUS, 0, 0); });
        SetFocus(stage.other());
        SetFocus(stage.control());
        stage.ask(CB_SHOWDROPDOWN, TRUE);
        stage.type("{down}");
        stage.step("focus away while open", [&] { SetFocus(stage.other()); });
        SetFocus(stage.control());
        stage.run({"WM_KILLFOCUS to the combo", WM_KILLFOCUS, 0, 0, nullptr});
        stage.step("disabled", [&] { EnableWindow(stage.control(), FALSE); });
        trace.line("item enabled %d", IsWindowEnabled(stage.keyboardTarget()));
        stage.run({"set current disabled", CB_SETCURSEL, 1, 0, nullptr});
        stage.type("x");
        stage.step("opened while disabled", [&] { stage.ask(CB_SHOWDROPDOWN, TRUE); });
        stage.ask(CB_SHOWDROPDOWN, FALSE);
        EnableWindow(stage.control(), TRUE);
        SetFocus(stage.control());
        for (const UINT key : {VK_RETURN, VK_ESCAPE, VK_TAB}) {
            for (const bool open : {true, false}) {
                MSG message{};
                message.hwnd = stage.keyboardTarget();
                message.message = WM_KEYDOWN;
                message.wParam = key;
                SendMessageA(stage.control(), CB_SHOWDROPDOWN, open, 0);
                trace.line("key %x: code %x", key,
                           static_cast<unsigned>(SendMessageA(stage.keyboardTarget(), WM_GETDLGCODE, key,
                                                              reinterpret_cast<LPARAM>(&message))));
            }
        }
    }
}

void traceComboMouse(Trace& trace) {
    for (const DWORD style : kKinds) {
        trace.section(style == CBS_DROPDOWN ? "combo mouse" : "list combo mouse");
        ComboStage stage(trace, style | WS_VSCROLL);
        const HWND list = stage.info().hwndList;
        stage.clickButton();
        trace.line("focus on item %d, capture on list %d, visible %d", GetFocus() == stage.keyboardTarget(),
                   GetCapture() == list, IsWindowVisible(list));
        stage.mouse("move to 2", list, WM_MOUSEMOVE, 0, stage.entryPoint(2));
        stage.mouse("move to 1", list, WM_MOUSEMOVE, 0, stage.entryPoint(1));
        stage.mouse("down on 1", list, WM_LBUTTONDOWN, MK_LBUTTON, stage.entryPoint(1));
        stage.mouse("up on 1", list, WM_LBUTTONUP, 0, stage.entryPoint(1));
        trace.line("capture %d", GetCapture() != nullptr);
        stage.clickButton();
        stage.mouse("move to 0", list, WM_MOUSEMOVE, 0, stage.entryPoint(0));
        stage.mouse("down outside", list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, -50));
        stage.mouse("up outside", stage.control(), WM_LBUTTONUP, 0, MAKELPARAM(-50, -50));
        stage.clickButton();
        stage.clickButton();
        stage.mouse("button down", stage.control(), WM_LBUTTONDOWN, MK_LBUTTON, stage.buttonPoint());
        POINT entry = {20, 15};
        MapWindowPoints(list, stage.control(), &entry, 1);
        SendMessageA(stage.control(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(entry.x, entry.y));
        trace.line("list takes over %d", GetCapture() == list);
        stage.mouse("drag to 3", list, WM_MOUSEMOVE, MK_LBUTTON, stage.entryPoint(3));
        stage.mouse("up on 3", list, WM_LBUTTONUP, 0, stage.entryPoint(3));
        stage.clickButton();
        stage.mouse("down on 4", list, WM_LBUTTONDOWN, MK_LBUTTON, stage.entryPoint(4));
        stage.mouse("drag outside", list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(300, 20));
        stage.mouse("up outside", list, WM_LBUTTONUP, 0, MAKELPARAM(300, 20));
        stage.clickButton();
        stage.mouse("wheel down", stage.keyboardTarget(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
        stage.mouse("wheel up", stage.keyboardTarget(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        stage.mouse("wheel up on combo", stage.control(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        stage.mouse("wheel on list", list, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        if (style == CBS_DROPDOWNLIST) {
            stage.mouse("field down", stage.control(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 8));
            stage.mouse("field up", stage.control(), WM_LBUTTONUP, 0, MAKELPARAM(10, 8));
        }
        stage.ask(CB_SHOWDROPDOWN, FALSE);
        stage.mouse("wheel down closed", stage.keyboardTarget(), WM_MOUSEWHEEL,
                    MAKEWPARAM(0, 0x10000 - 2 * WHEEL_DELTA), 0);
        stage.step("focus away", [&] { SetFocus(stage.other()); });
    }
}

}  // namespace

void traceCombos(Trace& trace) {
    traceLists(trace);
    traceStructure(trace);
    for (const DWORD style : kKinds) {
        trace.section(style == CBS_DROPDOWN ? "combo messages" : "list combo messages");
        ComboStage stage(trace, style | CBS_AUTOHSCROLL | WS_VSCROLL);
        for (const MessageStep& step : kComboSteps) {
            stage.run(step);
        }
    }
    traceComboKeys(trace);
    traceFirstKeys(trace);
    tracePages(trace);
    traceLetterCase(trace);
    tracePicks(trace, "combo picks", kPickEndings);
    tracePicks(trace, "combo picks ended by an accepting key", kAcceptingKeys);
    traceComboFocus(trace);
    traceComboMouse(trace);
    traceOwnerDrawn(trace);
}
