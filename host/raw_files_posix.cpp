// Files as a POSIX system has them, with Linux's extended attributes, among which are access control lists.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include "host/raw_files.h"

namespace host {
namespace {

File FileOf(int descriptor, const char* mode) {
    if (descriptor < 0) {
        return nullptr;
    }
    File file(fdopen(descriptor, mode));
    if (!file) {
        close(descriptor);
    }
    return file;
}

// A name can stand for something else by the time that it is opened, so what was opened is looked at again.
File OpenExisting(const std::filesystem::path& path, int flags, const char* mode) {
    File file = FileOf(open(path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC), mode);
    struct stat status {};
    if (file && (fstat(fileno(file.get()), &status) != 0 || !S_ISREG(status.st_mode))) {
        errno = EINVAL;
        return nullptr;
    }
    return file;
}

bool IsUnsupported() {
    return errno == ENOTSUP || errno == ENOSYS;
}

// The names of a file's extended attributes; nothing when they cannot be read.
std::optional<std::vector<std::string>> AttributeNames(int descriptor) {
    const ssize_t size = flistxattr(descriptor, nullptr, 0);
    std::string names(static_cast<size_t>(std::max<ssize_t>(size, 0)), '\0');
    if (size < 0 || flistxattr(descriptor, names.data(), names.size()) != size) {
        return IsUnsupported() ? std::optional(std::vector<std::string>()) : std::nullopt;
    }
    std::vector<std::string> list;
    for (size_t begin = 0; begin < names.size(); begin += list.back().size() + 1) {
        list.emplace_back(names.c_str() + begin);
    }
    return list;
}

std::optional<std::string> Attribute(int descriptor, const std::string& name) {
    const ssize_t size = fgetxattr(descriptor, name.c_str(), nullptr, 0);
    std::string value(static_cast<size_t>(std::max<ssize_t>(size, 0)), '\0');
    if (size < 0 || fgetxattr(descriptor, name.c_str(), value.data(), value.size()) != size) {
        return std::nullopt;
    }
    return value;
}

bool CopyExtendedAttributes(int original, int copy) {
    const auto wanted = AttributeNames(original);
    const auto present = AttributeNames(copy);
    if (!wanted || !present) {
        return false;
    }
    // A folder may give its new files more than the original has.
    for (const std::string& name : *present) {
        const bool isWanted = std::find(wanted->begin(), wanted->end(), name) != wanted->end();
        if (!isWanted && fremovexattr(copy, name.c_str()) != 0) {
            return false;
        }
    }
    return std::all_of(wanted->begin(), wanted->end(), [original, copy](const std::string& name) {
        const std::optional<std::string> value = Attribute(original, name);
        return value &&
               (Attribute(copy, name) == value || fsetxattr(copy, name.c_str(), value->data(), value->size(), 0) == 0);
    });
}

}  // namespace

const char* KindOfNoFile(const std::filesystem::path& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)) {
        return nullptr;
    }
    return S_ISDIR(status.st_mode)    ? "a folder"
           : S_ISFIFO(status.st_mode) ? "a pipe"
           : S_ISSOCK(status.st_mode) ? "a socket"
                                      : "a device";
}

File OpenForReading(const std::filesystem::path& path) {
    return OpenExisting(path, O_RDONLY, "rb");
}

File OpenForWriting(const std::filesystem::path& path) {
    return OpenExisting(path, O_RDWR, "r+b");
}

File CreateNew(const std::filesystem::path& path, const std::filesystem::path& /*original*/) {
    return FileOf(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR), "wb");
}

bool HasOtherNames(std::FILE* file) {
    struct stat status {};
    return fstat(fileno(file), &status) != 0 || status.st_nlink != 1;
}

// The permissions come last: until then only the owner may read the copy, and a change of owner would take some away.
bool CopyAttributes(std::FILE* original, std::FILE* copy) {
    const int from = fileno(original);
    const int to = fileno(copy);
    struct stat wanted {};
    struct stat present {};
    if (fstat(from, &wanted) != 0 || fstat(to, &present) != 0) {
        return false;
    }
    const bool isOwned = wanted.st_uid == present.st_uid && wanted.st_gid == present.st_gid;
    if (!isOwned && fchown(to, wanted.st_uid, wanted.st_gid) != 0) {
        return false;
    }
    return CopyExtendedAttributes(from, to) && fchmod(to, wanted.st_mode & 07777U) == 0 && fstat(to, &present) == 0 &&
           present.st_mode == wanted.st_mode && fsync(to) == 0;
}

bool Replace(const std::filesystem::path& original, const std::filesystem::path& replacement) {
    if (rename(replacement.c_str(), original.c_str()) != 0) {
        return false;
    }
    // Some file systems cannot synchronise a folder; the file is in its place all the same.
    const int folder = open(original.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        fsync(folder);
        close(folder);
    }
    return true;
}

bool Reserve(std::FILE* file, size_t size) {
    errno = posix_fallocate(fileno(file), 0, static_cast<off_t>(size));
    return errno == 0;
}

bool Resize(std::FILE* file, size_t size) {
    return std::fflush(file) == 0 && ftruncate(fileno(file), static_cast<off_t>(size)) == 0;
}

bool Sync(std::FILE* file) {
    return std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

}  // namespace host
