// What is kept of a trace: one line a section, "HASH NAME". The hash is FNV-1a of 64 bits over the whole section.
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
// Takes the section's sums out. When none of them fits, prints the section and returns false.
bool isExpected(const TracedSection& section, Sums& sums);
