// Settings files, parsed and printed. Reading and writing the bytes is the system's part.

#include "host/settings_file.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>

#include "automation/codepage.h"

namespace host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kShortEscapes = "\\nrt=#";
constexpr std::string_view kShortMeanings = "\\\n\r\t=#";

// What is wrong with a line; the caller adds file and line.
struct LineError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

char TakeHexEscape(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    if (digits.size() != 2 || std::from_chars(digits.data(), end, value, 16).ptr != end) {
        throw LineError("\\x must be followed by two hexadecimal digits");
    }
    if (value == 0) {
        throw LineError("a settings file cannot hold the character 0");
    }
    return static_cast<char>(value);
}

std::string Unescape(std::string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const char kind = ++i < text.size() ? text[i] : '\0';
        const size_t known = kShortEscapes.find(kind);
        if (kind == 'x') {
            result += TakeHexEscape(text.substr(i + 1, 2));
            i += 2;
        } else if (known != std::string_view::npos) {
            result += kShortMeanings[known];
        } else {
            throw LineError("unknown escape (known are \\\\ \\n \\r \\t \\xHH \\= \\#)");
        }
    }
    return result;
}

std::string Decode(std::string_view utf8) {
    std::string bytes;
    std::string problem;
    if (!automation::ConvertTo1252(utf8, bytes, problem)) {
        throw LineError(problem);
    }
    return Unescape(bytes);
}

bool IsControl(unsigned char byte) {
    constexpr std::string_view kUnassigned = "\x81\x8D\x8F\x90\x9D";
    return byte < 0x20 || byte == 0x7F || kUnassigned.find(static_cast<char>(byte)) != std::string_view::npos;
}

// `alsoEscaped` are characters that mean something else where the text will stand.
std::string Escape(const std::string& text, std::string_view alsoEscaped) {
    std::string result;
    for (const char c : text) {
        const size_t known = kShortMeanings.find(c);
        const bool isPlain = (c == '=' || c == '#') && alsoEscaped.find(c) == std::string_view::npos;
        if (known != std::string_view::npos && !isPlain) {
            result += {'\\', kShortEscapes[known]};
        } else if (IsControl(static_cast<unsigned char>(c))) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(c)));
            result += escape.data();
        } else {
            result += automation::ConvertFrom1252({&c, 1});
        }
    }
    return result;
}

std::string EscapeKey(const std::string& key) {
    // Only in front does the number sign begin a comment.
    return Escape(key.substr(0, 1), "=#") + Escape(key.substr(std::min<size_t>(1, key.size())), "=");
}

// The position of the first equals sign that no backslash precedes.
size_t FindEquals(std::string_view text) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '=') {
            return i;
        }
    }
    return std::string_view::npos;
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

SettingsFile::SettingsFile(std::string fileName, std::string_view bytes) : m_strFileName(std::move(fileName)) {
    while (!bytes.empty()) {
        const size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const std::string_view ending = bytes.substr(end, bytes.substr(end).starts_with("\r\n") ? 2 : 1);
        Line line{std::string(bytes.substr(0, end)), std::string(ending), false};
        bytes.remove_prefix(end + ending.size());
        const size_t number = m_lines.size() + 1;
        try {
            ParseLine(line, number);
        } catch (const LineError& error) {
            throw FileError(m_strFileName + ":" + std::to_string(number) + ": " + error.what());
        }
        m_lines.push_back(std::move(line));
    }
}

void SettingsFile::ParseLine(Line& line, size_t number) {
    std::string_view text = line.text;
    if (number == 1 && text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    if (text.find('\0') != std::string_view::npos) {
        throw LineError("a settings file cannot hold the character 0");
    }
    if (IsBlank(text) || text.starts_with('#')) {
        return;
    }
    const size_t equals = FindEquals(text);
    if (equals == std::string_view::npos) {
        throw LineError("expected KEY=value");
    }
    Setting setting{Decode(text.substr(0, equals)), Decode(text.substr(equals + 1))};
    if (setting.key.empty()) {
        throw LineError("the key is empty");
    }
    if (setting.key.size() > kMaxKeyLength) {
        throw LineError("the key is longer than " + std::to_string(kMaxKeyLength) + " characters");
    }
    line.isRecord = true;
    m_settings.push_back(std::move(setting));
}

void SettingsFile::SetSettings(const std::vector<Setting>& settings) {
    size_t index = 0;
    std::erase_if(m_lines, [&](Line& line) {
        if (!line.isRecord) {
            return false;
        }
        if (index == settings.size()) {
            return true;
        }
        const Setting& old = m_settings[index];
        const Setting& now = settings[index++];
        // The key stays as its author wrote it.
        if (old.key != now.key) {
            line.text = EscapeKey(now.key) + "=" + EscapeValue(now.value);
        } else if (old.value != now.value) {
            line.text = line.text.substr(0, FindEquals(line.text) + 1) + EscapeValue(now.value);
        }
        return false;
    });
    for (; index < settings.size(); ++index) {
        AppendLine(settings[index]);
    }
    m_settings = settings;
}

void SettingsFile::AppendLine(const Setting& setting) {
    std::string ending = "\n";
    if (!m_lines.empty()) {
        // A file without an ending on its last line has none afterwards either; that line ends as the one before it.
        ending = m_lines.back().ending;
        if (ending.empty()) {
            m_lines.back().ending = m_lines.size() > 1 ? m_lines[m_lines.size() - 2].ending : "\n";
        }
    }
    m_lines.push_back({EscapeKey(setting.key) + "=" + EscapeValue(setting.value), ending, true});
}

std::string SettingsFile::Bytes() const {
    std::string bytes;
    for (const Line& line : m_lines) {
        bytes += line.text + line.ending;
    }
    return bytes;
}

std::string EscapeValue(const std::string& value) {
    return Escape(value, "");
}

}  // namespace host
