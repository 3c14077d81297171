// Values in profile files.

#include "automation/profile.h"

#include <windows.h>

#include <array>

#include "automation/input.h"

namespace automation {
namespace {

// The value; nothing when there is none: then each of two defaults is read.
std::optional<std::string> ReadValue(const std::string& file, const std::string& section, const std::string& key) {
    std::array<char, 1024> text{};
    for (const char* missing : {"none", "nothing"}) {
        GetPrivateProfileStringA(section.c_str(), key.c_str(), missing, text.data(), text.size(), file.c_str());
        if (std::string(text.data()) != missing) {
            return text.data();
        }
    }
    return std::nullopt;
}

}  // namespace

void ProfileValues::Write(const std::string& file, const std::string& section, const std::string& key,
                          const std::string& value) {
    m_former.push_back({file, section, key, ReadValue(file, section, key)});
    if (!WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str())) {
        throw Failure("expected to write profile file " + file + ", got an error");
    }
}

void ProfileValues::Restore() {
    for (; !m_former.empty(); m_former.pop_back()) {
        const Former& former = m_former.back();
        WritePrivateProfileStringA(former.section.c_str(), former.key.c_str(),
                                   former.value ? former.value->c_str() : nullptr, former.file.c_str());
    }
}

}  // namespace automation
