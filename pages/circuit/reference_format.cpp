// The format of cross-references.
#include "pages/circuit/reference_format.h"

#include <algorithm>

#include "core/letters.h"

namespace {

constexpr char kMark = '$';

}  // namespace

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
        if (IsLetter(shown[i])) {
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
