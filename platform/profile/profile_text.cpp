// Reading and changing the text of a profile file.
// Deliberately missing: comments. A line that begins with a semicolon is a key that nobody asks for.
#include "platform/profile/profile_text.h"

#include <algorithm>
#include <charconv>

namespace platform {
namespace {

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// What a program gets to see of a name or a value.
std::string_view untilNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isNamed(std::string_view name, std::string_view wanted) {
    return name.size() == wanted.size() &&
           std::equal(name.begin(), name.end(), wanted.begin(), [](char a, char b) { return lower(a) == lower(b); });
}

// The name in a section's heading, which ends with the last bracket of its line; nothing in any other line.
std::optional<std::string_view> headingOf(std::string_view line) {
    const size_t bracket = line.starts_with('[') ? line.rfind(']') : std::string_view::npos;
    if (bracket == std::string_view::npos) {
        return std::nullopt;
    }
    return untilNul(trimmed(line.substr(1, bracket - 1)));
}

}  // namespace

ProfileEntry findProfileEntry(std::string_view text, std::string_view section, std::string_view key) {
    section = trimmed(section);
    key = trimmed(key);
    ProfileEntry entry;
    entry.hasSection = section.empty();
    for (size_t begin = 0, end = 0; begin < text.size(); begin = end) {
        const auto* lineEnd = std::find_if(text.begin() + begin, text.end(), isLineEnd);
        end = static_cast<size_t>(lineEnd - text.begin()) + (lineEnd != text.end() ? 1 : 0);
        const std::string_view line = trimmed(text.substr(begin, end - begin));
        if (const auto heading = headingOf(line)) {
            if (entry.hasSection) {
                break;
            }
            entry.hasSection = isNamed(*heading, section);
            entry.sectionEnd = end;
            continue;
        }
        if (!entry.hasSection || line.empty()) {
            continue;
        }
        entry.sectionEnd = end;
        const size_t equals = line.find('=');
        if (isNamed(untilNul(trimmed(line.substr(0, equals))), key)) {
            entry.hasKey = true;
            entry.begin = begin;
            entry.end = end;
            if (equals != std::string_view::npos) {
                entry.value = untilNul(trimmed(line.substr(equals + 1)));
            }
            break;
        }
    }
    return entry;
}

std::string profileSections(std::string_view text) {
    std::string names;
    for (size_t begin = 0, end = 0; begin < text.size(); begin = end + 1) {
        end = static_cast<size_t>(std::find_if(text.begin() + begin, text.end(), isLineEnd) - text.begin());
        const auto heading = headingOf(trimmed(text.substr(begin, end - begin)));
        if (heading && !heading->empty()) {
            names.append(*heading).push_back('\0');
        }
    }
    return names;
}

std::string withProfileEntry(std::string_view text, std::string_view section, std::string_view key,
                             std::optional<std::string_view> value) {
    const ProfileEntry entry = findProfileEntry(text, section, key);
    if (!value && !entry.hasKey) {
        return std::string(text);
    }
    std::string line;
    if (value) {
        line = std::string(trimmed(key)) + "=" + std::string(trimmed(*value)) + "\r\n";
    }
    size_t begin = entry.begin;
    size_t end = entry.end;
    if (!entry.hasKey) {
        begin = end = entry.hasSection ? entry.sectionEnd : text.size();
        line.insert(0, entry.hasSection ? "" : "[" + std::string(trimmed(section)) + "]\r\n");
        const bool isInLine = begin > 0 && !isLineEnd(text[begin - 1]);
        line.insert(0, isInLine ? "\r\n" : "");
    }
    return std::string(text.substr(0, begin)) + line + std::string(text.substr(end));
}

std::string_view withoutQuotes(std::string_view value) {
    const bool isQuoted = value.size() > 1 && (value.front() == '"' || value.front() == '\'');
    return isQuoted && value.back() == value.front() ? value.substr(1, value.size() - 2) : value;
}

int profileNumber(std::string_view value) {
    while (!value.empty() && static_cast<unsigned char>(value.front()) <= ' ') {
        value.remove_prefix(1);
    }
    const bool isNegative = value.starts_with('-');
    value.remove_prefix(isNegative || value.starts_with('+') ? 1 : 0);
    unsigned base = 10;
    for (const auto& [prefix, itsBase] : {std::pair{"0x", 16U}, std::pair{"0o", 8U}, std::pair{"0b", 2U}}) {
        if (value.starts_with(prefix)) {
            base = itsBase;
            value.remove_prefix(2);
            break;
        }
    }
    unsigned number = 0;
    for (const char c : value) {
        unsigned digit = 0;
        if (std::from_chars(&c, &c + 1, digit, static_cast<int>(base)).ec != std::errc()) {
            break;
        }
        number = number * base + digit;
    }
    return static_cast<int>(isNegative ? 0U - number : number);
}

}  // namespace platform
