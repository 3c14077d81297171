// Numbers in settings and fields.
#include "core/numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>

double LeadingNumber(LPCSTR text) {
    text += std::strspn(text, " \t\n\v\f\r");
    if (*text == '+' && text[1] != '-') {
        ++text;  // The conversion below takes a minus but no plus.
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text, text + std::strlen(text), number);
    if (error != std::errc::result_out_of_range) {
        return number;
    }
    // Too large or too small to be held; a digit other than 0 before the point, and the exponent, tell which.
    const bool isNegative = *text == '-';
    LPCSTR digits = text + (isNegative ? 1 : 0);
    const char first = digits[std::strspn(digits, "0")];
    const LPCSTR exponent = digits + std::strspn(digits, "0123456789.");
    const bool isSmall = first < '1' || first > '9' || (*exponent != '\0' && exponent[1] == '-');
    return isSmall ? 0.0 : isNegative ? -HUGE_VAL : HUGE_VAL;
}

CString OneDecimal(double number) {
    char text[400] = {};  // The largest number has 309 digits before the point.
    std::to_chars(text, text + sizeof text - 1, number, std::chars_format::fixed, 1);
    return text;
}
