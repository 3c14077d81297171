// Checks look and compare; they change nothing and send no input.

#include "automation/checks.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdio>

#include "automation/finder.h"

namespace automation {
namespace {

// A control's text and lists reach 64 KiB; a failure line shows them whole, as the one place to see the difference.
std::string QuoteAll(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : " ") + Quote(text);
    }
    return all.empty() ? "nothing" : all;
}

// Compares the command's arguments from that one on with what was seen.
void ExpectEqualTexts(const Stage& stage, const std::string& what, const Command& command, size_t first,
                      const std::vector<std::string>& got) {
    std::vector<std::string> expected;
    for (size_t i = first; i < command.arguments.size(); ++i) {
        expected.push_back(ExpandLike(stage, command.arguments[i].text, i - first < got.size() ? got[i - first] : ""));
    }
    if (expected != got) {
        FailExpectation(what + " " + QuoteAll(expected), QuoteAll(got));
    }
}

void ExpectEqual(const std::string& what, LRESULT expected, LRESULT got) {
    if (expected != got) {
        FailExpectation(what + " " + std::to_string(expected), std::to_string(got));
    }
}

// One check for each property of controls that holds or not, and its opposite.
void ExpectState(const Stage& stage, const Command& command, bool expected, bool (*holds)(HWND), const char* ifTrue,
                 const char* ifFalse) {
    for (const Argument& id : command.arguments) {
        const bool got = holds(ControlOf(stage, id));
        if (got != expected) {
            FailExpectation("control " + id.text + " " + (expected ? ifTrue : ifFalse), got ? ifTrue : ifFalse);
        }
    }
}

void ExpectCheck(const Stage& stage, const Command& command, LRESULT expected) {
    const auto describe = [](LRESULT state) {
        return state == BST_CHECKED ? "checked" : state == BST_UNCHECKED ? "unchecked" : "undetermined";
    };
    for (const Argument& id : command.arguments) {
        HWND control = ControlOf(stage, id);
        if (!HoldsCheck(control)) {
            FailExpectation("control " + id.text + " to be a check box or radio button", "class " + ClassOf(control));
        }
        const LRESULT got = SendMessageA(control, BM_GETCHECK, 0, 0);
        if (got != expected) {
            FailExpectation("control " + id.text + " " + describe(expected), describe(got));
        }
    }
}

bool IsEnabled(HWND control) {
    return IsWindowEnabled(control) != FALSE;
}

bool IsVisible(HWND control) {
    return IsWindowVisible(control) != FALSE;
}

std::string DescribeFocus() {
    HWND focus = GetFocus();
    if (focus == nullptr) {
        return "no focus";
    }
    // Inside a combo box it is the box that has the id that a scenario knows.
    if (HWND parent = GetParent(focus); parent != nullptr && ClassOf(parent) == "ComboBox") {
        focus = parent;
    }
    return std::to_string(GetDlgCtrlID(focus));
}

std::string DescribeColour(int red, int green, int blue) {
    return std::to_string(red) + " " + std::to_string(green) + " " + std::to_string(blue);
}

void ExpectComboBox(HWND control, const Argument& id) {
    if (ClassOf(control) != "ComboBox") {
        FailExpectation("control " + id.text + " to be a combo box", "class " + ClassOf(control));
    }
}

}  // namespace

void ExpectText(Stage& stage, const Command& command) {
    HWND control = ControlOf(stage, command.arguments[0]);
    ExpectReadableTexts(control);
    ExpectEqualTexts(stage, "text of " + command.arguments[0].text, command, 1, {TextOf(control)});
}

void ExpectChecked(Stage& stage, const Command& command) {
    ExpectCheck(stage, command, BST_CHECKED);
}

void ExpectUnchecked(Stage& stage, const Command& command) {
    ExpectCheck(stage, command, BST_UNCHECKED);
}

void ExpectEnabled(Stage& stage, const Command& command) {
    ExpectState(stage, command, true, IsEnabled, "enabled", "disabled");
}

void ExpectDisabled(Stage& stage, const Command& command) {
    ExpectState(stage, command, false, IsEnabled, "enabled", "disabled");
}

void ExpectVisible(Stage& stage, const Command& command) {
    ExpectState(stage, command, true, IsVisible, "visible", "hidden");
}

void ExpectHidden(Stage& stage, const Command& command) {
    ExpectState(stage, command, false, IsVisible, "visible", "hidden");
}

void ExpectFocus(Stage& stage, const Command& command) {
    if (!HasFocus(ControlOf(stage, command.arguments[0]))) {
        FailExpectation("focus on " + command.arguments[0].text, DescribeFocus());
    }
}

void ExpectItems(Stage& stage, const Command& command) {
    HWND combo = ControlOf(stage, command.arguments[0]);
    ExpectComboBox(combo, command.arguments[0]);
    ExpectReadableTexts(combo);
    ExpectEqualTexts(stage, "items of " + command.arguments[0].text, command, 1, ComboEntries(combo));
}

void ExpectCount(Stage& stage, const Command& command) {
    HWND combo = ControlOf(stage, command.arguments[0]);
    ExpectComboBox(combo, command.arguments[0]);
    ExpectEqual("count of " + command.arguments[0].text, command.arguments[1].Number(),
                SendMessageA(combo, CB_GETCOUNT, 0, 0));
}

void ExpectSelection(Stage& stage, const Command& command) {
    HWND combo = ControlOf(stage, command.arguments[0]);
    ExpectComboBox(combo, command.arguments[0]);
    ExpectEqual("selection of " + command.arguments[0].text, command.arguments[1].Number(),
                SendMessageA(combo, CB_GETCURSEL, 0, 0));
}

void ExpectPosition(Stage& stage, const Command& command) {
    const std::string& id = command.arguments[0].text;
    ExpectEqual("position of " + id, command.arguments[1].Number(),
                SendMessageA(TrackBarOf(stage, command.arguments[0]), TBM_GETPOS, 0, 0));
}

void ExpectTabs(Stage& stage, const Command& command) {
    ExpectEqualTexts(stage, "tabs", command, 0, TabCaptions(TabsOf(stage)));
}

void ExpectTab(Stage& stage, const Command& command) {
    HWND tabs = TabsOf(stage);
    const std::vector<std::string> captions = TabCaptions(tabs);
    const auto current = static_cast<size_t>(SendMessageA(tabs, TCM_GETCURSEL, 0, 0));
    ExpectEqualTexts(stage, "tab", command, 0, {current < captions.size() ? captions[current] : ""});
}

void ExpectCaption(Stage& stage, const Command& command) {
    ExpectEqualTexts(stage, "caption", command, 0, {TextOf(stage.front)});
}

void ExpectPixel(Stage& stage, const Command& command) {
    HWND control = ControlOf(stage, command.arguments[0]);
    std::array<int, 5> numbers{};
    for (size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = command.arguments[i + 1].Number();
    }
    const auto [x, y, red, green, blue] = numbers;
    HDC dc = GetDC(control);
    const COLORREF colour = GetPixel(dc, x, y);
    // The pixels of a finer screen lie elsewhere.
    const bool isUsualScreen = GetDeviceCaps(dc, LOGPIXELSX) == 96;
    ReleaseDC(control, dc);
    if (!isUsualScreen) {
        return;
    }
    if (colour == CLR_INVALID) {
        FailExpectation("a pixel " + std::to_string(x) + " " + std::to_string(y) + " of " + command.arguments[0].text,
                        "none there");
    }
    const std::string expected = DescribeColour(red, green, blue);
    const std::string got = DescribeColour(GetRValue(colour), GetGValue(colour), GetBValue(colour));
    if (expected != got) {
        FailExpectation("pixel " + expected, got);
    }
}

void ExpectNoBox(Stage& stage, const Command& /*command*/) {
    if (const std::optional<MessageBoxText> box = ReadMessageBox(stage.front)) {
        FailExpectation("no message box", Quote(box->caption) + " " + Quote(box->text));
    }
}

void ExpectResult(Stage& stage, const Command& command) {
    if (!stage.lastResult) {
        FailExpectation("result " + command.arguments[0].text, "no run yet");
    }
    ExpectEqual("result", command.arguments[0].Number(), *stage.lastResult);
}

void ExpectStore(Stage& stage, const Command& command) {
    const std::optional<std::string> got = stage.store.Find(command.arguments[0].text);
    const Argument& value = command.arguments[1];
    const bool missing = value.kind == Argument::Kind::Word && value.text == "missing";
    const std::string expected = ExpandLike(stage, value.text, got.value_or(""));
    if (missing ? got.has_value() : got != expected) {
        FailExpectation(command.arguments[0].text + " " + (missing ? "missing" : Quote(expected)),
                        got ? Quote(*got) : "missing");
    }
}

void ExpectChanged(Stage& stage, const Command& command) {
    const std::optional<bool> got = stage.store.IsChanged(command.arguments[0].text);
    if (!got) {
        FailExpectation("a record " + command.arguments[0].text, "none");
    }
    ExpectEqual("changed flag of " + command.arguments[0].text, command.arguments[1].Number(), *got ? 1 : 0);
}

void ExpectRecords(Stage& stage, const Command& command) {
    ExpectEqual("records", command.arguments[0].Number(), stage.store.Count());
}

void ExpectUnchanged(Stage& stage, const Command& /*command*/) {
    if (stage.store.Snapshot() != stage.snapshotAtOpen) {
        FailExpectation("the store as it was at open", "it changed");
    }
}

}  // namespace automation
