// Code page 1252 differs from the first 256 Unicode characters in its bytes 80 to 9F only.

#include "platform/resources/code_page.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

constexpr unsigned kFirstOwnByte = 0x80;
constexpr std::array<char16_t, 32> kOwnCharacters = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kMalformed = 0xFFFFFFFF;
constexpr char16_t kReplacement = 0xFFFD;
constexpr char32_t kFirstPair = 0x10000;

// Number of bytes that follow a leading byte in UTF-8; -1 when the byte leads nothing.
int followingBytes(unsigned char lead) {
    if (lead < 0x80) {
        return 0;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return -1;
    }
    return lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
}

// The second byte of three or four shows that a shorter sequence would do, or that there is no such character. `begun`
// holds the bits of the first two.
bool isHopeless(char32_t begun, int following) {
    if (following == 2) {
        return begun < 0x800 >> 6 || (begun >= 0xD800 >> 6 && begun < 0xE000 >> 6);
    }
    return following == 3 && (begun < 0x10000 >> 12 || begun >= 0x110000 >> 12);
}

// Reads one character and moves `at` behind it; of a malformed sequence, behind what could have been a character.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    const int following = followingBytes(lead);
    if (following <= 0) {
        return following == 0 ? lead : kMalformed;
    }
    char32_t character = lead & (0x3FU >> following);
    for (int i = 0; i < following; ++i) {
        const auto byte = at < text.size() ? static_cast<unsigned char>(text[at]) : '\0';
        if ((byte & 0xC0U) != 0x80) {
            return kMalformed;
        }
        ++at;
        character = (character << 6) | (byte & 0x3FU);
        if (i == 0 && isHopeless(character, following)) {
            return kMalformed;
        }
    }
    return character;
}

void appendUtf8(std::string& utf8, char32_t character) {
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < kFirstPair ? 2 : 3;
    utf8 += static_cast<char>((0xF0U << (3 - following)) | (character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        utf8 += static_cast<char>(0x80U | ((character >> (6 * i)) & 0x3FU));
    }
}

bool isHalf(char16_t unit, char16_t first) {
    return unit >= first && unit < first + 0x400;
}

}  // namespace

char32_t characterOfByte(unsigned char byte) {
    const bool own = byte >= kFirstOwnByte && byte < kFirstOwnByte + kOwnCharacters.size();
    return own ? kOwnCharacters[byte - kFirstOwnByte] : byte;
}

int byteOfCharacter(char32_t character) {
    if (character < kFirstOwnByte || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<int>(character);
    }
    const auto* own = std::find(kOwnCharacters.begin(), kOwnCharacters.end(), character);
    return own == kOwnCharacters.end() ? -1 : static_cast<int>(kFirstOwnByte + (own - kOwnCharacters.begin()));
}

std::string utf16ToCodePage(std::u16string_view text, Unmapped unmapped) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        const int byte = byteOfCharacter(unit);
        if (byte >= 0) {
            bytes += static_cast<char>(byte);
        } else if (unmapped == Unmapped::QuestionMark) {
            bytes += '?';
        }
    }
    return bytes;
}

std::u16string codePageToUtf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (const char byte : text) {
        units += static_cast<char16_t>(characterOfByte(static_cast<unsigned char>(byte)));
    }
    return units;
}

bool utf8ToUtf16(std::string_view text, std::u16string& units) {
    bool wellFormed = true;
    units.clear();
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        if (character == kMalformed) {
            wellFormed = false;
            units += kReplacement;
        } else if (character < kFirstPair) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD800 + ((character - kFirstPair) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((character - kFirstPair) & 0x3FF));
        }
    }
    return wellFormed;
}

std::string utf16ToUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size() * 2);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isHalf(unit, 0xD800) && at + 1 < text.size() && isHalf(text[at + 1], 0xDC00)) {
            ++at;
            appendUtf8(utf8, kFirstPair + ((unit - 0xD800U) << 10) + (text[at] - 0xDC00U));
        } else {
            appendUtf8(utf8, isHalf(unit, 0xD800) || isHalf(unit, 0xDC00) ? kReplacement : unit);
        }
    }
    return utf8;
}

std::string utf8ToCodePage(std::string_view text, Unmapped unmapped) {
    std::u16string units;
    utf8ToUtf16(text, units);
    return utf16ToCodePage(units, unmapped);
}

std::string codePageToUtf8(std::string_view text) {
    return utf16ToUtf8(codePageToUtf16(text));
}

char codePageUpper(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7)) {
        return static_cast<char>(code - 0x20);
    }
    if (code == 0x9A || code == 0x9C || code == 0x9E) {
        return static_cast<char>(code - 0x10);
    }
    return code == 0xFF ? static_cast<char>(0x9F) : byte;
}

}  // namespace platform
