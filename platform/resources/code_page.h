// Text conversion between code page 1252, in which all text of the window API stands, and Unicode.
// The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D) are the control characters of the same number,
// as on the system, so that every byte converts there and back.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// The character of a byte.
char32_t characterOfByte(unsigned char byte);
// The byte of a character, or -1 when the code page has none.
int byteOfCharacter(char32_t character);

// What becomes of a unit of UTF-16 that the code page has no byte for. A character of two units is two of them.
enum class Unmapped { Drop, QuestionMark };

std::string utf16ToCodePage(std::u16string_view text, Unmapped unmapped);
std::u16string codePageToUtf16(std::string_view text);
// False when the text is not well-formed throughout; U+FFFD stands for what is not.
bool utf8ToUtf16(std::string_view text, std::u16string& units);
// U+FFFD stands for half a pair.
std::string utf16ToUtf8(std::u16string_view text);
std::string utf8ToCodePage(std::string_view text, Unmapped unmapped);
std::string codePageToUtf8(std::string_view text);

// Upper case of a byte; bytes that are no lower-case letter stay, so does the sharp s, which has none.
char codePageUpper(char byte);

}  // namespace platform
