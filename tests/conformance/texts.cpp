// Conversion of texts between code page 1252, UTF-8 and UTF-16, and how it refuses.
#include "tests/conformance/trace.h"

#include <array>
#include <string>

namespace {

constexpr UINT kCodePage1252 = 1252;
constexpr UINT kNoCodePage = 65535;
constexpr DWORD kNoFlag = 0x40000000;
constexpr int kRoom = 16;

// In hexadecimal; the units are of one width on both systems.
template <typename Unit>
std::string written(const std::array<Unit, kRoom>& text, int length) {
    std::string result;
    for (int i = 0; i < length; ++i) {
        std::array<char, 8> unit{};
        std::snprintf(unit.data(), unit.size(), " %X",
                      static_cast<unsigned>(static_cast<std::make_unsigned_t<Unit>>(text[static_cast<size_t>(i)])));
        result += unit.data();
    }
    return result;
}

struct WideningStep {
    UINT codePage;
    DWORD flags;
    const char* bytes;
    int length;
    int room = kRoom;
};

constexpr WideningStep kWideningSteps[] = {
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a\xC3\xA5\xE2\x82\xAC\xF0\x9F\x98\x80", -1},
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a\xC3\xA5z", 3, 2},
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a\xC3\xA5z", 4, 2},
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a\xC3\xA5z", -1, 0},
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a", 0},
    {CP_UTF8, MB_ERR_INVALID_CHARS, nullptr, 1},
    {CP_UTF8, MB_ERR_INVALID_CHARS, "a", 1, -1},
    {CP_UTF8, kNoFlag, "a", 1},
    {kNoCodePage, 0, "a", 1},
    {kCodePage1252, 0, "\x80\x8A\x9F\xE5", 4},
    {kCodePage1252, MB_ERR_INVALID_CHARS, "\x81\x8D\x8F\x90\x9D", 5},
    {kCodePage1252, 0, "abc", 3, 2},
};

// Cut off, overlong, half a pair, beyond the last character, without a leading byte.
constexpr const char* kMalformed[] = {
    "a\xC3",         "\xE2\x82z",         "\xF0\x9F\x98z",    "\xC0\xAFz", "\xE0\x80\xAFz", "\xF0\x8F\x80\x80",
    "\xED\xA0\x80z", "\xF4\x90\x80\x80z", "\xF5\x80\x80\x80", "a\x80\xFF"};

struct NarrowingStep {
    UINT codePage;
    DWORD flags;
    std::array<WCHAR, 6> units;
    int length;
    int room = kRoom;
    const char* fallback = nullptr;
};

constexpr NarrowingStep kNarrowingSteps[] = {
    {CP_UTF8, 0, {u'a', 0xE5, 0x20AC, 0xD83D, 0xDE00}, -1},
    {CP_UTF8, 0, {0xD83D, u'a', 0xDE00, 0xD83D}, 4},
    {CP_UTF8, 0, {u'a', 0xE5, u'z'}, 3, 3},
    {CP_UTF8, 0, {u'a', 0xE5}, -1, 0},
    {CP_UTF8, 0, {u'a'}, 0},
    {CP_UTF8, kNoFlag, {u'a'}, 1},
    {kNoCodePage, 0, {u'a'}, 1},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {0x20AC, 0x160, 0x178, 0xE5, u'?'}, 5},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {0x81, 0x8D, 0x8F, 0x90, 0x9D}, 5},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {0x80, 0x141, 0x2192, 0xD83D, 0xDE00, 0xDE00}, 6},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {u'a', 0x2192}, 2, kRoom, "!"},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {u'a', 0x2192}, -1, 0},
    {kCodePage1252, WC_NO_BEST_FIT_CHARS, {u'a', u'b', u'c'}, 3, 2},
};

void traceWidening(Trace& trace, const WideningStep& step) {
    std::array<WCHAR, kRoom> units{};
    SetLastError(0);
    const int result = MultiByteToWideChar(step.codePage, step.flags, step.bytes, step.length, units.data(), step.room);
    trace.line("%u: %d error %u%s", step.codePage, result, static_cast<unsigned>(GetLastError()),
               written(units, step.room == 0 ? 0 : result).c_str());
}

void traceNarrowing(Trace& trace, const NarrowingStep& step) {
    std::array<char, kRoom> bytes{};
    BOOL used = -1;
    SetLastError(0);
    // Wine answers for UTF-8 what is documented as refused.
    const int result = WideCharToMultiByte(step.codePage, step.flags, step.units.data(), step.length, bytes.data(),
                                           step.room, step.fallback, step.codePage == CP_UTF8 ? nullptr : &used);
    trace.line("%u: %d error %u used %d%s", step.codePage, result, static_cast<unsigned>(GetLastError()), used,
               written(bytes, step.room == 0 ? 0 : result).c_str());
}

}  // namespace

void traceTexts(Trace& trace) {
    trace.section("widening texts");
    for (const WideningStep& step : kWideningSteps) {
        traceWidening(trace, step);
    }
    for (const char* malformed : kMalformed) {
        traceWidening(trace, {CP_UTF8, MB_ERR_INVALID_CHARS, malformed, -1});
        traceWidening(trace, {CP_UTF8, 0, malformed, -1});
    }
    trace.section("comparing texts");
    constexpr const char* kPairs[][2] = {{"\xC5gr\xC4n", "\xE5GR\xE4N"}, {"b", "A"}, {"a", "ab"}, {"\xD7", "\xF7"}};
    for (const auto& [one, other] : kPairs) {
        const int order = lstrcmpiA(one, other);
        trace.line("%d", (order > 0) - (order < 0));
    }
    trace.section("narrowing texts");
    for (const NarrowingStep& step : kNarrowingSteps) {
        traceNarrowing(trace, step);
    }
}
