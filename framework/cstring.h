// CString: a text of single bytes in code page 1252, with the classic framework's operations.
// Deliberately missing: shared buffers and wide characters.
#pragma once

#include <string>

#include "framework/window_api.h"

class CString {
public:
    CString() = default;
    // A null pointer gives an empty text.
    CString(LPCSTR text) : m_text(text != nullptr ? text : "") {}
    CString(LPCSTR text, int length) : m_text(text, static_cast<size_t>(length)) {}
    explicit CString(char character, int count = 1) : m_text(static_cast<size_t>(count), character) {}

    CString& operator=(LPCSTR text);
    CString& operator=(char character);

    operator LPCSTR() const { return m_text.c_str(); }
    LPCSTR GetString() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    BOOL IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    // The character at an index from 0 to the length; at the length it is the terminating 0.
    char GetAt(int index) const;
    char operator[](int index) const { return GetAt(index); }

    CString& operator+=(const CString& text);
    CString& operator+=(LPCSTR text);
    CString& operator+=(char character);

    // Parts of the text; positions and counts outside it are clipped.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // The index of the first occurrence at or after start, -1 when there is none.
    int Find(char character, int start = 0) const;
    int Find(LPCSTR text, int start = 0) const;
    int FindOneOf(LPCSTR characters) const;

    // Inserts before an index, which is clipped to the text; returns the new length.
    int Insert(int index, char character);
    int Insert(int index, LPCSTR text);
    // Replaces every occurrence of one character; returns how many there were.
    int Replace(char from, char to);

    // White space is what the C locale takes for it, so a no-break space stays.
    CString& TrimLeft();
    CString& TrimRight();
    CString& Trim();

    // Byte order; the second folds the ASCII letters only.
    int Compare(LPCSTR text) const;
    int CompareNoCase(LPCSTR text) const;

    // Formats as printf does. CString arguments must be converted to LPCSTR by the caller.
    void Format(LPCSTR format, ...);

    // Loads a string of the current resource module; FALSE and an empty text when there is none.
    BOOL LoadString(UINT id);

    // A writable buffer of at least minLength characters and a terminating 0, which holds the text. Must be followed
    // by ReleaseBuffer, which takes the given length or, for -1, the length up to the first 0.
    LPSTR GetBuffer(int minLength = 0);
    void ReleaseBuffer(int newLength = -1);

private:
    std::string m_text;
};

CString operator+(const CString& left, const CString& right);
CString operator+(const CString& left, LPCSTR right);
CString operator+(LPCSTR left, const CString& right);
CString operator+(const CString& left, char right);
CString operator+(char left, const CString& right);

inline bool operator==(const CString& left, const CString& right) {
    return left.Compare(right) == 0;
}
inline bool operator==(const CString& left, LPCSTR right) {
    return left.Compare(right) == 0;
}
inline bool operator==(LPCSTR left, const CString& right) {
    return right.Compare(left) == 0;
}
inline bool operator!=(const CString& left, const CString& right) {
    return left.Compare(right) != 0;
}
inline bool operator!=(const CString& left, LPCSTR right) {
    return left.Compare(right) != 0;
}
inline bool operator!=(LPCSTR left, const CString& right) {
    return right.Compare(left) != 0;
}
inline bool operator<(const CString& left, const CString& right) {
    return left.Compare(right) < 0;
}
inline bool operator>(const CString& left, const CString& right) {
    return left.Compare(right) > 0;
}

// Replaces %1 (and %2) in a text by the given ones.
void AfxFormatString1(CString& result, LPCSTR pattern, LPCSTR first);
void AfxFormatString2(CString& result, LPCSTR pattern, LPCSTR first, LPCSTR second);
