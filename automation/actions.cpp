// Actions only queue input; what comes of it is seen by the commands that follow.

#include "automation/actions.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>

#include "automation/capture.h"
#include "automation/codepage.h"
#include "automation/finder.h"

namespace automation {
namespace {

// What a scenario in a file has in UTF-8 it gets there again.
std::filesystem::path PathOf(const std::string& text1252) {
    const std::string utf8 = ConvertFrom1252(text1252);
    return {std::u8string(utf8.begin(), utf8.end())};
}

void SelectAll(HWND control) {
    HWND focus = GetFocus();
    if (ClassOf(focus) == "Edit") {
        SendMessageA(focus, EM_SETSEL, 0, -1);
    } else if (ClassOf(control) == "ComboBox") {
        SendMessageA(control, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    }
}

size_t FindEntry(const Stage& stage, HWND combo, const Argument& entry) {
    if (entry.kind == Argument::Kind::Word && entry.text.starts_with('@')) {
        const auto count = static_cast<size_t>(std::max<LRESULT>(SendMessageA(combo, CB_GETCOUNT, 0, 0), 0));
        size_t index = count;
        std::from_chars(entry.text.data() + 1, entry.text.data() + entry.text.size(), index);
        if (index >= count) {
            FailExpectation("an entry " + entry.text, std::to_string(count) + " entries");
        }
        return index;
    }
    ExpectReadableTexts(combo);
    const std::vector<std::string> entries = ComboEntries(combo);
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const std::string& each) {
        return each == ExpandLike(stage, entry.text, each);
    });
    if (found == entries.end()) {
        std::string all;
        for (const std::string& each : entries) {
            all += (all.empty() ? "" : " ") + Quote(each);
        }
        FailExpectation("an entry " + Quote(ExpandText(stage, entry.text)), all.empty() ? "an empty list" : all);
    }
    return static_cast<size_t>(found - entries.begin());
}

COMBOBOXINFO InfoOf(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    if (SendMessageA(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)) == 0) {
        FailExpectation("a combo box", "class " + ClassOf(combo));
    }
    return info;
}

void ClickListEntry(InputQueue& input, HWND combo, HWND list, size_t index) {
    if (OpenListOf(combo) != list) {
        FailExpectation("the list of control " + std::to_string(GetDlgCtrlID(combo)) + " to open", "it closed");
    }
    RECT entry{};
    RECT client{};
    GetClientRect(list, &client);
    SendMessageA(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&entry));
    if (entry.top < 0 || entry.bottom > client.bottom) {
        // As turning the wheel would; the list has no need to be told how far.
        SendMessageA(list, LB_SETTOPINDEX, index, 0);
        SendMessageA(list, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&entry));
    }
    input.Click(list, {(entry.left + entry.right) / 2, (entry.top + entry.bottom) / 2});
}

// Presses one of the numbered buttons of the window in front.
void PressButton(Stage& stage, int id) {
    HWND button = GetDlgItem(stage.front, id);
    if (button == nullptr || !IsWindowVisible(button)) {
        FailExpectation("a button " + std::to_string(id) + " in " + Quote(TextOf(stage.front)), "none");
    }
    stage.input.ClickMiddle(button);
}

}  // namespace

void Given(Stage& stage, const Command& command) {
    stage.store.Append(command.arguments[0].text, ExpandText(stage, command.arguments[1].text));
}

void ClearStore(Stage& stage, const Command& /*command*/) {
    stage.store.Clear();
}

void CreateScratchFile(Stage& stage, const Command& command) {
    // A name that begins with the scratch folder itself replaces it.
    const std::filesystem::path path =
        stage.options.scratchFolder / PathOf(WithSlashes(ExpandText(stage, command.arguments[0].text)));
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::ofstream file(path, std::ios::binary);
    file << ExpandText(stage, command.arguments[1].text);
    if (!file.flush()) {
        FailExpectation("to create file " + Quote(command.arguments[0].text), "an error");
    }
}

void WriteProfile(Stage& stage, const Command& command) {
    const auto text = [&](size_t i) { return ExpandText(stage, command.arguments[i].text); };
    stage.profile.Write(text(0), text(1), text(2), text(3));
}

void Open(Stage& stage, const Command& command) {
    OpenArguments arguments;
    struct NumberOption {
        std::string_view name;
        int* value;
    };
    const NumberOption numbers[] = {{"designation", &arguments.designation},
                                    {"optional-pages", &arguments.optionalPages},
                                    {"host-mode", &arguments.hostMode}};
    for (const Argument& argument : command.arguments) {
        const auto* number = std::find_if(std::begin(numbers), std::end(numbers),
                                          [&argument](const NumberOption& n) { return n.name == argument.name; });
        if (number != std::end(numbers) && argument.IsNumber()) {
            *number->value = argument.Number();
        } else if (argument.name == "caption") {
            arguments.caption = ExpandText(stage, argument.text);
        } else if (argument.name == "tab") {
            stage.firstOfRun = Command{command.line, command.source, "tab", {argument}};
        } else if (argument.name.empty() && argument.text == "read-only") {
            arguments.readOnly = true;
        } else {
            FailExpectation("an option of open", Quote(argument.name.empty() ? argument.text : argument.name));
        }
    }
    stage.opening = arguments;
}

void AddTabClick(InputQueue& input, HWND tabControl, int index) {
    RECT item{};
    SendMessageA(tabControl, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    input.Click(tabControl, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
}

void ClickTab(Stage& stage, const Command& command) {
    HWND tabs = TabsOf(stage);
    const std::vector<std::string> captions = TabCaptions(tabs);
    const std::string caption = ExpandText(stage, command.arguments[0].text);
    const auto found = std::find(captions.begin(), captions.end(), caption);
    if (found == captions.end()) {
        FailExpectation("a tab " + Quote(caption), "none");
    }
    AddTabClick(stage.input, tabs, static_cast<int>(found - captions.begin()));
}

void Click(Stage& stage, const Command& command) {
    stage.input.ClickMiddle(VisibleControl(stage, command.arguments[0]));
}

void Focus(Stage& stage, const Command& command) {
    HWND control = UsableControl(stage, command.arguments[0]);
    // A refused focus is for the following commands to see: a box comes up, or the focus is elsewhere.
    stage.input.Add([control] { PostFocusMove(control); });
}

void TypeInto(Stage& stage, const Command& command) {
    HWND control = UsableControl(stage, command.arguments[0]);
    const std::string text = ExpandText(stage, command.arguments[1].text);
    stage.input.Focus(control);
    stage.input.Add([control] { SelectAll(control); });
    if (text.empty()) {
        stage.input.Press(*ParseKey("DELETE"));
    } else {
        stage.input.Type(text);
    }
}

void TypeKeys(Stage& stage, const Command& command) {
    stage.input.Type(ExpandText(stage, command.arguments[0].text));
}

void PressKey(Stage& stage, const Command& command) {
    stage.input.Press(*ParseKey(command.arguments[0].text));
}

void Select(Stage& stage, const Command& command) {
    HWND combo = UsableControl(stage, command.arguments[0]);
    const size_t index = FindEntry(stage, combo, command.arguments[1]);
    const COMBOBOXINFO info = InfoOf(combo);
    if (OpenListOf(combo) == nullptr) {
        stage.input.Click(
            combo, {(info.rcButton.left + info.rcButton.right) / 2, (info.rcButton.top + info.rcButton.bottom) / 2});
    }
    InputQueue& input = stage.input;
    stage.input.Add([&input, combo, list = info.hwndList, index] { ClickListEntry(input, combo, list, index); });
}

void PickFile(Stage& stage, const Command& command) {
    HWND field = FileNameField(stage.front);
    if (field == nullptr) {
        FailExpectation("an open-file dialog in front", Quote(TextOf(stage.front)));
    }
    std::string path = ExpandText(stage, command.arguments[0].text);
    // A scenario separates with "/" what not every system's dialog does.
    std::replace(path.begin(), path.end(), '/', static_cast<char>(std::filesystem::path::preferred_separator));
    stage.input.Focus(field);
    stage.input.Add([field] { SelectAll(field); });
    stage.input.Type(path);
    stage.input.ClickMiddle(GetDlgItem(stage.front, IDOK));
}

void Answer(Stage& stage, const Command& command) {
    const std::optional<MessageBoxText> box = ReadMessageBox(stage.front);
    const auto expand = [&](size_t i, const std::string& got) {
        return ExpandLike(stage, command.arguments[i].text, got);
    };
    const std::string caption = expand(0, box ? box->caption : "");
    const std::string text = expand(1, box ? box->text : "");
    const std::string expected = "message box " + Quote(caption) + " " + Quote(text);
    if (!box) {
        FailExpectation(expected, "none");
    }
    // A box with another text is pressed away all the same, so that the play goes on.
    stage.input.ClickMiddle(MessageBoxButton(stage.front));
    if (box->caption != caption || box->text != text) {
        FailExpectation(expected, Quote(box->caption) + " " + Quote(box->text));
    }
}

void PressOk(Stage& stage, const Command& /*command*/) {
    PressButton(stage, IDOK);
}

void PressCancel(Stage& stage, const Command& /*command*/) {
    PressButton(stage, IDCANCEL);
}

void PressCloseBox(Stage& stage, const Command& /*command*/) {
    HWND front = stage.front;
    stage.input.Add([front] { PostMessageA(front, WM_SYSCOMMAND, SC_CLOSE, 0); });
}

void Screenshot(Stage& stage, const Command& command) {
    SaveClient(stage.front, ConvertFrom1252(WithSlashes(ExpandText(stage, command.arguments[0].text))));
}

}  // namespace automation
