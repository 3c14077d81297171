// Files for reading: a handle is the system's descriptor. Folders, devices and pipes are refused, as the system refuses
// folders, and are not waited for.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <cerrno>

#include "platform/resources/code_page.h"
#include "platform/resources/regular_file.h"

namespace platform {
namespace {

// Descriptor 0 is a file like any other, and a null handle is none.
HANDLE handleOf(int descriptor) {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(descriptor) + 1);
}

int descriptorOf(HANDLE file) {
    return static_cast<int>(reinterpret_cast<LONG_PTR>(file)) - 1;
}

}  // namespace

int openRegularFile(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status {};
    if (descriptor >= 0 && (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
        close(descriptor);
        errno = EACCES;
        return -1;
    }
    return descriptor;
}

}  // namespace platform

using namespace platform;

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD, LPVOID, DWORD disposition, DWORD, HANDLE) {
    if (path == nullptr || access != GENERIC_READ || disposition != OPEN_EXISTING) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const int descriptor = openRegularFile(codePageToUtf8(path));
    if (descriptor < 0) {
        SetLastError(errno == ENOENT || errno == ENOTDIR ? ERROR_FILE_NOT_FOUND : ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    return handleOf(descriptor);
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, DWORD* read, LPVOID) {
    ssize_t count = 0;
    do {
        count = ::read(descriptorOf(file), buffer, size);
    } while (count < 0 && errno == EINTR);
    *read = count > 0 ? static_cast<DWORD>(count) : 0;
    if (count < 0) {
        SetLastError(ERROR_READ_FAULT);
    }
    return count >= 0;
}

BOOL CloseHandle(HANDLE file) {
    return close(descriptorOf(file)) == 0;
}
