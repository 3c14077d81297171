// A folder for the files of one program run.
#pragma once

#include <filesystem>

namespace automation {

// Creates an empty folder of its own below the system's folder for temporary files, and removes it with all in it.
// The constructor throws std::filesystem::filesystem_error when there is no place for it.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace automation
