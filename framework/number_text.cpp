// Numbers to text and back, by conversions that no locale can change.

#include "framework/number_text.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kFloatCharacters = "0123456789+-.eE";

std::string_view WithoutBlanks(LPCSTR text) {
    std::string_view number(text);
    number.remove_prefix(std::min(number.find_first_not_of(kBlanks), number.size()));
    return number.substr(0, number.find_last_not_of(kBlanks) + 1);
}

template <typename Number>
BOOL Parse(std::string_view text, Number& value) {
    // The conversion below takes a minus but no plus.
    std::string_view digits = text;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') {
        digits.remove_prefix(1);
    }
    Number number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    if (!whole || (number == 0 && text[0] != '0')) {
        return FALSE;
    }
    value = number;
    return TRUE;
}

}  // namespace

CString AfxNumberText(double value, int digits) {
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    return {buffer, error == std::errc() ? static_cast<int>(end - buffer) : 0};
}

BOOL AfxParseNumber(LPCSTR text, double& value) {
    const std::string_view number = WithoutBlanks(text);
    // Keeps out the names of infinity and of no number.
    return number.find_first_not_of(kFloatCharacters) == std::string_view::npos && Parse(number, value);
}

BOOL AfxParseNumber(LPCSTR text, long& value) {
    return Parse(WithoutBlanks(text), value);
}

BOOL AfxParseNumber(LPCSTR text, int& value) {
    return Parse(WithoutBlanks(text), value);
}

BOOL AfxParseNumber(LPCSTR text, UINT& value) {
    return Parse(WithoutBlanks(text), value);
}
