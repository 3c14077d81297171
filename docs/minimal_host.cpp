// A complete host for Windows: one setting, one call, and what came of it.
#include <windows.h>

#include <cstdio>
#include <filesystem>

#include "include/tavrikconfig.h"

namespace {

using SettingsFunction = int (*)(HWND, const char*, CMdb*, int, int, int);

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

}  // namespace

int main() {
    HMODULE library = LoadFromOwnFolder();
    const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, kExportName);
    if (found == nullptr) {
        std::fprintf(stderr, "tavrikconfig.dll, or its function, is not there\n");
        return 2;
    }
    const auto settings = reinterpret_cast<SettingsFunction>(reinterpret_cast<void*>(found));

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
