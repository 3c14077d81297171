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

void appendByte(std::string& text, char32_t character, Unmapped unmapped) {
    const int byte = byteOfCharacter(character);
    if (byte >= 0) {
        text += static_cast<char>(byte);
    } else if (unmapped == Unmapped::QuestionMark) {
        text += '?';
    }
}

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

// Reads one character and moves `at` behind it; behind a malformed sequence's first byte only.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    const int following = followingBytes(lead);
    if (following <= 0) {
        return following == 0 ? lead : kMalformed;
    }
    const auto count = static_cast<std::size_t>(following);
    if (text.size() - at < count) {
        return kMalformed;
    }
    char32_t character = lead & (0x3FU >> following);
    for (std::size_t i = 0; i < count; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0U) != 0x80) {
            return kMalformed;
        }
        character = (character << 6) | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    if (character < kSmallest[count]) {
        return kMalformed;
    }
    at += count;
    return character;
}

bool isSurrogate(char32_t unit, char32_t first) {
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
    for (std::size_t at = 0; at < text.size(); ++at) {
        // Both halves of a pair are one character, and none of those is in the code page.
        const bool pair = isSurrogate(text[at], 0xD800) && at + 1 < text.size() && isSurrogate(text[at + 1], 0xDC00);
        if (pair) {
            ++at;
        }
        appendByte(bytes, text[at], unmapped);
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

std::string utf8ToCodePage(std::string_view text, Unmapped unmapped) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        appendByte(bytes, nextCharacter(text, at), unmapped);
    }
    return bytes;
}

std::string codePageToUtf8(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size() * 2);
    for (const char byte : text) {
        const char32_t character = characterOfByte(static_cast<unsigned char>(byte));
        if (character < 0x80) {
            utf8 += static_cast<char>(character);
            continue;
        }
        if (character < 0x800) {
            utf8 += static_cast<char>(0xC0U | (character >> 6));
        } else {
            utf8 += static_cast<char>(0xE0U | (character >> 12));
            utf8 += static_cast<char>(0x80U | ((character >> 6) & 0x3FU));
        }
        utf8 += static_cast<char>(0x80U | (character & 0x3FU));
    }
    return utf8;
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
