// A user's mouse and keyboard: input is queued here piece by piece, and each piece is posted when the windows have
// dealt with the one before, as a person waits to see what happens.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "automation/keys.h"

namespace automation {

// What went wrong in a command or check, without its file and line. Texts in it are UTF-8.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class InputQueue {
public:
    bool IsEmpty() const { return m_pieces.empty(); }

    // Forgets what is queued and lets go of the modifier keys that are held.
    void Clear();

    // Does the next piece; it may throw a Failure, which abandons the rest.
    void DoNext();

    // Any piece of work to be done in its turn.
    void Add(std::function<void()> piece) { m_pieces.push_back(std::move(piece)); }

    // Presses and releases the left button there (client coordinates). What cannot take input is left alone. A list
    // that is open elsewhere is closed by a press of its own first.
    void Click(HWND window, POINT point);

    // The two halves of a click, and what the mouse does between them: it moves there with the button held.
    void PressButton(HWND window, POINT point);
    void MoveHeld(HWND window, POINT point);
    void ReleaseButton(HWND window, POINT point);
    // The same twice in quick succession.
    void DoubleClick(HWND window, POINT point);

    // Presses the left button there, moves it and releases it.
    void Drag(HWND window, POINT from, POINT to);

    // Clicks the control in its middle, or what it has there inside it.
    void ClickMiddle(HWND window);

    // Presses and releases a key; the messages go to whatever has the focus then.
    void Press(const Key& key);

    // Types into whatever has the focus, in code page 1252.
    void Type(const std::string& text);

    // Moves the focus in the control's dialog as the Tab key would; fails when the control does not get it.
    void Focus(HWND control);

private:
    void Hold(const Key& key);
    void LetGo();

    std::deque<std::function<void()>> m_pieces;
    Key m_held;  // whose modifiers are down
};

// Asks the control's dialog to move the focus there, as the Tab key would; not when it is there or inside already.
void PostFocusMove(HWND control);

// The middle of the window's client area.
POINT MiddleOf(HWND window);

// The nearest dialog around a control: the page, or the window itself.
HWND DialogOf(HWND control);

}  // namespace automation
