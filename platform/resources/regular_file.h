// Regular files, opened for reading.
#pragma once

#include <string>

namespace platform {

// The descriptor; -1 with errno set when there is no such file. A folder, a device or a pipe is refused (EACCES) and
// not waited for.
int openRegularFile(const std::string& utf8Path);

}  // namespace platform
