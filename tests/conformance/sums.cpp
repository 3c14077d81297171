// Hashes, marks, and the place where a section departs from them.
#include "tests/conformance/sums.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>

namespace {

constexpr std::uint64_t kEmptyHash = 0xCBF29CE484222325;
constexpr std::uint64_t kHashPrime = 0x100000001B3;
constexpr std::size_t kContext = 3;  // Unchanged lines that are printed before the changed ones,
constexpr std::size_t kMost = 40;    // and how many lines are printed of a section.

std::uint64_t hashOf(const std::string& text, std::uint64_t hash = kEmptyHash) {
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * kHashPrime;
    }
    return hash;
}

std::string marksOf(const TracedSection& section) {
    constexpr char kMarks[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string marks;
    for (const std::string& line : section.lines) {
        const std::uint64_t hash = hashOf(line);
        marks += kMarks[(hash ^ (hash >> 32)) % 64];
    }
    return marks;
}

// Marks are alike before and after the changed lines.
void printChange(const TracedSection& section, const std::string& expected) {
    const std::string marks = marksOf(section);
    const std::size_t shorter = std::min(marks.size(), expected.size());
    const auto same =
        std::mismatch(marks.begin(), marks.begin() + static_cast<std::ptrdiff_t>(shorter), expected.begin());
    const auto before = static_cast<std::size_t>(same.first - marks.begin());
    std::size_t after = 0;
    while (after < shorter - before && marks.end()[-1 - static_cast<std::ptrdiff_t>(after)] ==
                                           expected.end()[-1 - static_cast<std::ptrdiff_t>(after)]) {
        ++after;
    }
    const std::size_t end = marks.size() - after;
    std::printf("[%s] %zu lines from line %zu on, where %zu were expected:\n", section.name.c_str(), end - before,
                before + 1, expected.size() - after - before);
    const std::size_t first = before - std::min(before, kContext);
    for (std::size_t i = first; i < std::min(end, first + kMost); ++i) {
        std::printf("%c %4zu %s\n", i < before ? ' ' : '>', i + 1, section.lines[i].c_str());
    }
}

}  // namespace

std::string sumOf(const TracedSection& section) {
    std::uint64_t hash = kEmptyHash;
    for (const std::string& line : section.lines) {
        hash = hashOf("\n", hashOf(line, hash));
    }
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", static_cast<unsigned>(hash >> 32),
                  static_cast<unsigned>(hash & 0xFFFFFFFF));
    return std::string(digits.data()) + " " + marksOf(section) + " " + section.name;
}

Sums readSums(const char* file) {
    Sums sums;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        sums.emplace(line.substr(line.find(' ', line.find(' ') + 1) + 1), line);
    }
    return sums;
}

bool isExpected(const TracedSection& section, Sums& sums) {
    const auto [first, last] = sums.equal_range(section.name);
    const std::string sum = sumOf(section);
    const bool found = std::any_of(first, last, [&sum](const auto& entry) { return entry.second == sum; });
    const std::string expected = first != last ? first->second : "  ";
    sums.erase(first, last);
    if (!found) {
        const std::size_t marksAt = expected.find(' ') + 1;
        printChange(section, expected.substr(marksAt, expected.find(' ', marksAt) - marksAt));
    }
    return found;
}
