// Letters of code page 1252.
#include "core/letters.h"

#include <cstring>

bool IsLetter(char character) {
    if ((character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z')) {
        return true;
    }
    const auto code = static_cast<unsigned char>(character);
    constexpr unsigned char kMultiplied = 0xD7;
    constexpr unsigned char kDivided = 0xF7;
    // Those that do not stand from A with grave accent on.
    constexpr char kScattered[] = "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA";
    return (code >= 0xC0 && code != kMultiplied && code != kDivided) ||
           (code >= 0x80 && std::strchr(kScattered, character) != nullptr);
}
