// A settings file: one KEY=value a line, UTF-8, with comments. Only lines whose record changed are ever rewritten.
// Lines end with LF, CR LF or CR, also mixed.
//
// A backslash begins an escape: \\ \n \r \t, \xHH for the character of that number in code page 1252, and in a key
// \= and \# for these two characters. A character 0 cannot be held.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// One line of English that names the file, and the line where there is one.
struct FileError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Both texts are code page 1252.
struct Setting {
    std::string key;
    std::string value;
    bool operator==(const Setting&) const = default;
};

constexpr size_t kMaxKeyLength = 79;

class SettingsFile {
public:
    // Parses a file's bytes; `fileName` is for messages only. Throws a FileError for the first bad line.
    SettingsFile(std::string fileName, std::string_view bytes);

    const std::vector<Setting>& Settings() const { return m_settings; }

    // Makes the file hold these settings in this order. The n-th setting stays on the line of the n-th record, so
    // lines of records that are the same, comments and blank lines keep every byte; further settings go to the end.
    void SetSettings(const std::vector<Setting>& settings);

    // The whole file, UTF-8.
    std::string Bytes() const;

private:
    struct Line {
        std::string text;    // without its ending
        std::string ending;  // "\n", "\r\n", "\r", or empty for a last line without
        bool isRecord = false;
    };

    void ParseLine(Line& line, size_t number);
    void AppendLine(const Setting& setting);

    std::string m_strFileName;
    std::vector<Line> m_lines;
    std::vector<Setting> m_settings;
};

// A value as it is written into a settings file, UTF-8.
std::string EscapeValue(const std::string& value);

}  // namespace host
