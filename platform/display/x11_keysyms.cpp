// Letters, digits, keypad digits and function keys follow a rule; the rest is a table in the order of the symbols.

#include "platform/display/x11_keysyms.h"

#include <windows.h>

#define XK_LATIN1
#define XK_MISCELLANY
#define XK_XKB_KEYS
#include <X11/keysymdef.h>

#include <algorithm>
#include <array>

namespace platform {
namespace {

struct KeyRow {
    KeySym symbol;
    int virtualKey;
};

// The keys that a layout may label at will have numbers only, called OEM keys: 0xBA to 0xC0, 0xDB to 0xDF and 0xE2.
constexpr auto kKeys = std::to_array<KeyRow>({
    {XK_space, VK_SPACE},
    {XK_apostrophe, 0xBF},
    {XK_plus, 0xBB},
    {XK_comma, 0xBC},
    {XK_minus, 0xBD},
    {XK_period, 0xBE},
    {XK_slash, 0xBF},
    {XK_semicolon, 0xBA},
    {XK_less, 0xE2},
    {XK_equal, 0xBB},
    {XK_bracketleft, 0xDB},
    {XK_backslash, 0xDC},
    {XK_bracketright, 0xDD},
    {XK_grave, 0xC0},
    {XK_section, 0xDC},
    {XK_Adiaeresis, 0xDE},
    {XK_Aring, 0xDD},
    {XK_Odiaeresis, 0xC0},
    {XK_adiaeresis, 0xDE},
    {XK_aring, 0xDD},
    {XK_odiaeresis, 0xC0},
    {XK_ISO_Left_Tab, VK_TAB},
    {XK_dead_acute, 0xDB},
    {XK_dead_diaeresis, 0xBA},
    {XK_BackSpace, VK_BACK},
    {XK_Tab, VK_TAB},
    {XK_Clear, VK_CLEAR},
    {XK_Return, VK_RETURN},
    {XK_Pause, VK_PAUSE},
    {XK_Scroll_Lock, VK_SCROLL},
    {XK_Escape, VK_ESCAPE},
    {XK_Home, VK_HOME},
    {XK_Left, VK_LEFT},
    {XK_Up, VK_UP},
    {XK_Right, VK_RIGHT},
    {XK_Down, VK_DOWN},
    {XK_Prior, VK_PRIOR},
    {XK_Next, VK_NEXT},
    {XK_End, VK_END},
    {XK_Execute, VK_EXECUTE},
    {XK_Insert, VK_INSERT},
    {XK_Menu, VK_APPS},
    {XK_Help, VK_HELP},
    {XK_Break, VK_CANCEL},
    {XK_Num_Lock, VK_NUMLOCK},
    {XK_KP_Enter, VK_RETURN},
    {XK_KP_Home, VK_HOME},
    {XK_KP_Left, VK_LEFT},
    {XK_KP_Up, VK_UP},
    {XK_KP_Right, VK_RIGHT},
    {XK_KP_Down, VK_DOWN},
    {XK_KP_Prior, VK_PRIOR},
    {XK_KP_Next, VK_NEXT},
    {XK_KP_End, VK_END},
    {XK_KP_Begin, VK_CLEAR},
    {XK_KP_Insert, VK_INSERT},
    {XK_KP_Delete, VK_DELETE},
    {XK_KP_Multiply, VK_MULTIPLY},
    {XK_KP_Add, VK_ADD},
    {XK_KP_Separator, VK_DECIMAL},
    {XK_KP_Subtract, VK_SUBTRACT},
    {XK_KP_Decimal, VK_DECIMAL},
    {XK_KP_Divide, VK_DIVIDE},
    {XK_Shift_L, VK_SHIFT},
    {XK_Shift_R, VK_SHIFT},
    {XK_Control_L, VK_CONTROL},
    {XK_Control_R, VK_CONTROL},
    {XK_Caps_Lock, VK_CAPITAL},
    {XK_Alt_L, VK_MENU},
    {XK_Alt_R, VK_MENU},
    {XK_Delete, VK_DELETE},
});

bool isBelow(const KeyRow& row, KeySym symbol) {
    return row.symbol < symbol;
}

// A run of symbols whose virtual keys run likewise.
struct KeyRun {
    KeySym first;
    KeySym last;
    int virtualKey;
};

constexpr auto kRuns = std::to_array<KeyRun>({
    {XK_0, XK_9, '0'},
    {XK_A, XK_Z, 'A'},
    {XK_a, XK_z, 'A'},
    {XK_KP_0, XK_KP_9, VK_NUMPAD0},
    {XK_F1, XK_F24, VK_F1},
});

}  // namespace

int virtualKeyOfSymbol(KeySym symbol) {
    for (const KeyRun& run : kRuns) {
        if (symbol >= run.first && symbol <= run.last) {
            return run.virtualKey + static_cast<int>(symbol - run.first);
        }
    }
    static_assert(std::is_sorted(kKeys.begin(), kKeys.end(),
                                 [](const KeyRow& a, const KeyRow& b) { return a.symbol < b.symbol; }));
    const auto* found = std::lower_bound(kKeys.begin(), kKeys.end(), symbol, isBelow);
    return found != kKeys.end() && found->symbol == symbol ? found->virtualKey : 0;
}

bool isThirdLevelShift(KeySym symbol) {
    return symbol == XK_ISO_Level3_Shift || symbol == XK_Mode_switch;
}

}  // namespace platform
