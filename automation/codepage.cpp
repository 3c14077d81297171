// Code page 1252 differs from the first 256 Unicode characters only in its bytes 0x80 to 0x9F.

#include "automation/codepage.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace automation {
namespace {

constexpr unsigned kFirstOwnByte = 0x80;

constexpr std::array<char32_t, 32> kOwnCharacters = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kMalformed = 0xFFFFFFFF;

// Reads one character and advances `position` behind it; kMalformed for anything that is not shortest-form UTF-8.
char32_t NextCharacter(std::string_view utf8, size_t& position) {
    const auto first = static_cast<unsigned char>(utf8[position++]);
    if (first < 0x80) {
        return first;
    }
    const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || utf8.size() - position < static_cast<size_t>(following)) {
        return kMalformed;
    }
    char32_t character = first & (0x3FU >> following);
    for (int i = 0; i < following; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[position++]);
        if ((byte & 0xC0) != 0x80) {
            return kMalformed;
        }
        character = character << 6 | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < kSmallest[static_cast<size_t>(following)] || surrogate || character > 0x10FFFF ? kMalformed
                                                                                                      : character;
}

void AppendUtf8(char32_t character, std::string& utf8) {
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
        return;
    }
    if (character < 0x800) {
        utf8 += static_cast<char>(0xC0 | character >> 6);
    } else {
        utf8 += static_cast<char>(0xE0 | character >> 12);
        utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    }
    utf8 += static_cast<char>(0x80 | (character & 0x3F));
}

}  // namespace

bool ConvertTo1252(std::string_view utf8, std::string& bytes, std::string& problem) {
    bytes.clear();
    for (size_t position = 0; position < utf8.size();) {
        const char32_t character = NextCharacter(utf8, position);
        if (character == kMalformed) {
            problem = "malformed UTF-8";
            return false;
        }
        const auto* own = std::find(kOwnCharacters.begin(), kOwnCharacters.end(), character);
        if (own != kOwnCharacters.end()) {
            bytes += static_cast<char>(kFirstOwnByte + static_cast<unsigned>(own - kOwnCharacters.begin()));
        } else if (character < kFirstOwnByte || (character >= 0xA0 && character <= 0xFF)) {
            bytes += static_cast<char>(character);
        } else {
            std::array<char, 64> text{};
            std::snprintf(text.data(), text.size(), "the character U+%04X is outside code page 1252",
                          static_cast<unsigned>(character));
            problem = text.data();
            return false;
        }
    }
    return true;
}

std::string ConvertFrom1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool own = byte >= kFirstOwnByte && byte < kFirstOwnByte + kOwnCharacters.size();
        AppendUtf8(own ? kOwnCharacters[byte - kFirstOwnByte] : byte, utf8);
    }
    return utf8;
}

}  // namespace automation
