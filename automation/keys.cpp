// The names of keys.

#include "automation/keys.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace automation {
namespace {

struct NamedKey {
    std::string_view name;
    unsigned virtualKey;
    bool extended;
};

constexpr NamedKey kNamedKeys[] = {
    {"TAB", VK_TAB, false},      {"ENTER", VK_RETURN, false},   {"ESC", VK_ESCAPE, false},  {"SPACE", VK_SPACE, false},
    {"UP", VK_UP, true},         {"DOWN", VK_DOWN, true},       {"LEFT", VK_LEFT, true},    {"RIGHT", VK_RIGHT, true},
    {"HOME", VK_HOME, true},     {"END", VK_END, true},         {"PAGEUP", VK_PRIOR, true}, {"PAGEDOWN", VK_NEXT, true},
    {"DELETE", VK_DELETE, true}, {"BACKSPACE", VK_BACK, false}, {"F4", VK_F4, false},
};

struct Modifier {
    std::string_view prefix;
    bool Key::*held;
};

constexpr Modifier kModifiers[] = {{"SHIFT+", &Key::shift}, {"CTRL+", &Key::control}, {"ALT+", &Key::alt}};

}  // namespace

std::optional<Key> ParseKey(std::string_view name) {
    Key key;
    for (bool found = true; found;) {
        found = false;
        for (const Modifier& modifier : kModifiers) {
            if (name.starts_with(modifier.prefix) && !(key.*modifier.held)) {
                key.*modifier.held = found = true;
                name.remove_prefix(modifier.prefix.size());
            }
        }
    }
    constexpr int kSmallBit = 0x20;
    const char letter = name.size() == 1 ? static_cast<char>(name[0] & ~kSmallBit) : '\0';
    if (letter >= 'A' && letter <= 'Z') {
        key.virtualKey = static_cast<unsigned char>(letter);
        return key;
    }
    const auto* named = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                     [name](const NamedKey& candidate) { return candidate.name == name; });
    if (named == std::end(kNamedKeys)) {
        return std::nullopt;
    }
    key.virtualKey = named->virtualKey;
    key.extended = named->extended;
    return key;
}

}  // namespace automation
