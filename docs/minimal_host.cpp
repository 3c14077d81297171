// A complete host: one setting, one call, and what came of it.
#include <tavrikconfig.h>

#include <cstdio>
#ifdef _WIN32
#include <windows.h>

#include <filesystem>
#else
#include <tavrikdisplay.h>
#endif

namespace {

using SettingsFunction = int (*)(HWND, const char*, CMdb*, int, int, int);

#ifdef _WIN32

#ifdef _WIN64
constexpr char kExportName[] = "?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z";
#else
constexpr char kExportName[] = "?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z";
#endif

// By its full path: a library of that name in the current folder or on the search path may be anybody's.
HMODULE LoadFromOwnFolder() {
    wchar_t program[32768] = L"";
    GetModuleFileNameW(nullptr, program, 32768);
    const auto path = std::filesystem::path(program).replace_filename("tavrikconfig.dll");
    return LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

SettingsFunction FindSettingsFunction() {
    HMODULE library = LoadFromOwnFolder();
    const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, kExportName);
    if (found == nullptr) {
        std::fprintf(stderr, "tavrikconfig.dll, or its function, is not there\n");
    }
    return reinterpret_cast<SettingsFunction>(reinterpret_cast<void*>(found));
}

#else

// Without a screen the sheet would wait in memory for a user who cannot see it.
SettingsFunction FindSettingsFunction() {
    if (TavrikDisplayInit(TAVRIK_DISPLAY_X11) == 0) {
        std::fprintf(stderr, "there is no display\n");
        return nullptr;
    }
    return Tavrikconfig;
}

#endif

}  // namespace

int main() {
    const SettingsFunction settings = FindSettingsFunction();
    if (settings == nullptr) {
        return 2;
    }
    CMdb store;
    store.AddRecord(
        "\1X-COORD\0\2"
        "12.5\0");
    const int result = settings(nullptr, "Minimal host", &store, 1, 0, 0);
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        std::printf("%s = %s%s\n", record->GetField(CMdbRecord::kKeyTag), record->GetField(CMdbRecord::kValueTag),
                    record->IsChanged() != 0 ? " (changed)" : "");
    }
    return result == 1 ? 0 : 1;
}
