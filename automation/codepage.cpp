// The conversions are the window API's; here is what they do not tell: which character is the one that fits nowhere.

#include "automation/codepage.h"

#include <windows.h>

#include <array>
#include <cstdio>

namespace automation {
namespace {

constexpr UINT kCodePage1252 = 1252;
constexpr int kMostUtf8BytesOfUnit = 3;

using WideText = std::basic_string<WCHAR>;

// Empty for a text that is malformed.
WideText Widen(UINT codePage, DWORD flags, std::string_view text) {
    WideText units(text.size(), WCHAR{});
    const int count = static_cast<int>(text.size());
    units.resize(static_cast<size_t>(MultiByteToWideChar(codePage, flags, text.data(), count, units.data(), count)));
    return units;
}

std::string Narrow(UINT codePage, DWORD flags, const WideText& units, BOOL* replaced) {
    const int count = static_cast<int>(units.size());
    std::string text(units.size() * kMostUtf8BytesOfUnit, '\0');
    text.resize(static_cast<size_t>(WideCharToMultiByte(codePage, flags, units.data(), count, text.data(),
                                                        static_cast<int>(text.size()), nullptr, replaced)));
    return text;
}

// The first character that the code page lacks, in a text that has one.
unsigned FirstOutside(const WideText& units) {
    for (size_t i = 0; i < units.size(); ++i) {
        BOOL replaced = FALSE;
        Narrow(kCodePage1252, WC_NO_BEST_FIT_CHARS, WideText(1, units[i]), &replaced);
        if (replaced) {
            const auto unit = static_cast<unsigned>(units[i]);
            const bool isPair = unit >= 0xD800 && unit < 0xDC00;
            return isPair ? 0x10000 + ((unit - 0xD800) << 10) + (static_cast<unsigned>(units[i + 1]) - 0xDC00) : unit;
        }
    }
    return 0;
}

}  // namespace

bool ConvertTo1252(std::string_view utf8, std::string& bytes, std::string& problem) {
    bytes.clear();
    const WideText units = Widen(CP_UTF8, MB_ERR_INVALID_CHARS, utf8);
    if (units.empty() && !utf8.empty()) {
        problem = "malformed UTF-8";
        return false;
    }
    BOOL replaced = FALSE;
    bytes = Narrow(kCodePage1252, WC_NO_BEST_FIT_CHARS, units, &replaced);
    if (!replaced) {
        return true;
    }
    bytes.clear();
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "the character U+%04X is outside code page 1252", FirstOutside(units));
    problem = text.data();
    return false;
}

std::string ConvertFrom1252(std::string_view bytes) {
    return Narrow(CP_UTF8, 0, Widen(kCodePage1252, 0, bytes), nullptr);
}

}  // namespace automation
