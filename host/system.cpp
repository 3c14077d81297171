// Arguments, whole files, the component's library and the display, on Windows and elsewhere.

#include "host/system.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <random>
#include <system_error>

#include "host/settings_file.h"

#ifdef _WIN32
#include <io.h>
#include <shellapi.h>
#else
#include <fcntl.h>
#include <tavrikdisplay.h>
#include <unistd.h>
#endif

namespace host {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void ThrowErrno(const std::string& fileName, const char* what) {
    throw FileError(fileName + ": " + what + ": " + std::strerror(errno));
}

// A new file beside another, which it either replaces or is removed again.
class Replacement {
public:
    // The folder must be that of the real file: a link stays a link, and a rename stays on one volume.
    explicit Replacement(const std::filesystem::path& original)
        : m_original(std::filesystem::canonical(original)), m_path(m_original) {
        m_path += ".new" + std::to_string(std::random_device{}());
    }
    ~Replacement() {
        std::error_code ignored;  // After the replacing there is no such file any more.
        std::filesystem::remove(m_path, ignored);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    void Replace() const {
        std::filesystem::permissions(m_path, std::filesystem::status(m_original).permissions());
        std::filesystem::rename(m_path, m_original);
    }

private:
    std::filesystem::path m_original;
    std::filesystem::path m_path;
};

#ifdef _WIN32

File OpenFile(const std::filesystem::path& path, const char* mode) {
    return File(_wfopen(path.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str()));
}

// A new file has the access rights of its folder.
File CreateNewFile(const std::filesystem::path& path) {
    return OpenFile(path, "wb");
}

bool SyncFile(std::FILE* file) {
    return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

#else

File OpenFile(const std::filesystem::path& path, const char* mode) {
    return File(std::fopen(path.c_str(), mode));
}

// Only the owner may read the file until it gets the permissions of the one it replaces, which may be private.
File CreateNewFile(const std::filesystem::path& path) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0) {
        return nullptr;
    }
    File file(fdopen(descriptor, "wb"));
    if (!file) {
        close(descriptor);
    }
    return file;
}

bool SyncFile(std::FILE* file) {
    return std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

#endif

void WriteSynced(const std::filesystem::path& path, std::string_view bytes, const std::string& nameInErrors) {
    const File file = CreateNewFile(path);
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() || !SyncFile(file.get())) {
        ThrowErrno(nameInErrors, "cannot be written");
    }
}

}  // namespace

std::filesystem::path PathFromUtf8(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string ReadWholeFile(const std::string& fileName) {
    const File file = OpenFile(PathFromUtf8(fileName), "rb");
    if (!file) {
        ThrowErrno(fileName, "cannot be read");
    }
    std::string bytes;
    char block[4096];
    while (const size_t count = std::fread(block, 1, sizeof(block), file.get())) {
        bytes.append(block, count);
    }
    if (std::ferror(file.get()) != 0) {
        ThrowErrno(fileName, "cannot be read");
    }
    return bytes;
}

void ReplaceWholeFile(const std::string& fileName, std::string_view bytes) {
    // A file that its owner protected is not to be replaced behind the protection.
    if (!OpenFile(PathFromUtf8(fileName), "r+b")) {
        ThrowErrno(fileName, "cannot be written");
    }
    try {
        const Replacement replacement(PathFromUtf8(fileName));
        WriteSynced(replacement.Path(), bytes, fileName);
        replacement.Replace();
    } catch (const std::filesystem::filesystem_error& error) {
        throw FileError(fileName + ": cannot be written: " + error.code().message());
    }
}

#ifdef _WIN32

std::vector<std::string> CommandLineArguments(int /*argc*/, char** /*argv*/) {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        const std::u8string text = std::filesystem::path(wide[i]).u8string();
        arguments.emplace_back(text.begin(), text.end());
    }
    LocalFree(wide);
    return arguments;
}

void ReserveStandardStreams() {
    // The run time library has its own table of files, and connections are none of them.
}

void UseUtf8Console() {
    static const UINT codePageBefore = GetConsoleOutputCP();
    if (codePageBefore == 0) {
        return;  // There is no console.
    }
    SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { SetConsoleOutputCP(codePageBefore); });
}

ExportFunction BindExport() {
    constexpr const char* kLibrary = "tavrikconfig.dll";
    constexpr const char* kFunction = sizeof(void*) == 8 ? "?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z"
                                                         : "?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z";
    HMODULE library = LoadLibraryA(kLibrary);
    if (library == nullptr) {
        throw FileError(std::string(kLibrary) + ": cannot be loaded, error " + std::to_string(GetLastError()));
    }
    FARPROC function = GetProcAddress(library, kFunction);
    if (function == nullptr) {
        throw FileError(std::string(kLibrary) + ": does not export " + kFunction);
    }
    return reinterpret_cast<ExportFunction>(reinterpret_cast<void*>(function));
}

void UseProfileFolder(const std::filesystem::path& /*folder*/) {
    // The Windows folder is the only one.
}

bool ChooseDisplay(Display /*display*/) {
    return true;
}

bool IsFontFound() {
    return true;
}

bool IsDisplayLost() {
    return false;
}

#else

std::vector<std::string> CommandLineArguments(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

void ReserveStandardStreams() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        // The lowest free number is the one that a new file gets.
        if (fcntl(descriptor, F_GETFD) < 0) {
            static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
}

void UseUtf8Console() {
    // A terminal shows UTF-8 anyway.
}

ExportFunction BindExport() {
    return Tavrikconfig;
}

void UseProfileFolder(const std::filesystem::path& folder) {
    setenv("TAVRIK_PROFILE_DIR", folder.c_str(), 1);
}

bool ChooseDisplay(Display display) {
    const char* server = std::getenv("DISPLAY");
    const bool triesScreen = display != Display::Memory && server != nullptr && *server != '\0';
    if (triesScreen && TavrikDisplayInit(TAVRIK_DISPLAY_X11) != 0) {
        return true;
    }
    return display != Display::Screen && TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) != 0;
}

bool IsFontFound() {
    return TavrikFontFound() != 0;
}

bool IsDisplayLost() {
    return TavrikDisplayLost() != 0;
}

#endif

}  // namespace host
