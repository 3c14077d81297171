// Looks at windows through the window API. A message box has no mark of its own, so it is known by its looks:
// a dialog of nothing but statics and push buttons.

#include "automation/finder.h"

#include <windows.h>

#include <commctrl.h>
#include <dlgs.h>
#include <prsht.h>

#include <algorithm>
#include <array>

namespace automation {
namespace {

constexpr const char* kDialogClass = "#32770";
constexpr const char* kComboBoxClass = "ComboBox";
constexpr const char* kDropDownListClass = "ComboLBox";

BOOL CALLBACK CollectWindow(HWND window, LPARAM param) {
    reinterpret_cast<std::vector<HWND>*>(param)->push_back(window);
    return TRUE;
}

// Children of children too, which no message box has.
std::vector<HWND> VisibleChildren(HWND window) {
    std::vector<HWND> children;
    EnumChildWindows(window, CollectWindow, reinterpret_cast<LPARAM>(&children));
    std::erase_if(children, [](HWND child) { return !IsWindowVisible(child); });
    return children;
}

// The BS_ value of a button's style; that of a mere frame for another control.
LONG ButtonKind(HWND window) {
    return ClassOf(window) == "Button" ? GetWindowLongA(window, GWL_STYLE) & BS_TYPEMASK : BS_GROUPBOX;
}

bool IsPushButton(HWND window) {
    const LONG kind = ButtonKind(window);
    return kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON;
}

bool IsStatic(HWND window) {
    return ClassOf(window) == "Static";
}

}  // namespace

std::vector<HWND> VisibleWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), CollectWindow, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window); });
    return windows;
}

HWND FrontWindow() {
    std::vector<HWND> windows = VisibleWindows();
    std::erase_if(windows,
                  [](HWND window) { return !IsWindowEnabled(window) || ClassOf(window) == kDropDownListClass; });
    const auto active = std::find(windows.begin(), windows.end(), GetActiveWindow());
    if (active != windows.end()) {
        return *active;
    }
    return windows.empty() ? nullptr : windows.front();
}

std::string ClassOf(HWND window) {
    std::array<char, 256> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

bool HasReadableTexts(HWND window) {
    const LONG style = GetWindowLongA(window, GWL_STYLE);
    const bool ownerDrawn = (style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
    return !ownerDrawn || (style & CBS_HASSTRINGS) != 0 || ClassOf(window) != kComboBoxClass;
}

std::string TextOf(HWND window) {
    if (!HasReadableTexts(window)) {
        return "";
    }
    const LRESULT length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
    const LRESULT copied = SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(std::clamp<LRESULT>(copied, 0, static_cast<LRESULT>(text.size()) - 1)));
    return text;
}

bool CanTakeInput(HWND window) {
    if (!IsWindow(window) || !IsWindowVisible(window)) {
        return false;
    }
    for (HWND w = window; w != nullptr; w = GetParent(w)) {
        if (!IsWindowEnabled(w)) {
            return false;
        }
        const bool isChild = (GetWindowLongA(w, GWL_STYLE) & WS_CHILD) != 0;
        if (!isChild) {
            break;  // A top-level window's parent is its owner, which its own modal window disables.
        }
    }
    return true;
}

bool HasFocus(HWND control) {
    HWND focus = GetFocus();
    return focus != nullptr && (focus == control || IsChild(control, focus));
}

bool HoldsCheck(HWND control) {
    const LONG kind = ButtonKind(control);
    return kind >= BS_CHECKBOX && kind <= BS_AUTORADIOBUTTON && kind != BS_GROUPBOX;
}

HWND TabControl(HWND window) {
    if (window == nullptr || ClassOf(window) != kDialogClass) {
        return nullptr;
    }
    HWND tabs = reinterpret_cast<HWND>(SendMessageA(window, PSM_GETTABCONTROL, 0, 0));
    return IsWindow(tabs) ? tabs : nullptr;
}

HWND CurrentPage(HWND window) {
    if (TabControl(window) == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<HWND>(SendMessageA(window, PSM_GETCURRENTPAGEHWND, 0, 0));
}

bool IsSheet(HWND window) {
    return CurrentPage(window) != nullptr;
}

bool IsEndedSheet(HWND window) {
    return TabControl(window) != nullptr && CurrentPage(window) == nullptr;
}

std::vector<std::string> TabCaptions(HWND tabControl) {
    std::vector<std::string> captions;
    const auto count = static_cast<WPARAM>(SendMessageA(tabControl, TCM_GETITEMCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        std::array<char, 256> text{};
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageA(tabControl, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
        captions.emplace_back(item.pszText != nullptr ? item.pszText : "");
    }
    return captions;
}

HWND FindControl(HWND window, int id) {
    std::vector<HWND> dialogs = VisibleChildren(window);
    std::erase_if(dialogs, [](HWND child) { return ClassOf(child) != kDialogClass; });
    dialogs.insert(dialogs.begin(), window);
    if (HWND page = CurrentPage(window)) {
        dialogs.insert(dialogs.begin(), page);
    }
    for (HWND dialog : dialogs) {
        if (HWND control = GetDlgItem(dialog, id)) {
            return control;
        }
    }
    return nullptr;
}

// The field is an edit of its own, or inside a combo box.
HWND FileNameField(HWND window) {
    for (const int id : {edt1, cmb13}) {
        HWND field = ClassOf(window) == kDialogClass ? GetDlgItem(window, id) : nullptr;
        while (field != nullptr && ClassOf(field) != "Edit") {
            field = GetWindow(field, GW_CHILD);
        }
        if (field != nullptr) {
            return field;
        }
    }
    return nullptr;
}

std::optional<MessageBoxText> ReadMessageBox(HWND window) {
    if (window == nullptr || ClassOf(window) != kDialogClass || TabControl(window) != nullptr) {
        return std::nullopt;
    }
    const std::vector<HWND> children = VisibleChildren(window);
    const bool onlyItsKinds = std::all_of(children.begin(), children.end(),
                                          [](HWND child) { return IsPushButton(child) || IsStatic(child); });
    if (!onlyItsKinds || MessageBoxButton(window) == nullptr) {
        return std::nullopt;
    }
    const auto text = std::find_if(children.begin(), children.end(),
                                   [](HWND child) { return IsStatic(child) && !TextOf(child).empty(); });
    return MessageBoxText{TextOf(window), text != children.end() ? TextOf(*text) : ""};
}

HWND MessageBoxButton(HWND window) {
    // The system numbers the only button of a box either way.
    for (const int id : {IDOK, IDCANCEL}) {
        HWND button = GetDlgItem(window, id);
        if (button != nullptr && IsWindowVisible(button)) {
            return button;
        }
    }
    return nullptr;
}

HWND OpenListOf(HWND control) {
    HWND combo = ClassOf(control) == kComboBoxClass ? control : GetParent(control);
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    const bool isOpen = combo != nullptr && ClassOf(combo) == kComboBoxClass &&
                        SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0) != 0 &&
                        SendMessageA(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)) != 0;
    return isOpen ? info.hwndList : nullptr;
}

HWND ListWithMouse() {
    HWND capture = GetCapture();
    return capture != nullptr && ClassOf(capture) == kDropDownListClass ? capture : nullptr;
}

std::vector<std::string> ComboEntries(HWND combo) {
    if (!HasReadableTexts(combo)) {
        return {};
    }
    const LRESULT count = std::max<LRESULT>(SendMessageA(combo, CB_GETCOUNT, 0, 0), 0);
    std::vector<std::string> entries(static_cast<size_t>(count));
    for (size_t i = 0; i < entries.size(); ++i) {
        const LRESULT length = std::max<LRESULT>(SendMessageA(combo, CB_GETLBTEXTLEN, i, 0), 0);
        entries[i].resize(static_cast<size_t>(length) + 1);
        SendMessageA(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(entries[i].data()));
        entries[i].resize(static_cast<size_t>(length));
    }
    return entries;
}

}  // namespace automation
