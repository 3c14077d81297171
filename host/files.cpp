// Reading and writing whole files. What differs between systems stands in the files raw_files_*.

#include "host/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>
#include <system_error>

#include "host/raw_files.h"
#include "host/settings_file.h"

namespace host {
namespace {

constexpr size_t kMaxMegabytes = 64;

// What is put behind a file's name for the files beside it.
constexpr const char* kReplacement = ".new-";
constexpr const char* kCopy = ".before-";
constexpr const char* kUnsaved = ".unsaved-";

[[noreturn]] void ThrowErrno(const std::string& fileName, const char* what) {
    throw FileError(fileName + ": " + what + ": " + std::strerror(errno));
}

// A new file beside another one, or in another folder, that is removed again unless it is kept.
class SideFile {
public:
    SideFile(const std::filesystem::path& original, const std::filesystem::path& folder, const char* purpose)
        : m_path(folder / original.filename()) {
        m_path += purpose + std::to_string(std::random_device{}());
        m_file = CreateNew(m_path, original);
        m_exists = m_file != nullptr;
    }
    ~SideFile() {
        m_file.reset();
        if (m_exists) {
            std::error_code ignored;  // A file that stays is named by the next run.
            std::filesystem::remove(m_path, ignored);
        }
    }
    SideFile(const SideFile&) = delete;
    SideFile& operator=(const SideFile&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    bool Exists() const { return m_exists; }
    std::FILE* Get() const { return m_file.get(); }
    void Close() { m_file.reset(); }
    void Keep() { m_exists = false; }

    bool Write(std::string_view bytes) const {
        return std::fwrite(bytes.data(), 1, bytes.size(), Get()) == bytes.size() && Sync(Get());
    }

private:
    std::filesystem::path m_path;
    File m_file;
    bool m_exists = false;
};

// The real file behind all links. A name that leads nowhere stands for itself.
std::filesystem::path RealPath(const std::string& fileName) {
    std::error_code error;
    const std::filesystem::path path = PathFromUtf8(fileName);
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? std::filesystem::absolute(path, error) : real;
}

bool IsNumber(const std::filesystem::path::string_type& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](auto c) { return c >= '0' && c <= '9'; });
}

// Where a file beside this one may be put, best first.
std::vector<std::filesystem::path> FoldersForSideFiles(const std::filesystem::path& path) {
    std::vector<std::filesystem::path> folders = {path.parent_path()};
    std::error_code error;
    folders.push_back(std::filesystem::temp_directory_path(error));
    if (error) {
        folders.pop_back();
    }
    return folders;
}

std::string ReadAll(std::FILE* file, const std::string& fileName) {
    std::string bytes;
    char block[65536];
    while (const size_t count = std::fread(block, 1, sizeof(block), file)) {
        bytes.append(block, count);
        if (bytes.size() > kMaxMegabytes << 20U) {
            throw FileError(fileName + ": is larger than " + std::to_string(kMaxMegabytes) + " MB");
        }
    }
    if (std::ferror(file) != 0) {
        ThrowErrno(fileName, "cannot be read");
    }
    return bytes;
}

std::string ReadRealFile(const std::filesystem::path& path, const std::string& fileName) {
    const File file = OpenForReading(path);
    if (!file) {
        ThrowErrno(fileName, "cannot be read");
    }
    return ReadAll(file.get(), fileName);
}

// A file that its owner protected is not to be changed behind the protection.
File OpenOriginal(const std::filesystem::path& path, const std::string& fileName) {
    File original = OpenForWriting(path);
    if (!original) {
        ThrowErrno(fileName, "cannot be written");
    }
    return original;
}

enum class Outcome { Done, HoldsOther, Refused };

Outcome TryToReplace(const std::filesystem::path& path, std::string_view expected, std::string_view bytes,
                     const std::string& fileName) {
    const File original = OpenOriginal(path, fileName);
    if (HasOtherNames(original.get())) {
        return Outcome::Refused;
    }
    SideFile replacement(path, path.parent_path(), kReplacement);
    if (!replacement.Exists()) {
        return Outcome::Refused;
    }
    if (!replacement.Write(bytes)) {
        ThrowErrno(fileName, "cannot be written");
    }
    if (!CopyAttributes(original.get(), replacement.Get())) {
        return Outcome::Refused;
    }
    replacement.Close();
    if (ReadRealFile(path, fileName) != expected) {
        return Outcome::HoldsOther;
    }
    if (!Replace(path, replacement.Path())) {
        return Outcome::Refused;
    }
    replacement.Keep();
    return Outcome::Done;
}

bool Overwrite(std::FILE* file, std::string_view bytes) {
    std::rewind(file);
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && Resize(file, bytes.size()) && Sync(file);
}

// False when the file holds something else by now. Nothing is overwritten before a copy of it, and the space for all
// that is new, are on the disk.
bool WriteInPlace(const std::filesystem::path& path, std::string_view old, std::string_view bytes,
                  const std::string& fileName) {
    const File file = OpenOriginal(path, fileName);
    if (ReadAll(file.get(), fileName) != old) {
        return false;
    }
    std::optional<SideFile> copy;
    for (const std::filesystem::path& folder : FoldersForSideFiles(path)) {
        if (!copy || !copy->Exists()) {
            copy.emplace(path, folder, kCopy);
        }
    }
    const bool isCopied = copy && copy->Exists() && copy->Write(old);
    if (!isCopied) {
        ThrowErrno(fileName, "cannot be written");
    }
    const bool hasSpace = bytes.size() <= old.size() || Reserve(file.get(), bytes.size());
    if (hasSpace && Overwrite(file.get(), bytes)) {
        return true;
    }
    const int error = errno;
    std::clearerr(file.get());
    std::string what = "cannot be written";
    if (!Overwrite(file.get(), old)) {
        copy->Keep();
        what = "is damaged, what it held is in " + Utf8FromPath(copy->Path());
    }
    errno = error;
    ThrowErrno(fileName, what.c_str());
}

}  // namespace

std::filesystem::path PathFromUtf8(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

void RequireRegularFile(const std::string& fileName) {
    if (const char* kind = KindOfNoFile(PathFromUtf8(fileName))) {
        throw FileError(fileName + ": is " + kind + ", not a file");
    }
}

std::string ReadWholeFile(const std::string& fileName) {
    RequireRegularFile(fileName);
    return ReadRealFile(PathFromUtf8(fileName), fileName);
}

std::optional<std::string> WhyNotWritable(const std::string& fileName) {
    RequireRegularFile(fileName);
    if (OpenForWriting(PathFromUtf8(fileName))) {
        return std::nullopt;
    }
    return std::strerror(errno);
}

bool ExchangeWholeFile(const std::string& fileName, std::string_view expected, std::string_view bytes) {
    RequireRegularFile(fileName);
    const std::filesystem::path path = RealPath(fileName);
    const Outcome outcome = TryToReplace(path, expected, bytes, fileName);
    return outcome == Outcome::Refused ? WriteInPlace(path, expected, bytes, fileName) : outcome == Outcome::Done;
}

std::optional<std::string> KeepUnsaved(const std::string& fileName, std::string_view bytes) {
    const std::filesystem::path path = RealPath(fileName);
    for (const std::filesystem::path& folder : FoldersForSideFiles(path)) {
        SideFile file(path, folder, kUnsaved);
        if (file.Exists() && file.Write(bytes)) {
            file.Keep();
            return Utf8FromPath(file.Path());
        }
    }
    return std::nullopt;
}

std::vector<std::string> DescribeLeftovers(const std::string& fileName) {
    const struct {
        const char* purpose;
        const char* meaning;
    } kinds[] = {
        {kReplacement, "was left by a run that did not finish saving; it may be incomplete"},
        {kCopy, "was left by a run that did not finish saving; it has the settings from before"},
        {kUnsaved, "has the settings of a run that could not save them"},
    };
    const std::filesystem::path path = RealPath(fileName);
    std::vector<std::string> lines;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(path.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::filesystem::path::string_type name = entry->path().filename().native();
        for (const auto& kind : kinds) {
            std::filesystem::path beginning = path.filename();
            beginning += kind.purpose;
            if (name.starts_with(beginning.native()) && IsNumber(name.substr(beginning.native().size()))) {
                lines.push_back(Utf8FromPath(entry->path()) + " " + kind.meaning);
            }
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

}  // namespace host
