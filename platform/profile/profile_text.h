// The text of a profile file: sections of keys and values. It is read as it stands, whatever it holds; its bytes are
// code page 1252. A name is compared letter case of A to Z and blanks around it aside.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// Where a key stands in a text. Of sections of one name, and of keys of one name, the first one counts. What stands
// before the first section belongs to the section without a name.
struct ProfileEntry {
    bool hasSection = false;
    bool hasKey = false;
    // Without the key: behind the last line of the section that is not blank, the place for a key.
    size_t sectionEnd = 0;
    // The line of the key, with its end.
    size_t begin = 0;
    size_t end = 0;
    // Nothing when the line has no "=".
    std::optional<std::string_view> value;
};
ProfileEntry findProfileEntry(std::string_view text, std::string_view section, std::string_view key);

// The names of the sections that have one, in their order, each followed by a NUL.
std::string profileSections(std::string_view text);

// The text with a key set or, without a value, removed. All other lines stay as they are.
std::string withProfileEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::optional<std::string_view> value);

// A value without the pair of quotes, single or double, that may stand around it.
std::string_view withoutQuotes(std::string_view value);

// The number that a value begins with, decimal, or with the prefix 0x, 0o or 0b; 0 when there is none. Too large a
// number loses its upper bits.
int profileNumber(std::string_view value);

}  // namespace platform
