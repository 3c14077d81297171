// Writes pictures as PNG, small enough for repositories and quick enough for every step of a scenario.
// Deliberately missing: alpha, interlacing, and a search for distant repetitions.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace automation {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;  // 0x00RRGGBB, rows from the top
};

// The picture as the bytes of a PNG file: with a palette for up to 256 colours, else as 24-bit colour.
std::string EncodePng(const Picture& picture);

}  // namespace automation
