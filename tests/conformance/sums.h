// What is kept of a trace: one line a section, "HASH MARKS NAME". The hash (FNV-1a, 64 bits) covers the whole section;
// each mark is one character made of one line, so that a run alone can tell which lines are new.
#pragma once

#include <map>
#include <string>
#include <vector>

struct TracedSection {
    std::string name;
    std::vector<std::string> lines;
};

std::string sumOf(const TracedSection& section);

// The sums of a file, by the sections' names; two where the systems may differ, the native one first.
using Sums = std::multimap<std::string, std::string>;

Sums readSums(const char* file);
// Takes the section's sums out. When none of them fits, prints the lines that are not as expected and returns false.
bool isExpected(const TracedSection& section, Sums& sums);
