// Text conversion between code page 1252, in which all text of the window API stands, and Unicode.
// The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D) are the control characters of the same number,
// as on the system, so that every byte converts there and back.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// What becomes of a character outside the code page.
enum class Unmapped { Drop, QuestionMark };

// The character of a byte.
char32_t characterOfByte(unsigned char byte);
// The byte of a character, or -1 when the code page has none.
int byteOfCharacter(char32_t character);

std::string utf16ToCodePage(std::u16string_view text, Unmapped unmapped);
std::u16string codePageToUtf16(std::string_view text);
// Malformed sequences count as characters outside the code page, one for each byte that begins none.
std::string utf8ToCodePage(std::string_view text, Unmapped unmapped);
std::string codePageToUtf8(std::string_view text);

// Upper case of a byte; bytes that are no lower-case letter stay, so does the sharp s, which has none.
char codePageUpper(char byte);

}  // namespace platform
