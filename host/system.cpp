// Arguments, the component's library and the display, on Windows and elsewhere.

#include "host/system.h"

#include <cstdlib>

#include "host/files.h"
#include "host/settings_file.h"

#ifdef _WIN32
#include <shellapi.h>
#else
#include <fcntl.h>
#include <tavrikdisplay.h>
#include <unistd.h>
#endif

namespace host {

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

namespace {

// The system cuts a name off where it does not fit.
std::filesystem::path ProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

}  // namespace

// By its full path, and what it needs from the system's folder alone: a library of the same name in the current folder
// or on the search path may be anybody's.
ExportFunction BindExport() {
    constexpr const char* kFunction = sizeof(void*) == 8 ? "?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z"
                                                         : "?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z";
    const std::filesystem::path path = ProgramPath().replace_filename("tavrikconfig.dll");
    const std::string name = Utf8FromPath(path);
    HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) {
        throw FileError(name + ": cannot be loaded (error " + std::to_string(GetLastError()) + ")");
    }
    FARPROC function = GetProcAddress(library, kFunction);
    if (function == nullptr) {
        throw FileError(name + ": does not export " + kFunction);
    }
    return reinterpret_cast<ExportFunction>(reinterpret_cast<void*>(function));
}

void UseProfileFolder(const std::filesystem::path& /*folder*/) {
    // The Windows folder is the only one.
}

// Of the thread, which goes before what the program or its manifest has said. Systems that do not have the function
// know one fineness for all.
void UseAwareness(int awareness) {
    FARPROC function = GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext");
    if (function != nullptr) {
        using SetAwareness = HANDLE(WINAPI*)(HANDLE);
        reinterpret_cast<SetAwareness>(reinterpret_cast<void*>(function))(
            reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1 - awareness)));
    }
}

void UseDotsPerInch(int /*dots*/) {
    // The user has set it, and the system holds to it.
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

std::string WhyNoDisplay() {
    return "there is no display";
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

void UseAwareness(int /*awareness*/) {
    // Every program lays out its own windows.
}

void UseDotsPerInch(int dots) {
    TavrikSetDotsPerInch(dots);
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

std::string WhyNoDisplay() {
    const char* server = std::getenv("DISPLAY");
    return server == nullptr || *server == '\0' ? "there is no display (DISPLAY is not set)"
                                                : "no display answers (DISPLAY is '" + std::string(server) + "')";
}

#endif

}  // namespace host
