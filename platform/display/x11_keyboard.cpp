// The third-level shift (AltGr) only chooses characters: a character typed with it comes without Control and Alt, so
// that no window takes it for a shortcut; a key that gives no character with it counts as pressed with both.

#include "platform/display/x11_keyboard.h"

#include "platform/display/x11_keysyms.h"

#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

namespace platform {
namespace {

// What the real system's keyboard sends with the keys that edit, which the X server sees otherwise when Control
// is held.
struct EditingKey {
    int virtualKey;
    const char* text;
    const char* withControl;
};

constexpr EditingKey kEditingKeys[] = {
    {VK_BACK, "\b", "\x7F"},     {VK_TAB, "\t", ""},   {VK_RETURN, "\r", "\n"},
    {VK_ESCAPE, "\x1B", "\x1B"}, {VK_SPACE, " ", " "}, {VK_DELETE, "", ""},
};

std::string characterText(int virtualKey, const std::string& typed, unsigned modifiers) {
    const bool control = (modifiers & MK_CONTROL) != 0;
    for (const EditingKey& key : kEditingKeys) {
        if (key.virtualKey == virtualKey) {
            return control ? key.withControl : key.text;
        }
    }
    if (!control) {
        return typed;
    }
    // With Control only letters give characters, the control characters 1 to 26; with Alt too, none do.
    const bool letter = virtualKey >= 'A' && virtualKey <= 'Z';
    const bool alt = (modifiers & InputSink::kAlt) != 0;
    return letter && !alt ? std::string(1, static_cast<char>(virtualKey - 'A' + 1)) : std::string();
}

// Control characters do not count as text of the third level.
bool isPrintable(const std::string& text) {
    return !text.empty() && static_cast<unsigned char>(text[0]) >= 0x20 && text[0] != 0x7F;
}

}  // namespace

X11Keyboard::X11Keyboard(::Display* display) : display_(display), inputMethod_(display) {
    // A held key then sends presses only, so that a repeat shows as a press of a key that is down.
    XkbSetDetectableAutoRepeat(display, True, nullptr);
    readModifierMasks();
}

void X11Keyboard::readModifierMasks() {
    altMask_ = numLockMask_ = thirdLevelMask_ = 0;
    XModifierKeymap* map = XGetModifierMapping(display_);
    const int keys = 8 * map->max_keypermod;
    for (int i = 0; i < keys; ++i) {
        const KeyCode code = map->modifiermap[i];
        const unsigned mask = 1U << (i / map->max_keypermod);
        // The first three modifiers have a fixed meaning.
        if (code == 0 || mask <= ControlMask) {
            continue;
        }
        const KeySym symbol = XkbKeycodeToKeysym(display_, code, 0, 0);
        if (symbol == XK_Alt_L || symbol == XK_Alt_R) {
            altMask_ |= mask;
        } else if (symbol == XK_Num_Lock) {
            numLockMask_ |= mask;
        } else if (isThirdLevelShift(symbol)) {
            thirdLevelMask_ |= mask;
        }
    }
    XFreeModifiermap(map);
}

void X11Keyboard::onMappingNotify(XMappingEvent& event) {
    XRefreshKeyboardMapping(&event);
    if (event.request != MappingPointer) {
        readModifierMasks();
    }
}

unsigned X11Keyboard::modifiersOf(unsigned state) const {
    struct Bit {
        unsigned mask;
        unsigned modifier;
    };
    const Bit bits[] = {{ShiftMask, MK_SHIFT},
                        {ControlMask, MK_CONTROL},
                        {altMask_, InputSink::kAlt},
                        {LockMask, InputSink::kCapsLock},
                        {numLockMask_, InputSink::kNumLock},
                        {thirdLevelMask_, MK_CONTROL | InputSink::kAlt}};
    unsigned modifiers = 0;
    for (const Bit& bit : bits) {
        if ((state & bit.mask) != 0) {
            modifiers |= bit.modifier;
        }
    }
    return modifiers;
}

int X11Keyboard::virtualKeyOf(XKeyEvent& event, KeySym symbol) const {
    // On the keypad the number lock decides which key it is.
    if (IsKeypadKey(symbol)) {
        return virtualKeyOfSymbol(symbol);
    }
    const int group = static_cast<int>(XkbGroupForCoreState(event.state));
    for (const int level : {0, 1}) {
        const KeySym plain = XkbKeycodeToKeysym(display_, static_cast<KeyCode>(event.keycode), group, level);
        if (const int key = virtualKeyOfSymbol(plain)) {
            return key;
        }
    }
    return virtualKeyOfSymbol(symbol);
}

bool X11Keyboard::onKeyPress(XKeyEvent& event, InputSink& sink) {
    KeySym symbol = NoSymbol;
    const std::string typed = inputMethod_.lookup(event, symbol);
    if (isThirdLevelShift(symbol)) {
        return false;
    }
    const bool thirdLevel = (event.state & thirdLevelMask_) != 0 && isPrintable(typed);
    const unsigned modifiers = modifiersOf(thirdLevel ? event.state & ~thirdLevelMask_ : event.state);
    // Key code 0 marks text from an input method.
    const int key = event.keycode != 0 ? virtualKeyOf(event, symbol) : 0;
    const std::string text = key != 0 ? characterText(key, typed, modifiers) : typed;
    if (key == 0 && text.empty()) {
        return false;
    }
    const std::size_t code = event.keycode & 0xFF;
    const bool repeat = pressed_.test(code);
    pressed_.set(code, code != 0);
    sink.modifiers(modifiers);
    sink.key(key, true, repeat, text, static_cast<DWORD>(event.time));
    return true;
}

bool X11Keyboard::onKeyRelease(XKeyEvent& event, InputSink& sink) {
    const std::size_t code = event.keycode & 0xFF;
    if (!pressed_.test(code)) {
        return false;
    }
    pressed_.reset(code);
    KeySym symbol = NoSymbol;
    XLookupString(&event, nullptr, 0, &symbol, nullptr);
    const int key = virtualKeyOf(event, symbol);
    if (key == 0) {
        return false;
    }
    sink.modifiers(modifiersOf(event.state));
    sink.key(key, false, false, {}, static_cast<DWORD>(event.time));
    return true;
}

}  // namespace platform
