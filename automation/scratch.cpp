// The name is tried until it is new, so that programs that run at the same time do not share a folder.

#include "automation/scratch.h"

#include <random>
#include <string>
#include <system_error>

namespace automation {

ScratchFolder::ScratchFolder() {
    std::random_device random;
    const std::filesystem::path parent = std::filesystem::temp_directory_path();
    do {
        m_path = parent / ("tavrik-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(m_path));
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;  // A file that is still open elsewhere stays; nothing depends on it.
    std::filesystem::remove_all(m_path, ignored);
}

}  // namespace automation
