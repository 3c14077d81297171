// Everything here must come out the same on all systems, so numbers of windows and places on the screen stay out.

#include "tests/random/view.h"

#include <commctrl.h>

#include <algorithm>

#include "automation/stage.h"

namespace random_user {
namespace {

using automation::ClassOf;
using automation::Quote;
using automation::TextOf;
using Kind = SeenControl::Kind;

int Ask(HWND window, UINT message, WPARAM wParam = 0) {
    return static_cast<int>(SendMessageA(window, message, wParam, 0));
}

Kind KindOf(HWND window) {
    const std::string name = ClassOf(window);
    const LONG style = GetWindowLongA(window, GWL_STYLE);
    if (name == "Edit") {
        return (style & ES_READONLY) != 0 ? Kind::Other : Kind::Edit;
    }
    if (name == "ComboBox") {
        return (style & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST ? Kind::ListCombo : Kind::EditCombo;
    }
    if (name != "Button") {
        const bool isPassive = (style & WS_TABSTOP) == 0 || name == WC_TABCONTROLA;
        return isPassive ? Kind::Passive : Kind::Other;
    }
    switch (style & BS_TYPEMASK) {
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return Kind::Radio;
        case BS_GROUPBOX:
            return Kind::Passive;
        default:
            return automation::HoldsCheck(window) ? Kind::Check : Kind::Push;
    }
}

SeenControl LookAt(HWND window) {
    SeenControl control;
    control.window = window;
    control.id = GetDlgCtrlID(window);
    control.isVisible = IsWindowVisible(window) != FALSE;
    if (!control.isVisible) {
        return control;
    }
    control.kind = KindOf(window);
    control.isEnabled = IsWindowEnabled(window) != FALSE;
    control.isChecked = control.HoldsCheck() && Ask(window, BM_GETCHECK) == BST_CHECKED;
    control.text = TextOf(window);
    if (control.IsCombo()) {
        control.count = Ask(window, CB_GETCOUNT);
        control.selection = Ask(window, CB_GETCURSEL);
    }
    return control;
}

// Adds the dialog's own controls that a scenario can name: of those with the same number the first.
void AddControls(HWND dialog, std::vector<SeenControl>& controls) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        const bool isKnown = std::any_of(controls.begin(), controls.end(), [id](const auto& c) { return c.id == id; });
        if (id > 0 && id < 0xFFFF && !isKnown) {
            controls.push_back(LookAt(child));
        }
    }
}

Caret LookAtCaret(HWND edit) {
    Caret caret;
    const LRESULT selection = SendMessageA(edit, EM_GETSEL, 0, 0);
    caret.begin = LOWORD(selection);
    caret.end = HIWORD(selection);
    caret.length = static_cast<int>(TextOf(edit).size());
    caret.canUndo = Ask(edit, EM_CANUNDO) != 0;
    return caret;
}

std::string ClipboardText() {
    std::string text;
    if (OpenClipboard(nullptr)) {
        if (HGLOBAL data = GetClipboardData(CF_TEXT)) {
            text = static_cast<const char*>(GlobalLock(data));
            GlobalUnlock(data);
        }
        CloseClipboard();
    }
    return text;
}

void DescribeControl(const SeenControl& control, std::vector<std::string>& lines) {
    const std::string id = std::to_string(control.id);
    const auto expect = [&](const char* what, const std::string& value) {
        lines.push_back(std::string("expect ") + what + " " + id + value);
    };
    expect(control.isVisible ? "visible" : "hidden", "");
    if (!control.isVisible) {
        return;
    }
    expect(control.isEnabled ? "enabled" : "disabled", "");
    if (automation::HasReadableTexts(control.window)) {
        expect("text", " " + Quote(control.text));
    }
    if (control.HoldsCheck()) {
        expect(control.isChecked ? "checked" : "unchecked", "");
    }
    if (control.IsCombo()) {
        expect("selection", " " + std::to_string(control.selection));
        expect("count", " " + std::to_string(control.count));
    }
}

}  // namespace

View Look() {
    View view;
    HWND front = automation::FrontWindow();
    view.box = automation::ReadMessageBox(front);
    view.front = front == nullptr                              ? View::Front::None
                 : view.box                                    ? View::Front::MessageBox
                 : automation::FileNameField(front) != nullptr ? View::Front::FileDialog
                                                               : View::Front::Dialog;
    if (view.front != View::Front::Dialog) {
        return view;
    }
    if (HWND tabs = automation::TabControl(front)) {
        view.tabs = automation::TabCaptions(tabs);
        view.tab = Ask(tabs, TCM_GETCURSEL);
        AddControls(automation::CurrentPage(front), view.controls);
    }
    AddControls(front, view.controls);
    std::sort(view.controls.begin(), view.controls.end(),
              [](const SeenControl& a, const SeenControl& b) { return a.id < b.id; });
    HWND focus = GetFocus();
    const auto focused = std::find_if(view.controls.begin(), view.controls.end(), [focus](const SeenControl& c) {
        return c.window == focus || (c.IsCombo() && IsChild(c.window, focus));
    });
    if (focused != view.controls.end()) {
        view.focus = static_cast<int>(focused - view.controls.begin());
        view.openList = focused->IsCombo() ? automation::OpenListOf(focused->window) : nullptr;
    }
    if (view.openList != nullptr) {
        view.listCount = Ask(view.openList, LB_GETCOUNT);
        view.highlighted = Ask(view.openList, LB_GETCURSEL);
    }
    if (ClassOf(focus) == "Edit") {
        view.caret = LookAtCaret(focus);
    }
    view.clipboard = ClipboardText();
    return view;
}

std::vector<std::string> DescribeView(const View& view) {
    std::vector<std::string> lines;
    if (view.front != View::Front::Dialog) {
        return lines;
    }
    if (view.tab >= 0) {
        lines.push_back("expect tab " + Quote(view.tabs[static_cast<size_t>(view.tab)]));
    }
    for (const SeenControl& control : view.controls) {
        DescribeControl(control, lines);
    }
    const SeenControl* focus = view.Focused();
    lines.push_back(focus != nullptr ? "expect focus " + std::to_string(focus->id) : "# the focus is elsewhere");
    if (view.caret) {
        lines.push_back("# caret " + std::to_string(view.caret->begin) + " " + std::to_string(view.caret->end));
    }
    lines.push_back(view.openList != nullptr ? "# open list at " + std::to_string(view.highlighted) : "# no open list");
    lines.push_back("# clipboard " + Quote(view.clipboard));
    return lines;
}

}  // namespace random_user
