// What a user sees at one moment.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "automation/finder.h"

namespace random_user {

struct SeenControl {
    enum class Kind { Edit, EditCombo, ListCombo, Check, Radio, Push, Other, Passive };

    HWND window = nullptr;
    int id = 0;
    Kind kind = Kind::Other;
    bool isVisible = false;
    bool isEnabled = false;
    bool isChecked = false;
    std::string text;    // code page 1252
    int count = 0;       // of a combo box's entries
    int selection = -1;  // the entry that is selected

    bool IsUsable() const { return isVisible && isEnabled; }
    bool IsCombo() const { return kind == Kind::EditCombo || kind == Kind::ListCombo; }
    bool IsField() const { return kind == Kind::Edit || kind == Kind::EditCombo; }
    bool HoldsCheck() const { return kind == Kind::Check || kind == Kind::Radio; }
};

// Where the caret is in the field with the focus.
struct Caret {
    int begin = 0;  // of the selection, which is empty when both ends are the same
    int end = 0;
    int length = 0;  // of the whole text
    bool canUndo = false;
};

struct View {
    // What is in front. Of a message box nothing but its text is seen, and of a file dialog nothing at all: it shows
    // the system's own folders.
    enum class Front { None, Dialog, FileDialog, MessageBox };

    Front front = Front::None;
    std::optional<automation::MessageBoxText> box;
    std::vector<std::string> tabs;
    int tab = -1;
    std::vector<SeenControl> controls;  // those with a number of their own, by number
    int focus = -1;                     // of `controls`
    std::optional<Caret> caret;
    HWND openList = nullptr;
    int listCount = 0;
    int highlighted = -1;
    std::string clipboard;

    // The entry that is selected in the open list or in the focused combo box, and how many there are.
    int Entry() const { return openList != nullptr ? highlighted : Focused()->selection; }
    int EntryCount() const { return openList != nullptr ? listCount : Focused()->count; }
    const SeenControl* Focused() const { return focus < 0 ? nullptr : &controls[static_cast<size_t>(focus)]; }
};

View Look();

// A dialog as the lines of a scenario that expect it, and comments for what no check sees. Nothing for all else.
std::vector<std::string> DescribeView(const View& view);

}  // namespace random_user
