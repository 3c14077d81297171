// The settings of a file while a run edits them: read once, and saved on top of what the file holds by then.
#pragma once

#include <string>
#include <vector>

#include "host/settings_file.h"

namespace host {

// What one run did to the settings it was given, put on top of others. The n-th record of a key stands for the n-th
// record of that key; what the other settings lack goes to the end, and nothing is taken from them.
std::vector<Setting> MergeSettings(const std::vector<Setting>& before, const std::vector<Setting>& after,
                                   std::vector<Setting> others);

class Document {
public:
    // Reads the file. Throws a FileError.
    explicit Document(std::string fileName);

    // As this run knows them: what was read, and what it saved since.
    const std::vector<Setting>& Settings() const { return m_settings; }

    // Writes into the file what differs from Settings(), and nothing else: what someone else has changed meanwhile
    // stays, and the lines that are returned say so. Throws a FileError when the file is not written; its message says
    // in which other file the settings are, or lists the changes when no file could be written.
    std::string Save(const std::vector<Setting>& settings);

private:
    std::string MergeInto(const std::string& fileBytes, const std::vector<Setting>& settings) const;
    std::string SaveNow(const std::vector<Setting>& settings);
    std::string Rescue(const std::vector<Setting>& settings) const;

    std::string m_strFileName;
    std::string m_strBytes;  // the file as it was read or saved
    std::vector<Setting> m_settings;
};

// A line of English for each setting that differs; those added or changed, in their order.
std::string DescribeChanges(const std::vector<Setting>& before, const std::vector<Setting>& after);

}  // namespace host
