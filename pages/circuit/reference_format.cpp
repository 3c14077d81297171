// The format of cross-references.
#include "pages/circuit/reference_format.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr char kMark = '$';

// Letters of code page 1252 outside ASCII, but for the range from A with grave accent on.
constexpr char kScatteredLetters[] = "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA";

}  // namespace

bool IsFormatLetter(char character) {
    if ((character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z')) {
        return true;
    }
    const auto code = static_cast<unsigned char>(character);
    constexpr unsigned char kMultiplied = 0xD7;
    constexpr unsigned char kDivided = 0xF7;
    return (code >= 0xC0 && code != kMultiplied && code != kDivided) ||
           (code >= 0x80 && std::strchr(kScatteredLetters, character) != nullptr);
}

CString ShownFormat(const CString& stored) {
    CString shown;
    for (int i = 0; i < stored.GetLength(); ++i) {
        if (stored[i] != kMark) {
            shown += stored[i];
        }
    }
    return shown;
}

CString StoredFormat(const CString& shown) {
    CString stored;
    for (int i = 0; i < shown.GetLength(); ++i) {
        if (IsFormatLetter(shown[i])) {
            stored += kMark;
        }
        stored += shown[i];
    }
    return stored;
}

CString WithFormatChar(const CString& format, int position, char character) {
    if (position >= format.GetLength()) {
        return format + character;
    }
    return format.Left(position) + character + format.Mid(position + 1);
}

CString WithFormatBlank(const CString& format, int position) {
    const CString room = WithoutFormatChar(format, kShownFormatLength - 1);
    const int at = std::min(position, room.GetLength());
    return room.Left(at) + ' ' + room.Mid(at);
}

CString WithoutFormatChar(const CString& format, int position) {
    return position < format.GetLength() ? format.Left(position) + format.Mid(position + 1) : format;
}
