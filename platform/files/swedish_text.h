// How a Swede expects file names to be ordered, and sizes and times to be written. Texts are code page 1252.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace platform {

// Bytes by whose plain comparison texts are ordered: letters of either case alike, å, ä and ö last, other accents
// ignored, numbers by their value, digits before letters and other characters before digits.
std::string sortKey(std::string_view text);

// "523 byte", "1,4 MB": 1024 bytes are a kB.
std::string sizeText(std::uint64_t bytes);
// "2024-05-13 14:07", local time.
std::string timeText(std::time_t time);

}  // namespace platform
