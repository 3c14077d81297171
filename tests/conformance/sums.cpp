// Hashes, and the sections that depart from them.
#include "tests/conformance/sums.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>

std::string sumOf(const TracedSection& section) {
    constexpr std::uint64_t kEmptyHash = 0xCBF29CE484222325;
    constexpr std::uint64_t kHashPrime = 0x100000001B3;
    std::uint64_t hash = kEmptyHash;
    for (const std::string& line : section.lines) {
        for (const char character : line + "\n") {
            hash = (hash ^ static_cast<unsigned char>(character)) * kHashPrime;
        }
    }
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", static_cast<unsigned>(hash >> 32),
                  static_cast<unsigned>(hash & 0xFFFFFFFF));
    return std::string(digits.data()) + " " + section.name;
}

Sums readSums(const char* file) {
    Sums sums;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        sums.emplace(line.substr(line.find(' ') + 1), line);
    }
    return sums;
}

bool isExpected(const TracedSection& section, Sums& sums) {
    const auto [first, last] = sums.equal_range(section.name);
    const std::string sum = sumOf(section);
    const bool found = std::any_of(first, last, [&sum](const auto& entry) { return entry.second == sum; });
    sums.erase(first, last);
    if (!found) {
        std::printf("[%s] is not as it was:\n", section.name.c_str());
        for (const std::string& line : section.lines) {
            std::puts(line.c_str());
        }
    }
    return found;
}
