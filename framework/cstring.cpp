// The operations of a text: positions outside it are clamped, and only A to Z have an upper and a lower case.

#include "framework/cstring.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

#include "framework/module_state.h"

namespace {

constexpr char kWhiteSpace[] = " \t\n\v\f\r";

int ToIndex(size_t position) {
    return position == std::string::npos ? -1 : static_cast<int>(position);
}

char ToLowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

CString& CString::operator=(LPCSTR text) {
    // The text may be a part of this one.
    m_text = std::string(text != nullptr ? text : "");
    return *this;
}

CString& CString::operator=(char character) {
    m_text.assign(1, character);
    return *this;
}

char CString::GetAt(int index) const {
    return m_text.c_str()[std::clamp(index, 0, GetLength())];
}

CString& CString::operator+=(const CString& text) {
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(LPCSTR text) {
    m_text += text != nullptr ? text : "";
    return *this;
}

CString& CString::operator+=(char character) {
    m_text += character;
    return *this;
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    return Mid(GetLength() - std::clamp(count, 0, GetLength()));
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    const int start = std::clamp(first, 0, GetLength());
    const int length = std::clamp(count, 0, GetLength() - start);
    return {m_text.c_str() + start, length};
}

int CString::Find(char character, int start) const {
    return ToIndex(m_text.find(character, static_cast<size_t>(std::max(start, 0))));
}

int CString::Find(LPCSTR text, int start) const {
    return ToIndex(m_text.find(text, static_cast<size_t>(std::max(start, 0))));
}

int CString::FindOneOf(LPCSTR characters) const {
    return ToIndex(m_text.find_first_of(characters));
}

int CString::Insert(int index, char character) {
    m_text.insert(static_cast<size_t>(std::clamp(index, 0, GetLength())), 1, character);
    return GetLength();
}

int CString::Insert(int index, LPCSTR text) {
    m_text.insert(static_cast<size_t>(std::clamp(index, 0, GetLength())), text != nullptr ? text : "");
    return GetLength();
}

int CString::Replace(char from, char to) {
    int replaced = 0;
    for (char& character : m_text) {
        if (character == from) {
            character = to;
            ++replaced;
        }
    }
    return replaced;
}

CString& CString::TrimLeft() {
    m_text.erase(0, m_text.find_first_not_of(kWhiteSpace));
    return *this;
}

CString& CString::TrimRight() {
    m_text.erase(m_text.find_last_not_of(kWhiteSpace) + 1);
    return *this;
}

CString& CString::Trim() {
    return TrimRight().TrimLeft();
}

int CString::Compare(LPCSTR text) const {
    return std::strcmp(m_text.c_str(), text != nullptr ? text : "");
}

int CString::CompareNoCase(LPCSTR text) const {
    std::string left = m_text;
    std::string right = text != nullptr ? text : "";
    std::transform(left.begin(), left.end(), left.begin(), ToLowerAscii);
    std::transform(right.begin(), right.end(), right.begin(), ToLowerAscii);
    return left.compare(right);
}

void CString::Format(LPCSTR format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = std::max(std::vsnprintf(nullptr, 0, format, arguments), 0);
    va_end(arguments);
    // Formatted apart, since an argument may be this text.
    std::string formatted(static_cast<size_t>(length), '\0');
    va_start(arguments, format);
    std::vsnprintf(formatted.data(), formatted.size() + 1, format, arguments);
    va_end(arguments);
    m_text = std::move(formatted);
}

BOOL CString::LoadString(UINT id) {
    int length = 0;
    // The system cuts a text that does not fit, so the buffer grows until it is longer than the text.
    for (size_t size = 256;; size *= 2) {
        m_text.assign(size, '\0');
        length = ::LoadStringA(AfxGetResourceHandle(), id, m_text.data(), static_cast<int>(size));
        if (static_cast<size_t>(std::max(length, 0)) + 1 < size) {
            break;
        }
    }
    m_text.resize(static_cast<size_t>(std::max(length, 0)));
    return length > 0;
}

LPSTR CString::GetBuffer(int minLength) {
    m_text.resize(std::max(m_text.size(), static_cast<size_t>(std::max(minLength, 0))));
    return m_text.data();
}

void CString::ReleaseBuffer(int newLength) {
    m_text.resize(newLength < 0 ? std::strlen(m_text.c_str()) : static_cast<size_t>(newLength));
}

CString operator+(const CString& left, const CString& right) {
    CString result(left);
    result += right;
    return result;
}

CString operator+(const CString& left, LPCSTR right) {
    return left + CString(right);
}

CString operator+(LPCSTR left, const CString& right) {
    return CString(left) + right;
}

CString operator+(const CString& left, char right) {
    return left + CString(right);
}

CString operator+(char left, const CString& right) {
    return CString(left) + right;
}

void AfxFormatString1(CString& result, LPCSTR pattern, LPCSTR first) {
    AfxFormatString2(result, pattern, first, "");
}

void AfxFormatString2(CString& result, LPCSTR pattern, LPCSTR first, LPCSTR second) {
    CString formatted;
    for (LPCSTR at = pattern; *at != '\0'; ++at) {
        if (at[0] == '%' && (at[1] == '1' || at[1] == '2')) {
            ++at;
            formatted += *at == '1' ? first : second;
        } else {
            formatted += *at;
        }
    }
    result = formatted;
}
