// Files as Windows has them. A file's access rights are its security descriptor's list.

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <vector>

#include "host/raw_files.h"

namespace host {
namespace {

HANDLE HandleOf(std::FILE* file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

int ErrnoOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_FILE_EXISTS:
            return EEXIST;
        case ERROR_DISK_FULL:
            return ENOSPC;
        case ERROR_SHARING_VIOLATION:
            return EBUSY;
        default:
            return EACCES;
    }
}

File FileOf(HANDLE handle, int flags, const char* mode) {
    if (handle == INVALID_HANDLE_VALUE) {
        errno = ErrnoOf(GetLastError());
        return nullptr;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), flags | _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(handle);
        return nullptr;
    }
    File file(_fdopen(descriptor, mode));
    if (!file) {
        _close(descriptor);
    }
    return file;
}

File OpenExisting(const std::filesystem::path& path, DWORD access, int flags, const char* mode) {
    HANDLE handle = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        errno = EINVAL;
        return nullptr;
    }
    return FileOf(handle, flags, mode);
}

}  // namespace

// Asking for no access looks at a device without using it.
const char* KindOfNoFile(const std::filesystem::path& path) {
    HANDLE handle = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return nullptr;
    }
    BY_HANDLE_FILE_INFORMATION information{};
    const DWORD type = GetFileType(handle);
    const bool isFolder = type == FILE_TYPE_DISK && GetFileInformationByHandle(handle, &information) != 0 &&
                          (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    CloseHandle(handle);
    return isFolder ? "a folder" : type == FILE_TYPE_DISK ? nullptr : type == FILE_TYPE_PIPE ? "a pipe" : "a device";
}

File OpenForReading(const std::filesystem::path& path) {
    return OpenExisting(path, GENERIC_READ, _O_RDONLY, "rb");
}

File OpenForWriting(const std::filesystem::path& path) {
    return OpenExisting(path, GENERIC_READ | GENERIC_WRITE, _O_RDWR, "r+b");
}

File CreateNew(const std::filesystem::path& path, const std::filesystem::path& original) {
    DWORD size = 0;
    GetFileSecurityW(original.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<unsigned char> rights(size);
    SECURITY_ATTRIBUTES attributes{sizeof(attributes), rights.data(), FALSE};
    const bool hasRights =
        size != 0 && GetFileSecurityW(original.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) != 0;
    return FileOf(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                              hasRights ? &attributes : nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr),
                  _O_WRONLY, "wb");
}

bool HasOtherNames(std::FILE* file) {
    BY_HANDLE_FILE_INFORMATION information{};
    return GetFileInformationByHandle(HandleOf(file), &information) == 0 || information.nNumberOfLinks != 1;
}

bool CopyAttributes(std::FILE* /*original*/, std::FILE* /*copy*/) {
    return true;  // Replacing does it.
}

bool Replace(const std::filesystem::path& original, const std::filesystem::path& replacement) {
    if (ReplaceFileW(original.c_str(), replacement.c_str(), nullptr, 0, nullptr, nullptr) != 0) {
        return true;
    }
    // It can fail between its two steps, when the original is gone already.
    return GetFileAttributesW(original.c_str()) == INVALID_FILE_ATTRIBUTES &&
           MoveFileExW(replacement.c_str(), original.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

bool Reserve(std::FILE* file, size_t size) {
    return Resize(file, size);
}

bool Resize(std::FILE* file, size_t size) {
    return std::fflush(file) == 0 && _chsize_s(_fileno(file), static_cast<int64_t>(size)) == 0;
}

bool Sync(std::FILE* file) {
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

}  // namespace host
