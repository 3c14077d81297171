// Input as the messages that a mouse and a keyboard cause. Most keys that mean a character are posted as the character
// alone: whether a key gives it depends on the keyboard layout, which a scenario does not know.

#include "automation/input.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "automation/finder.h"

namespace automation {
namespace {

constexpr LPARAM kExtendedBit = 1 << 24;
constexpr LPARAM kAltBit = 1 << 29;
constexpr LPARAM kReleasedBits = static_cast<LPARAM>(0xC0000000);
constexpr BYTE kHeldDown = 0x80;

// Points are given in the client coordinates of `window`.
void PostButton(HWND target, UINT message, HWND window, POINT point) {
    if (!CanTakeInput(target)) {
        return;
    }
    MapWindowPoints(window, target, &point, 1);
    PostMessageA(target, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(point.x, point.y));
}

// What a held button does belongs to whoever captured the mouse; a box that came up meanwhile has taken it away.
void PostHeld(UINT message, HWND window, POINT point) {
    HWND capture = GetCapture();
    PostButton(capture != nullptr ? capture : window, message, window, point);
}

// The child that covers the point, or the window itself: in most of a combo box the mouse meets its edit.
HWND ChildAt(HWND window, POINT point) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        if (IsWindowVisible(child) && PtInRect(&place, point)) {
            return child;
        }
    }
    return window;
}

HWND KeyTarget() {
    HWND focus = GetFocus();
    return focus != nullptr ? focus : FrontWindow();
}

// The characters whose keys every keyboard layout has in the same place.
constexpr std::pair<char, unsigned> kKeysOfAnyLayout[] = {{' ', VK_SPACE}, {'\n', VK_RETURN}, {'\t', VK_TAB}};

// The modifiers as the windows will see them when they ask for the key state.
void SetModifiers(const Key& key, BYTE held) {
    std::array<BYTE, 256> state{};
    GetKeyboardState(state.data());
    const std::pair<int, bool> modifiers[] = {{VK_SHIFT, key.shift}, {VK_CONTROL, key.control}, {VK_MENU, key.alt}};
    for (const auto& [virtualKey, isUsed] : modifiers) {
        if (isUsed) {
            state[static_cast<size_t>(virtualKey)] = held;
        }
    }
    SetKeyboardState(state.data());
}

void PostKey(const Key& key, bool down) {
    LPARAM param = 1;
    if (key.extended) {
        param |= kExtendedBit;
    }
    if (key.alt) {
        param |= kAltBit;
    }
    if (!down) {
        param |= kReleasedBits;
    }
    const UINT plain = down ? WM_KEYDOWN : WM_KEYUP;
    const UINT system = down ? WM_SYSKEYDOWN : WM_SYSKEYUP;
    PostMessageA(KeyTarget(), key.alt ? system : plain, key.virtualKey, param);
}

}  // namespace

void InputQueue::Hold(const Key& key) {
    m_held = key;
    SetModifiers(key, kHeldDown);
}

void InputQueue::LetGo() {
    SetModifiers(m_held, 0);
    m_held = {};
}

void InputQueue::Clear() {
    m_pieces.clear();
    LetGo();
}

void InputQueue::DoNext() {
    const std::function<void()> piece = std::move(m_pieces.front());
    m_pieces.pop_front();
    try {
        piece();
    } catch (const Failure&) {
        Clear();
        throw;
    }
}

void InputQueue::Click(HWND window, POINT point) {
    PressButton(window, point);
    ReleaseButton(window, point);
}

void InputQueue::PressButton(HWND window, POINT point) {
    Add([this, window, point] {
        HWND list = ListWithMouse();
        if (list == nullptr || list == window) {
            PostButton(window, WM_LBUTTONDOWN, window, point);
            return;
        }
        // A press beside an open list only closes it: who wants another control then presses once more.
        const bool isOwnList = OpenListOf(window) == list;
        PostButton(list, WM_LBUTTONDOWN, window, point);
        if (!isOwnList) {
            m_pieces.push_front([window, point] { PostButton(window, WM_LBUTTONDOWN, window, point); });
        }
    });
}

void InputQueue::MoveHeld(HWND window, POINT point) {
    Add([window, point] { PostHeld(WM_MOUSEMOVE, window, point); });
    // The next piece does not wait for moves, which may be those of a real mouse; a piece between lets this one pass.
    Add([] {});
}

void InputQueue::ReleaseButton(HWND window, POINT point) {
    Add([window, point] { PostHeld(WM_LBUTTONUP, window, point); });
}

void InputQueue::DoubleClick(HWND window, POINT point) {
    Click(window, point);
    Add([window, point] { PostButton(window, WM_LBUTTONDBLCLK, window, point); });
    Add([window, point] { PostHeld(WM_LBUTTONUP, window, point); });
}

// A move by little more than what a hand trembles makes it a drag.
void InputQueue::Drag(HWND window, POINT from, POINT to) {
    const int tremble = GetSystemMetrics(SM_CXDRAG) + 1;
    const POINT begun = {from.x + (to.x < from.x ? -tremble : tremble), from.y};
    Add([window, from] { PostButton(window, WM_LBUTTONDOWN, window, from); });
    for (const POINT point : {begun, to}) {
        Add([window, point] { PostHeld(WM_MOUSEMOVE, window, point); });
    }
    Add([window, to] { PostHeld(WM_LBUTTONUP, window, to); });
}

void InputQueue::ClickMiddle(HWND window) {
    POINT point = MiddleOf(window);
    HWND target = ChildAt(window, point);
    MapWindowPoints(window, target, &point, 1);
    Click(target, point);
}

void InputQueue::Press(const Key& key) {
    Add([this, key] {
        Hold(key);
        PostKey(key, true);
    });
    Add([key] { PostKey(key, false); });
    Add([this] { LetGo(); });
}

void InputQueue::Type(const std::string& text) {
    for (const char c : text) {
        const auto* key = std::find_if(std::begin(kKeysOfAnyLayout), std::end(kKeysOfAnyLayout),
                                       [c](const auto& row) { return row.first == c; });
        if (key != std::end(kKeysOfAnyLayout)) {
            Press({key->second});
        } else {
            Add([c] { PostMessageA(KeyTarget(), WM_CHAR, static_cast<unsigned char>(c), 1); });
        }
    }
}

void InputQueue::Focus(HWND control) {
    Add([control] { PostFocusMove(control); });
    Add([control] {
        if (!HasFocus(control)) {
            throw Failure("expected the focus on control " + std::to_string(GetDlgCtrlID(control)) +
                          ", got it on another");
        }
    });
}

void PostFocusMove(HWND control) {
    if (HasFocus(control)) {
        return;
    }
    PostMessageA(DialogOf(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

POINT MiddleOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right / 2, client.bottom / 2};
}

HWND DialogOf(HWND control) {
    HWND dialog = GetParent(control);
    while (dialog != nullptr && ClassOf(dialog) != "#32770") {
        dialog = GetParent(dialog);
    }
    return dialog != nullptr ? dialog : GetParent(control);
}

}  // namespace automation
