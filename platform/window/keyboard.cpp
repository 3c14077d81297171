// Key messages, the keyboard state that goes with the message being handled, and characters.
#include "platform/window/keyboard.h"

#include "platform/window/activation.h"
#include "platform/window/message_queue.h"
#include "platform/window/window.h"

#include <cstring>

namespace platform {
namespace {

constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;
constexpr LPARAM kExtendedKey = 1 << 24;
constexpr LPARAM kAltDown = 1 << 29;
constexpr LPARAM kWasDown = 1 << 30;
constexpr LPARAM kReleased = LPARAM{1} << 31;

constexpr int kOemPlus = 0xBB;
constexpr int kOemComma = 0xBC;
constexpr int kOemMinus = 0xBD;
constexpr int kOemPeriod = 0xBE;

struct Keyboard {
    BYTE state[256] = {};
    // Characters of the key message that was taken last, and that message.
    std::string text;
    HWND textWindow = nullptr;
    WPARAM textKey = 0;
    bool hasText = false;
};

Keyboard& keyboard() {
    static Keyboard only;
    return only;
}

bool isDown(int key) {
    return (keyboard().state[key] & kDown) != 0;
}
bool isToggled(int key) {
    return (keyboard().state[key] & kToggled) != 0;
}

void setDown(int key, bool down) {
    BYTE& state = keyboard().state[key];
    state = static_cast<BYTE>(down ? state | kDown : state & ~kDown);
}

bool isExtended(int key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE || key == VK_DIVIDE ||
           key == VK_NUMLOCK || key == VK_RCONTROL || key == VK_RMENU;
}

// Left and right modifier keys are reported by their common code.
int commonKey(int key) {
    switch (key) {
        case VK_LSHIFT:
        case VK_RSHIFT:
            return VK_SHIFT;
        case VK_LCONTROL:
        case VK_RCONTROL:
            return VK_CONTROL;
        case VK_LMENU:
        case VK_RMENU:
            return VK_MENU;
        default:
            return key;
    }
}

// Alt makes a system key of the others; not together with Ctrl, which is AltGr. Keys go to the active window as system
// keys when nothing has the focus.
bool isSystemKey(const InputEvent& event) {
    const int key = commonKey(event.code);
    if (!focusWindow() || key == VK_F10) {
        return true;
    }
    const bool control = isDown(VK_CONTROL);
    return key == VK_MENU ? !control : isDown(VK_MENU) && !control;
}

// The character of a key that no display event stands behind, as on a plain keyboard; 0 for none.
char characterOf(int key) {
    const bool shift = isDown(VK_SHIFT);
    const bool control = isDown(VK_CONTROL);
    if (key >= 'A' && key <= 'Z') {
        if (control) {
            return static_cast<char>(key - 'A' + 1);
        }
        return static_cast<char>(shift != isToggled(VK_CAPITAL) ? key : key - 'A' + 'a');
    }
    if (key == VK_RETURN) {
        return control ? '\n' : '\r';
    }
    if (key == VK_BACK || key == VK_ESCAPE || key == VK_SPACE) {
        return static_cast<char>(key);
    }
    if (control) {
        return 0;
    }
    if (key >= '0' && key <= '9') {
        return shift ? ")!@#$%^&*("[key - '0'] : static_cast<char>(key);
    }
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) {
        return isToggled(VK_NUMLOCK) ? static_cast<char>(key - VK_NUMPAD0 + '0') : '\0';
    }
    struct KeyCharacter {
        int key;
        char plain;
        char shifted;
    };
    constexpr KeyCharacter kOthers[] = {
        {VK_TAB, '\t', '\t'},    {VK_MULTIPLY, '*', '*'}, {VK_ADD, '+', '+'},
        {VK_SUBTRACT, '-', '-'}, {VK_DIVIDE, '/', '/'},   {kOemPlus, '=', '+'},
        {kOemComma, ',', '<'},   {kOemMinus, '-', '_'},   {kOemPeriod, '.', '>'},
    };
    for (const KeyCharacter& other : kOthers) {
        if (other.key == key) {
            return shift ? other.shifted : other.plain;
        }
    }
    return 0;
}

}  // namespace

bool makeKeyMessage(const InputEvent& event, MSG& message) {
    const HWND receiver = focusWindow() ? focusWindow() : activeWindow();
    if (!receiver) {
        return false;
    }
    message = MSG{receiver, WM_CHAR, static_cast<WPARAM>(event.code), 1, event.time, lastPointerPosition()};
    if (event.kind == InputEvent::Kind::Character) {
        return true;
    }
    const bool system = isSystemKey(event);
    if (event.down) {
        message.message = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    } else {
        message.message = system ? WM_SYSKEYUP : WM_KEYUP;
    }
    message.wParam = static_cast<WPARAM>(commonKey(event.code));
    if (isExtended(event.code)) {
        message.lParam |= kExtendedKey;
    }
    if (isDown(VK_MENU) && commonKey(event.code) != VK_CONTROL && !isDown(VK_CONTROL)) {
        message.lParam |= kAltDown;
    }
    if (event.repeat || !event.down) {
        message.lParam |= kWasDown;
    }
    if (!event.down) {
        message.lParam |= kReleased;
    }
    return true;
}

void keyMessageTaken(const InputEvent& event, const MSG& message) {
    if (event.kind != InputEvent::Kind::Key) {
        return;
    }
    const int common = commonKey(event.code);
    setDown(event.code, event.down);
    setDown(common, event.down);
    Keyboard& keys = keyboard();
    if (event.down && !event.repeat) {
        keys.state[common] ^= kToggled;
    }
    keys.hasText = event.down;
    keys.text = event.text;
    keys.textWindow = message.hwnd;
    keys.textKey = message.wParam;
    if (event.code == VK_APPS && !event.down) {
        PostMessageA(message.hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(message.hwnd), -1);
    }
}

void forgetKeyText() {
    keyboard().hasText = false;
}

void applyModifiers(const InputEvent& event) {
    setDown(VK_SHIFT, (event.modifiers & MK_SHIFT) != 0);
    setDown(VK_CONTROL, (event.modifiers & MK_CONTROL) != 0);
    setDown(VK_MENU, (event.modifiers & InputSink::kAlt) != 0);
    const auto setToggled = [](int key, bool on) {
        BYTE& state = keyboard().state[key];
        state = static_cast<BYTE>(on ? state | kToggled : state & ~kToggled);
    };
    setToggled(VK_CAPITAL, (event.modifiers & InputSink::kCapsLock) != 0);
    setToggled(VK_NUMLOCK, (event.modifiers & InputSink::kNumLock) != 0);
}

void setButtonState(int button, bool down) {
    if (button > 0 && button < 256) {
        setDown(button, down);
    }
}

WPARAM mouseKeyState() {
    struct StateBit {
        int key;
        WPARAM bit;
    };
    constexpr StateBit kBits[] = {{VK_LBUTTON, MK_LBUTTON},
                                  {VK_RBUTTON, MK_RBUTTON},
                                  {VK_MBUTTON, MK_MBUTTON},
                                  {VK_SHIFT, MK_SHIFT},
                                  {VK_CONTROL, MK_CONTROL}};
    WPARAM state = 0;
    for (const StateBit& entry : kBits) {
        if (isDown(entry.key)) {
            state |= entry.bit;
        }
    }
    return state;
}

}  // namespace platform

BOOL TranslateMessage(const MSG* message) {
    if (!message || (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)) {
        return message && (message->message == WM_KEYUP || message->message == WM_SYSKEYUP) ? TRUE : FALSE;
    }
    const UINT character = message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
    platform::Keyboard& keys = platform::keyboard();
    // A display may know no text for a key with Ctrl or Alt; it is found like that of a posted key.
    const bool shortcut = platform::isDown(VK_CONTROL) != platform::isDown(VK_MENU);
    if (keys.hasText && !(keys.text.empty() && shortcut) && keys.textWindow == message->hwnd &&
        keys.textKey == message->wParam) {
        keys.hasText = false;
        for (const char byte : keys.text) {
            PostMessageA(message->hwnd, character, static_cast<unsigned char>(byte), message->lParam);
        }
        return TRUE;
    }
    const char byte = message->wParam < 256 ? platform::characterOf(static_cast<int>(message->wParam)) : '\0';
    if (byte) {
        PostMessageA(message->hwnd, character, static_cast<unsigned char>(byte), message->lParam);
    }
    return TRUE;
}

SHORT GetKeyState(int key) {
    if (key < 0 || key > 255) {
        return 0;
    }
    const BYTE state = platform::keyboard().state[key];
    const int value = (state & platform::kDown ? 0xff80 : 0) | (state & platform::kToggled);
    return static_cast<SHORT>(value);
}

BOOL GetKeyboardState(BYTE* state) {
    if (!state) {
        return FALSE;
    }
    std::memcpy(state, platform::keyboard().state, sizeof platform::keyboard().state);
    return TRUE;
}

BOOL SetKeyboardState(BYTE* state) {
    if (!state) {
        return FALSE;
    }
    std::memcpy(platform::keyboard().state, state, sizeof platform::keyboard().state);
    return TRUE;
}
