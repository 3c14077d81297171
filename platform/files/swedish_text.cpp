// Order of names, sizes and times for a Swedish reader.
#include "platform/files/swedish_text.h"

#include "platform/resources/code_page.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace platform {

namespace {

// First bytes of a character's part of the key.
constexpr char kOtherCharacter = 1;
constexpr char kNumber = 2;
constexpr char kLetterA = 3;
constexpr char kRingA = kLetterA + 26;
constexpr char kUmlautA = kRingA + 1;
constexpr char kUmlautO = kRingA + 2;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

// The letters of the alphabet that stand for an upper-case letter outside A to Z; null for what is no letter.
const char* plainLetters(unsigned char upper) {
    struct Letter {
        std::string_view characters;
        const char* plain;
    };
    static constexpr std::array<Letter, 13> kLetters = {{{"\xC0\xC1\xC2\xC3", "A"},
                                                         {"\xC7", "C"},
                                                         {"\xD0", "D"},
                                                         {"\xC8\xC9\xCA\xCB", "E"},
                                                         {"\xCC\xCD\xCE\xCF", "I"},
                                                         {"\xD1", "N"},
                                                         {"\xD2\xD3\xD4\xD5", "O"},
                                                         {"\x8A", "S"},
                                                         {"\xDF", "SS"},
                                                         {"\xDE", "TH"},
                                                         {"\xD9\xDA\xDB", "U"},
                                                         {"\xDC\xDD\x9F", "Y"},
                                                         {"\x8E", "Z"}}};
    for (const Letter& letter : kLetters) {
        if (letter.characters.find(static_cast<char>(upper)) != std::string_view::npos) {
            return letter.plain;
        }
    }
    return nullptr;
}

void appendCharacter(std::string& key, char character) {
    const char upper = codePageUpper(character);
    const auto code = static_cast<unsigned char>(upper);
    if (upper >= 'A' && upper <= 'Z') {
        key += static_cast<char>(kLetterA + (upper - 'A'));
    } else if (code == 0xC5) {
        key += kRingA;
    } else if (code == 0xC4 || code == 0xC6) {
        key += kUmlautA;
    } else if (code == 0xD6 || code == 0xD8 || code == 0x8C) {
        key += kUmlautO;
    } else if (const char* plain = code < 0x80 ? nullptr : plainLetters(code)) {
        for (; *plain != '\0'; ++plain) {
            key += static_cast<char>(kLetterA + (*plain - 'A'));
        }
    } else {
        key += kOtherCharacter;
        key += upper == '.' ? '\0' : upper;  // A name comes before the same name with something added.
    }
}

// The number of digits comes first, so that a longer number is the greater one. Returns where the number ends.
std::size_t appendNumber(std::string& key, std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    const std::size_t first = std::min(text.find_first_not_of('0', at), end);
    key += kNumber;
    key += static_cast<char>(std::min<std::size_t>(end - first, 0xFF));
    key.append(text.substr(first, end - first));
    return end;
}

}  // namespace

std::string sortKey(std::string_view text) {
    std::string key;
    key.reserve(text.size() + 4);
    for (std::size_t at = 0; at < text.size();) {
        if (isDigit(text[at])) {
            at = appendNumber(key, text, at);
        } else {
            appendCharacter(key, text[at++]);
        }
    }
    return key;
}

std::string sizeText(std::uint64_t bytes) {
    constexpr std::array<const char*, 5> kUnits = {" kB", " MB", " GB", " TB", " PB"};
    constexpr double kStep = 1024;
    if (bytes < static_cast<std::uint64_t>(kStep)) {
        return std::to_string(bytes) + " byte";
    }
    double size = static_cast<double>(bytes) / kStep;
    std::size_t unit = 0;
    constexpr double kRoundsUp = 1023.5;
    while (size >= kRoundsUp && unit + 1 < kUnits.size()) {
        size /= kStep;
        ++unit;
    }
    std::array<char, 32> text{};
    constexpr double kLastWithDecimal = 99.95;
    std::snprintf(text.data(), text.size(), size < kLastWithDecimal ? "%.1f" : "%.0f", size);
    std::string written = text.data();
    std::replace(written.begin(), written.end(), '.', ',');
    return written + kUnits[unit];
}

std::string timeText(std::time_t time) {
    std::tm local{};
    if (localtime_r(&time, &local) == nullptr) {
        return {};
    }
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

}  // namespace platform
