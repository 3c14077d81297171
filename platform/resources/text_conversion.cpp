// The conversions of the window API. Characters are never fitted to similar ones of the code page.
#include "platform/resources/code_page.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace platform {
namespace {

constexpr UINT kCodePage1252 = 1252;
constexpr DWORD kErrorInvalidParameter = 87;
constexpr DWORD kErrorInvalidFlags = 1004;
constexpr DWORD kErrorNoUnicodeTranslation = 1113;

int fail(DWORD error) {
    SetLastError(error);
    return 0;
}

// What both functions refuse alike, 0 for nothing.
DWORD errorOf(UINT codePage, DWORD flags, DWORD knownFlags, const void* text, int length, const void* to, int room) {
    const bool known = codePage == CP_UTF8 || codePage == kCodePage1252;
    if (!known || text == nullptr || length == 0 || room < 0 || (room > 0 && to == nullptr)) {
        return kErrorInvalidParameter;
    }
    return (flags & ~knownFlags) != 0 ? kErrorInvalidFlags : DWORD{ERROR_SUCCESS};
}

// A negative length stands for a text up to and with its final null.
template <class Unit>
std::basic_string_view<Unit> viewOf(const Unit* text, int length) {
    return {text, length < 0 ? std::char_traits<Unit>::length(text) + 1 : static_cast<std::size_t>(length)};
}

template <class Unit>
int handOver(const std::basic_string<Unit>& converted, Unit* to, int room) {
    const int length = static_cast<int>(converted.size());
    if (room == 0) {
        return length;
    }
    if (length > room) {
        return fail(ERROR_INSUFFICIENT_BUFFER);
    }
    std::copy(converted.begin(), converted.end(), to);
    return length;
}

}  // namespace
}  // namespace platform

using namespace platform;

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR units, int room) {
    if (const DWORD error = errorOf(codePage, flags, MB_ERR_INVALID_CHARS, text, length, units, room)) {
        return fail(error);
    }
    const std::string_view bytes = viewOf(text, length);
    std::u16string converted;
    if (codePage != CP_UTF8) {
        converted = codePageToUtf16(bytes);
    } else if (!utf8ToUtf16(bytes, converted) && (flags & MB_ERR_INVALID_CHARS) != 0) {
        return fail(kErrorNoUnicodeTranslation);
    }
    return handOver(converted, units, room);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, LPSTR bytes, int room, LPCSTR fallback,
                        BOOL* usedFallback) {
    if (const DWORD error = errorOf(codePage, flags, WC_NO_BEST_FIT_CHARS, text, length, bytes, room)) {
        return fail(error);
    }
    if (codePage == CP_UTF8 && (fallback != nullptr || usedFallback != nullptr)) {
        return fail(kErrorInvalidParameter);
    }
    const std::u16string_view units = viewOf(text, length);
    std::string converted;
    bool used = false;
    if (codePage == CP_UTF8) {
        converted = utf16ToUtf8(units);
    } else {
        for (const char16_t unit : units) {
            const int byte = byteOfCharacter(unit);
            used = used || byte < 0;
            converted += byte >= 0 ? static_cast<char>(byte) : fallback != nullptr ? *fallback : '?';
        }
    }
    if (usedFallback != nullptr) {
        *usedFallback = used ? TRUE : FALSE;
    }
    return handOver(converted, bytes, room);
}
