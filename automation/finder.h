// What a user sees and names: the window in front, its controls, its tabs, a message box's text.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace automation {

// The topmost visible and enabled top-level window of this thread, drop-down lists left out; null when there is none.
HWND FrontWindow();

// All visible top-level windows of this thread, topmost first.
std::vector<HWND> VisibleWindows();

std::string ClassOf(HWND window);
// Empty where nothing can be read.
std::string TextOf(HWND window);

// Not so a combo box that keeps no texts, because its owner draws the entries: it gives their data as texts.
bool HasReadableTexts(HWND window);

// True for a window or control that a user's click or key can reach.
bool CanTakeInput(HWND window);

// True when the focus is on the control, or inside it.
bool HasFocus(HWND control);

// True for a check box or radio button.
bool HoldsCheck(HWND control);

// Whether the window is a property sheet that still runs.
bool IsSheet(HWND window);

// Whether the window is a property sheet that was told to close, but whose loop has not noticed yet.
bool IsEndedSheet(HWND window);

// The sheet's page in front and its tab control; null for any other window.
HWND CurrentPage(HWND window);
HWND TabControl(HWND window);

// The captions of the sheet's tabs, in order.
std::vector<std::string> TabCaptions(HWND tabControl);

// The control with the id: of a sheet first on its current page, then in the window itself and in the dialogs inside
// it. Null when there is none.
HWND FindControl(HWND window, int id);

// The edit for the name of the file when the window is an open-file dialog, else null.
HWND FileNameField(HWND window);

// What a message box says.
struct MessageBoxText {
    std::string caption;
    std::string text;
    bool operator==(const MessageBoxText&) const = default;
};

// The message box's text; nothing when the window is no message box.
std::optional<MessageBoxText> ReadMessageBox(HWND window);

// The button that accepts a message box.
HWND MessageBoxButton(HWND window);

// The open list of a combo box, which is given by itself or by a control inside it; null when there is none.
HWND OpenListOf(HWND control);

// An open drop-down list, which gets whatever the mouse does; null when none is open.
HWND ListWithMouse();

// The texts of a combo box's list, in order; none when they cannot be read.
std::vector<std::string> ComboEntries(HWND combo);

}  // namespace automation
