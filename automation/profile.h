// The values that a scenario writes into profile files, which on Windows all programs share.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace automation {

// Puts the former values back when it ends. Texts are code page 1252.
class ProfileValues {
public:
    ProfileValues() = default;
    ~ProfileValues() { Restore(); }
    ProfileValues(const ProfileValues&) = delete;
    ProfileValues& operator=(const ProfileValues&) = delete;

    // Throws a Failure when the value cannot be written.
    void Write(const std::string& file, const std::string& section, const std::string& key, const std::string& value);
    void Restore();

private:
    struct Former {
        std::string file;
        std::string section;
        std::string key;
        std::optional<std::string> value;
    };

    std::vector<Former> m_former;
};

}  // namespace automation
