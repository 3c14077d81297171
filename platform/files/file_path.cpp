// Paths without a look at the disk.
#include "platform/files/file_path.h"

#include "platform/resources/code_page.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::string_view kSeparators = "/\\";

bool isSeparator(char character) {
    return kSeparators.find(character) != std::string_view::npos;
}

// Appends the parts of a path to a resolved one.
void appendParts(std::string& resolved, std::string_view path) {
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find_first_of(kSeparators, at), path.size());
        const std::string_view part = path.substr(at, end - at);
        if (part == "..") {
            resolved = parentFolder(resolved);
        } else if (!part.empty() && part != ".") {
            resolved = pathInFolder(resolved, part);
        }
        at = end + 1;
    }
}

}  // namespace

std::size_t fileNameOffset(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    return last == std::string_view::npos ? 0 : last + 1;
}

std::size_t fileExtensionOffset(std::string_view path) {
    const std::size_t dot = path.find_last_of('.');
    return dot == std::string_view::npos || dot < fileNameOffset(path) ? 0 : dot + 1;
}

std::string resolvePath(std::string_view typed, std::string_view folder, std::string_view home) {
    std::string resolved = "/";
    const bool fromHome = !typed.empty() && typed[0] == '~' && (typed.size() == 1 || isSeparator(typed[1]));
    if (fromHome) {
        appendParts(resolved, home);
        typed.remove_prefix(1);
    } else if (typed.empty() || !isSeparator(typed[0])) {
        appendParts(resolved, folder);
    }
    appendParts(resolved, typed);
    return resolved;
}

std::string parentFolder(std::string_view path) {
    const std::size_t last = path.find_last_of('/');
    return std::string(last == std::string_view::npos || last == 0 ? "/" : path.substr(0, last));
}

std::string pathInFolder(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!endsWithSeparator(path)) {
        path += '/';
    }
    return path.append(name);
}

bool endsWithSeparator(std::string_view path) {
    return !path.empty() && isSeparator(path.back());
}

std::string trimmedName(std::string_view typed) {
    constexpr std::string_view kAround = " \t\"";
    const std::size_t first = typed.find_first_not_of(kAround);
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(typed.substr(first, typed.find_last_not_of(kAround) + 1 - first));
}

bool hasWildcard(std::string_view name) {
    return name.find_first_of("*?") != std::string_view::npos;
}

// Follows one way through the pattern; after a mismatch the last "*" takes one character more.
bool matchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") {
        return true;
    }
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t taken = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            taken = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || codePageUpper(pattern[p]) == codePageUpper(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool beginsWith(std::string_view name, std::string_view prefix) {
    return name.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), name.begin(), [](char a, char b) {
               return codePageUpper(a) == codePageUpper(b);
           });
}

std::vector<std::string> splitPatterns(std::string_view patterns) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at <= patterns.size();) {
        const std::size_t end = std::min(patterns.find(';', at), patterns.size());
        const std::string part = trimmedName(patterns.substr(at, end - at));
        if (!part.empty()) {
            parts.push_back(part);
        }
        at = end + 1;
    }
    return parts;
}

}  // namespace platform
