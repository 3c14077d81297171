// Profile files: the functions that programs call, and the folder of files that are named without one.
// Deliberately missing: lists of the keys of a section, files in UTF-16, the profile of the whole system.
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>

#include "platform/profile/profile_text.h"
#include "platform/resources/code_page.h"
#include "platform/resources/regular_file.h"

namespace platform {
namespace {

// A larger file holds no settings; it counts as one that cannot be read.
constexpr size_t kLargestFile = size_t{16} << 20;
// What of a number's text is read.
constexpr DWORD kNumberRoom = 30;

std::string environmentText(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

// Empty when there is none: no variable names it and the user has no home.
std::string profileFolder() {
    std::string own = environmentText("TAVRIK_PROFILE_DIR");
    if (!own.empty()) {
        return own;
    }
    // A relative path there is to be ignored, as the convention of such folders has it.
    const std::string configuration = environmentText("XDG_CONFIG_HOME");
    if (configuration.starts_with('/')) {
        return configuration + "/tavrik";
    }
    const std::string home = environmentText("HOME");
    return home.empty() ? "" : home + "/.config/tavrik";
}

// In UTF-8; empty when there is no such place.
std::string profilePath(LPCSTR file) {
    std::string path = codePageToUtf8(file != nullptr ? file : "");
    if (path.empty() || path.find('/') != std::string::npos) {
        return path;
    }
    const std::string folder = profileFolder();
    return folder.empty() ? "" : folder + "/" + path;
}

// The text of a file; nothing, with errno set, when it cannot be read.
std::optional<std::string> readProfile(LPCSTR file) {
    const int descriptor = openRegularFile(profilePath(file));
    if (descriptor < 0) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 8192> part{};
    ssize_t count = 0;
    while (text.size() <= kLargestFile && (count = read(descriptor, part.data(), part.size())) > 0) {
        text.append(part.data(), static_cast<size_t>(count));
    }
    errno = count > 0 ? EFBIG : errno;
    close(descriptor);
    return count == 0 ? std::optional(text) : std::nullopt;
}

// Blanks at the end of a default are not part of it, but for a first one.
std::string_view defaultText(LPCSTR text) {
    std::string_view result = text != nullptr ? text : "";
    while (result.size() > 1 && result.back() == ' ') {
        result.remove_suffix(1);
    }
    return result;
}

// A list of names, each with its NUL and one more NUL behind the last. A list that is cut off ends so too.
DWORD copyNames(const std::string& names, LPSTR buffer, DWORD size) {
    if (names.size() + 1 < size || names.empty()) {
        std::memcpy(buffer, names.data(), names.size() + 1);
        return static_cast<DWORD>(names.size());
    }
    const DWORD length = size > 2 ? size - 2 : 0;
    std::memcpy(buffer, names.data(), length);
    std::memset(buffer + length, 0, size - length);
    return length;
}

}  // namespace
}  // namespace platform

using namespace platform;

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer, DWORD size, LPCSTR file) {
    if (size == 0 || buffer == nullptr) {
        return 0;
    }
    const bool isListOfSections = section == nullptr;
    const std::optional<std::string> text = isListOfSections || key != nullptr ? readProfile(file) : std::nullopt;
    if (isListOfSections) {
        return copyNames(text ? profileSections(*text) : "", buffer, size);
    }
    std::optional<std::string_view> found;
    if (text) {
        found = findProfileEntry(*text, section, key).value;
    }
    const std::string_view value = withoutQuotes(found ? *found : defaultText(fallback));
    const DWORD length = std::min(static_cast<DWORD>(value.size()), size - 1);
    std::memcpy(buffer, value.data(), length);
    buffer[length] = '\0';
    return length;
}

UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback, LPCSTR file) {
    std::array<char, kNumberRoom> text{};
    const DWORD length = GetPrivateProfileStringA(section, key, "", text.data(), kNumberRoom, file);
    return static_cast<UINT>(length == 0 ? fallback : profileNumber({text.data(), length}));
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file) {
    if (section == nullptr || key == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::optional<std::string> text = readProfile(file);
    std::ofstream out;
    if (text || errno == ENOENT) {
        out.open(profilePath(file), std::ios::binary | std::ios::trunc);
    }
    if (!out.is_open()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    const auto newValue = value != nullptr ? std::optional<std::string_view>(value) : std::nullopt;
    out << withProfileEntry(text.value_or(""), section, key, newValue);
    out.close();
    if (!out) {
        SetLastError(ERROR_WRITE_FAULT);
    }
    return out ? TRUE : FALSE;
}
