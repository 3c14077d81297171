// Input as the messages that a mouse and a keyboard cause. Keys that mean a character are posted as the character
// alone: whether a key gives it depends on the keyboard layout, which a scenario does not know.

#include "automation/input.h"

#include <windows.h>

#include <array>

#include "automation/codepage.h"
#include "automation/finder.h"

namespace automation {
namespace {

constexpr LPARAM kExtendedBit = 1 << 24;
constexpr LPARAM kAltBit = 1 << 29;
constexpr LPARAM kReleasedBits = static_cast<LPARAM>(0xC0000000);
constexpr BYTE kHeldDown = 0x80;

LPARAM PointParam(POINT point) {
    return MAKELPARAM(point.x, point.y);
}

HWND KeyTarget() {
    HWND focus = GetFocus();
    return focus != nullptr ? focus : FrontWindow();
}

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
    Add([window, point] {
        if (CanTakeInput(window)) {
            PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, PointParam(point));
        }
    });
    // The release belongs to whoever captured the mouse; a box that came up meanwhile has taken it away.
    Add([window, point] {
        HWND capture = GetCapture();
        HWND target = capture != nullptr ? capture : window;
        if (!CanTakeInput(target)) {
            return;
        }
        POINT there = point;
        MapWindowPoints(window, target, &there, 1);
        PostMessageA(target, WM_LBUTTONUP, 0, PointParam(there));
    });
}

void InputQueue::ClickMiddle(HWND window) {
    Click(window, MiddleOf(window));
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
        Add([c] { PostMessageA(KeyTarget(), WM_CHAR, static_cast<unsigned char>(c), 1); });
    }
}

void InputQueue::Focus(HWND control) {
    Add([control] { PostFocusMove(control); });
    Add([control] {
        if (HasFocus(control)) {
            return;
        }
        const std::optional<MessageBoxText> box = ReadMessageBox(FrontWindow());
        throw Failure(
            "expected the focus on control " + std::to_string(GetDlgCtrlID(control)) + ", got " +
            (box ? "message box \"" + ConvertFrom1252(box->caption) + "\" \"" + ConvertFrom1252(box->text) + "\""
                 : "it on another"));
    });
}

void PostFocusMove(HWND control) {
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
