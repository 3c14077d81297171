// Keys that a scenario can press, by name.
#pragma once

#include <optional>
#include <string_view>

namespace automation {

struct Key {
    unsigned virtualKey = 0;
    bool extended = false;  // on the grey block of the keyboard, which the key messages tell apart
    bool shift = false;
    bool control = false;
    bool alt = false;
};

// A key's name or a letter, with any of SHIFT+ CTRL+ ALT+ before it; nothing for an unknown name.
std::optional<Key> ParseKey(std::string_view name);

}  // namespace automation
