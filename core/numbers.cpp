// Numbers in settings and fields.
#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>

static constexpr char kBlanks[] = " \t\n\v\f\r";

double LeadingNumber(LPCSTR text) {
    text += std::strspn(text, kBlanks);
    if (*text == '+' && text[1] != '-') {
        ++text;  // The conversion below takes a minus but no plus.
    }
    if (std::strchr("0123456789.", text[*text == '-' ? 1 : 0]) == nullptr) {
        return 0.0;  // The conversion below takes names of numbers too.
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text, text + std::strlen(text), number);
    if (error != std::errc::result_out_of_range) {
        return number;
    }
    // Too large or too small to be held; a digit before the point, zeros in front aside, and the exponent tell which.
    const bool isNegative = *text == '-';
    LPCSTR digits = text + (isNegative ? 1 : 0);
    const char first = digits[std::strspn(digits, "0")];
    const LPCSTR exponent = digits + std::strspn(digits, "0123456789.");
    const bool isSmall = first < '1' || (*exponent != '\0' && exponent[1] == '-');
    return isSmall ? 0.0 : isNegative ? -HUGE_VAL : HUGE_VAL;
}

int LeadingInteger(LPCSTR text) {
    text += std::strspn(text, kBlanks);
    const bool isNegative = *text == '-';
    if (*text == '+' || *text == '-') {
        ++text;
    }
    long long number = 0;
    for (; *text >= '0' && *text <= '9' && number <= INT_MAX; ++text) {
        number = number * 10 + (*text - '0');
    }
    const int magnitude = static_cast<int>(std::min<long long>(number, INT_MAX));
    return isNegative ? -magnitude : magnitude;
}

CString FixedText(double number, int decimals) {
    char text[400] = {};  // The largest number has 309 digits before the point.
    std::to_chars(text, text + sizeof text - 1, number, std::chars_format::fixed, decimals);
    return text;
}
