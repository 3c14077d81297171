// Conversion between UTF-8 (files, terminals) and code page 1252 (the store and the controls).
#pragma once

#include <string>
#include <string_view>

namespace automation {

// Converts UTF-8 to code page 1252. Returns false for malformed UTF-8 and for a character outside the code page;
// `problem` then says which, in English, and `bytes` is empty.
bool ConvertTo1252(std::string_view utf8, std::string& bytes, std::string& problem);

// Converts code page 1252 to UTF-8. Every byte has a character; the five that the code page leaves open become the
// control characters of the same number, as the system does it.
std::string ConvertFrom1252(std::string_view bytes);

}  // namespace automation
