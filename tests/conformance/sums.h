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

class ExpectedSums {
public:
    // Reads a file of sums. False when there is none.
    bool read(const char* file);
    // Prints which lines of the section are not as expected; true when all are.
    bool check(const TracedSection& section);
    // The sections that no check asked for.
    std::vector<std::string> unchecked() const;

private:
    // By the section's name; two where the systems may differ, the native one first.
    std::multimap<std::string, std::string> sums_;
};
